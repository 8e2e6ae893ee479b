# find_package(plx): the target plx::plx, for any compiler of this machine and for plx's drivers; and
#   plx_TOOLCHAIN_FILE, plx_C_COMPILER, plx_CXX_COMPILER
# for projects that shall be built for plx whole, without knowing it. It finds everything relative to itself, so the
# tree may be moved.

get_filename_component(_plx_prefix "${CMAKE_CURRENT_LIST_DIR}" REALPATH)
get_filename_component(_plx_prefix "${_plx_prefix}/../../.." ABSOLUTE)
set(plx_C_COMPILER "${_plx_prefix}/bin/plx-cc")
set(plx_CXX_COMPILER "${_plx_prefix}/bin/plx-c++")
set(plx_TOOLCHAIN_FILE "${_plx_prefix}/share/plx-3/toolchain.cmake")

if(NOT CMAKE_SYSTEM_NAME STREQUAL Linux OR NOT CMAKE_SYSTEM_PROCESSOR MATCHES "^(i[3-6]86|x86_64|AMD64)$")
  set(plx_FOUND FALSE)
  set(plx_NOT_FOUND_MESSAGE "plx is for x86 Linux, not for ${CMAKE_SYSTEM_NAME} on ${CMAKE_SYSTEM_PROCESSOR}")
elseif(NOT TARGET plx::plx)
  # Debian keeps 32-bit libraries of 64-bit machines in lib32.
  set(_plx_lib "${_plx_prefix}/lib")
  if(NOT EXISTS "${_plx_lib}/libplx.so.3")
    set(_plx_lib "${_plx_prefix}/lib32")
  endif()
  add_library(plx::plx INTERFACE IMPORTED)
  # No imported library: CMake would take its place out of programs when it installs them. The folder plx-3 has empty
  # archives for the C++ libraries that compilers add.
  set_target_properties(plx::plx PROPERTIES
    INTERFACE_COMPILE_OPTIONS "-m32;$<$<COMPILE_LANGUAGE:CXX>:-nostdinc++;-fvisibility-inlines-hidden>"
    INTERFACE_INCLUDE_DIRECTORIES "${_plx_prefix}/include/plx-3"
    INTERFACE_LINK_OPTIONS "-m32;-L${_plx_lib};-L${_plx_lib}/plx-3;LINKER:--as-needed;LINKER:-rpath,${_plx_lib}"
    INTERFACE_LINK_LIBRARIES "$<$<LINK_LANGUAGE:CXX>:-lplx;-lgcc>;$<$<LINK_LANGUAGE:C>:-l:libplx.so.3;-Wl,-u,__zor_object_end;-l:libplx_start.a>")
  unset(_plx_lib)
endif()
unset(_plx_prefix)
