# What `cmake --install` puts where: library, program, public headers, CMake package, pkg-config file, license, documents.
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

# The file tells the prefix from its own place: `cmake --install --prefix` and packages choose it after this.
file(RELATIVE_PATH prefix_from_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/drawload.pc.in ${PROJECT_BINARY_DIR}/drawload.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/drawload.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES docs/man/drawload.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES docs/man/libdrawload.3 DESTINATION ${CMAKE_INSTALL_MANDIR}/man3)
install(FILES tools/drawload/completions/drawload.bash
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME drawload)
foreach(folder site-functions vendor-completions)  # Debian's zsh looks into the one below /usr/local, into the other below /usr
  install(FILES tools/drawload/completions/_drawload DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/${folder})
endforeach()
install(FILES tools/drawload/completions/drawload.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
install(FILES LICENSE NOTICE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN "*.md"
  PATTERN "preflight/*.png" PATTERN man EXCLUDE)

# `cpack -G DEB` in the build folder makes a Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME drawload)
set(CPACK_PACKAGE_CONTACT "The drawload developers <drawload@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS xdg-utils)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian_copyright.cmake)
include(CPack)
