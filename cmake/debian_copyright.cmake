# Gives the license the name that Debian looks for, in the folder that cpack packs.
file(RENAME ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share/doc/drawload/LICENSE
  ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share/doc/drawload/copyright)
