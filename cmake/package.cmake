# What CPack makes a Debian package of, for `./dev package`; cmake/debian_layout.cmake arranges the files. The same sources
# make the same package: CPack gives all of it the time of SOURCE_DATE_EPOCH.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/cmake/debian_layout.cmake)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "C++ run-time library for 32-bit programs, and its compiler drivers")
set(CPACK_PACKAGE_DESCRIPTION
"plx is the C++ run-time library of a compiler that translates C++ into C:
exceptions, dynamic memory, run-time type information, and the C++ standard
library of 1998 for char. It makes 32-bit programs for x86 and stands on the
C library alone.

plx-c++ compiles ordinary C++ for it with a stock g++ or clang, plx-cc
generated C. There are also a static library, a CMake package with a
toolchain file, a pkg-config file, and pretty printers for gdb.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
# The libraries are 32-bit code for machines that are not.
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE amd64)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The plx maintainers <plx@localhost.localdomain>")
# Which C library is needed, the library's references tell.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6-dev-i386, g++-multilib | clang, binutils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "gdb, cmake, pkgconf")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/debian/triggers CONTENT "activate-noawait ldconfig\n" @ONLY)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_BINARY_DIR}/debian/triggers)
set(CPACK_PLX_SOURCE ${CMAKE_SOURCE_DIR})
include(CPack)
