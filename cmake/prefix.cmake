# The build tree as an installed prefix: the drivers, the headers and the files for other build tools where programs look
# for them; and the same for installation, below CMAKE_INSTALL_PREFIX and DESTDIR. Nothing that is installed relies on
# the prefix, so the tree may be moved. driver/install.sh adds the list that ./dev uninstall reads, gdb.cmake what gdb
# needs.

include(CMakePackageConfigHelpers)

# What the drivers look for when PLX_CXX and PLX_CC name no compiler. Sanitizers belong to the library's own.
set(PLX_DRIVER_CXX "g++ clang++ g++-15 g++-14 g++-13 g++-12 clang++-19 clang++-14")
if(PLX_SANITIZE)
  set(PLX_DRIVER_CXX ${CMAKE_CXX_COMPILER})
  set(PLX_DRIVER_CC ${CMAKE_C_COMPILER})
else()
  string(REGEX REPLACE "(g|clang)[+][+]" "\\1cc" PLX_DRIVER_CC "${PLX_DRIVER_CXX}")
  string(REPLACE clangcc clang PLX_DRIVER_CC "${PLX_DRIVER_CC}")
endif()
list(JOIN PLX_PROGRAM_FLAGS " " PLX_PROGRAM_FLAGS_TEXT)
set(PLX_DRIVERS "")
foreach(DRIVER plx-c++ plx-cc)
  configure_file(driver/driver.in ${PLX_BIN}/${DRIVER} @ONLY
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  list(APPEND PLX_DRIVERS ${PLX_BIN}/${DRIVER})
endforeach()

# Empty archives for the C++ libraries that compilers add by themselves.
foreach(name stdc++ supc++ c++ c++abi)
  file(CONFIGURE OUTPUT ${PLX_LIB}/plx-3/lib${name}.a CONTENT "!<arch>\n" @ONLY)
endforeach()

# What programs export for the shared objects that they load: the identities of generated C.
file(CONFIGURE OUTPUT ${PLX_LIB}/plx-3/exports.list CONTENT "{ __TID_*; };\n" @ONLY)

set(PLX_SHARE ${CMAKE_BINARY_DIR}/share)
foreach(name plx plx-c)
  configure_file(driver/${name}.pc.in ${PLX_SHARE}/pkgconfig/${name}.pc @ONLY)
endforeach()
configure_file(driver/plxConfig.cmake ${PLX_SHARE}/cmake/plx/plxConfig.cmake COPYONLY)
write_basic_package_version_file(${PLX_SHARE}/cmake/plx/plxConfigVersion.cmake
  COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
# Copied: it finds the prefix relative to itself.
configure_file(driver/toolchain.cmake ${PLX_SHARE}/plx-3/toolchain.cmake COPYONLY)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/include)
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/include ${CMAKE_BINARY_DIR}/include/plx-3 SYMBOLIC)

# All that belongs into the prefix and must be built.
add_custom_target(libraries)
foreach(target plx plx_start plx_static plx_pie)
  if(TARGET ${target})
    add_dependencies(libraries ${target})
  endif()
endforeach()

set(PLX_SONAME libplx.so.${PROJECT_VERSION_MAJOR})
install(FILES ${PLX_LIB}/libplx.so.${PROJECT_VERSION} ${PLX_LIB}/${PLX_SONAME} ${PLX_LIB}/libplx.so ${PLX_LIB}/libplx_start.a
  DESTINATION lib)
if(NOT PLX_SANITIZE)
  install(FILES ${PLX_LIB}/libplx.a DESTINATION lib)
  install(FILES ${PLX_LIB}/libplx_pie.a DESTINATION lib OPTIONAL)
endif()
install(DIRECTORY ${PLX_LIB}/plx-3 DESTINATION lib)
install(PROGRAMS ${PLX_DRIVERS} DESTINATION bin)
install(DIRECTORY include/ DESTINATION include/plx-3 PATTERN ".clang-format" EXCLUDE)
install(FILES driver/toolchain.cmake DESTINATION share/plx-3)
install(DIRECTORY ${PLX_SHARE}/cmake ${PLX_SHARE}/pkgconfig DESTINATION share)

# Documents keep their places, so that the links between them hold.
foreach(section 1 7)
  file(GLOB pages CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/man/*.${section})
  install(FILES ${pages} DESTINATION share/man/man${section})
endforeach()
file(GLOB texts CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/*.md)
install(FILES ${texts} DESTINATION share/doc/plx)
install(DIRECTORY docs examples DESTINATION share/doc/plx USE_SOURCE_PERMISSIONS PATTERN ".clang-format" EXCLUDE)
