# find_package(plx): the target plx::plx, and what is needed to configure a project for plx:
#   plx_TOOLCHAIN_FILE, plx_C_COMPILER, plx_CXX_COMPILER
#
# C++ must be compiled by plx-c++; C may be compiled by any compiler for 32-bit x86. It finds everything relative to
# itself, so the tree may be moved.

get_filename_component(_plx_prefix "${CMAKE_CURRENT_LIST_DIR}" REALPATH)
get_filename_component(_plx_prefix "${_plx_prefix}/../../.." ABSOLUTE)
set(plx_C_COMPILER "${_plx_prefix}/bin/plx-cc")
set(plx_CXX_COMPILER "${_plx_prefix}/bin/plx-c++")
set(plx_TOOLCHAIN_FILE "${_plx_prefix}/share/plx-3/toolchain.cmake")

get_property(_plx_languages GLOBAL PROPERTY ENABLED_LANGUAGES)
list(FIND _plx_languages CXX _plx_cxx)
if(NOT _plx_cxx EQUAL -1 AND NOT CMAKE_CXX_COMPILER MATCHES "plx-c\\+\\+$")
  set(plx_FOUND FALSE)
  set(plx_NOT_FOUND_MESSAGE
    "C++ for plx is compiled by plx-c++, not by ${CMAKE_CXX_COMPILER}: configure with --toolchain ${plx_TOOLCHAIN_FILE}")
elseif(CMAKE_SIZEOF_VOID_P AND NOT CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(plx_FOUND FALSE)
  set(plx_NOT_FOUND_MESSAGE
    "plx is a library of 32-bit code: configure with --toolchain ${plx_TOOLCHAIN_FILE}, or compile with -m32")
elseif(NOT TARGET plx::plx)
  add_library(plx::plx INTERFACE IMPORTED)
  # The drivers add headers and library by themselves. CMake must not: it would take the library's place out of programs
  # when it installs them.
  list(FIND _plx_languages C _plx_c)
  if(NOT _plx_c EQUAL -1 AND NOT CMAKE_C_COMPILER MATCHES "plx-cc$")
    # Debian keeps 32-bit libraries of 64-bit machines in lib32.
    foreach(_plx_folder lib32 lib)
      if(EXISTS "${_plx_prefix}/${_plx_folder}/libplx.so.3")
        set(_plx_library "${_plx_prefix}/${_plx_folder}/libplx.so.3")
      endif()
    endforeach()
    add_library(plx::library SHARED IMPORTED)
    set_target_properties(plx::library PROPERTIES IMPORTED_LOCATION "${_plx_library}" IMPORTED_SONAME libplx.so.3)
    set_target_properties(plx::plx PROPERTIES
      INTERFACE_INCLUDE_DIRECTORIES "${_plx_prefix}/include/plx-3"
      INTERFACE_LINK_LIBRARIES "$<$<LINK_LANGUAGE:C>:plx::library>")
    unset(_plx_folder)
    unset(_plx_library)
  endif()
  unset(_plx_c)
endif()
unset(_plx_prefix)
unset(_plx_languages)
unset(_plx_cxx)
