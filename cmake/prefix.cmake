# The build tree as an installed prefix: the drivers, the headers, the canary and the files for other build tools where
# programs look for them; and the same for installation, below CMAKE_INSTALL_PREFIX and DESTDIR. Nothing that is installed
# relies on the prefix, so the tree may be moved. driver/install.sh adds the list that ./dev
# uninstall reads, gdb.cmake what gdb needs.

include(CMakePackageConfigHelpers)

set(PLX_SHARE ${CMAKE_BINARY_DIR}/share)
list(JOIN PLX_PROGRAM_FLAGS " " PLX_PROGRAM_FLAGS_TEXT)
set(PLX_DRIVERS "")
foreach(driver plx-c++ plx-cc)
  configure_file(driver/${driver} ${PLX_BIN}/${driver} @ONLY
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  list(APPEND PLX_DRIVERS ${PLX_BIN}/${driver})
endforeach()
configure_file(driver/plx.pc.in ${PLX_SHARE}/pkgconfig/plx.pc @ONLY)
configure_file(driver/plxConfig.cmake ${PLX_SHARE}/cmake/plx/plxConfig.cmake COPYONLY)
write_basic_package_version_file(${PLX_SHARE}/cmake/plx/plxConfigVersion.cmake
  COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)

file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/include)
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/include ${CMAKE_BINARY_DIR}/include/plx-3 SYMBOLIC)
# Copied: it finds the prefix relative to itself.
configure_file(driver/toolchain.cmake ${PLX_SHARE}/plx-3/toolchain.cmake COPYONLY)


# All that belongs into the prefix and must be built.
add_custom_target(libraries)
add_dependencies(libraries plx plx_start)
if(TARGET plx_static)
  add_dependencies(libraries plx_static)
endif()

install(TARGETS plx LIBRARY DESTINATION lib)
install(FILES ${PLX_ARCHIVE} DESTINATION lib)
if(TARGET plx_static)
  install(TARGETS plx_static ARCHIVE DESTINATION lib)
endif()
install(PROGRAMS ${PLX_DRIVERS} DESTINATION bin)
install(DIRECTORY include/ DESTINATION include/plx-3 PATTERN ".clang-format" EXCLUDE)

install(FILES driver/toolchain.cmake DESTINATION share/plx-3)
install(DIRECTORY ${PLX_SHARE}/cmake/plx DESTINATION share/cmake)
install(FILES ${PLX_SHARE}/pkgconfig/plx.pc DESTINATION share/pkgconfig)

# Documents keep their places, so that the links between them hold.
foreach(section 1 7)
  file(GLOB pages CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/man/*.${section})
  install(FILES ${pages} DESTINATION share/man/man${section})
endforeach()
file(GLOB texts CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/*.md)
install(FILES ${texts} DESTINATION share/doc/plx)
install(DIRECTORY docs examples DESTINATION share/doc/plx USE_SOURCE_PERMISSIONS PATTERN ".clang-format" EXCLUDE)
