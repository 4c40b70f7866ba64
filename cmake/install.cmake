# What `cmake --install` puts where: library, program, public headers, CMake package, pkg-config file.
include(CMakePackageConfigHelpers)

set_target_properties(drawload_program PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
install(TARGETS drawload EXPORT drawloadTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS drawload_program RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY include/drawload DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/drawload)
install(EXPORT drawloadTargets NAMESPACE drawload:: DESTINATION ${package_dir})
configure_package_config_file(cmake/drawloadConfig.cmake.in ${PROJECT_BINARY_DIR}/drawloadConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/drawloadConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/drawloadConfig.cmake ${PROJECT_BINARY_DIR}/drawloadConfigVersion.cmake
  DESTINATION ${package_dir})

configure_file(cmake/drawload.pc.in ${PROJECT_BINARY_DIR}/drawload.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/drawload.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
