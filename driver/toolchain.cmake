# Compiles a CMake project for plx:  cmake --toolchain PREFIX/share/plx-3/toolchain.cmake ...
#
# It finds the drivers relative to itself. CMAKE_SYSTEM_NAME stays unset: what is built runs on this machine, so CMake may
# run it while it configures.

get_filename_component(_plx_prefix "${CMAKE_CURRENT_LIST_DIR}" REALPATH)
get_filename_component(_plx_prefix "${_plx_prefix}/../.." ABSOLUTE)
set(CMAKE_C_COMPILER "${_plx_prefix}/bin/plx-cc")
set(CMAKE_CXX_COMPILER "${_plx_prefix}/bin/plx-c++")
# The drivers do this by themselves; here it is for those who read compile_commands.json, such as clangd.
set(CMAKE_C_FLAGS_INIT -m32)
set(CMAKE_CXX_FLAGS_INIT "-m32 -std=gnu++98 -nostdinc++ -fvisibility-inlines-hidden")
set(CMAKE_C_STANDARD_INCLUDE_DIRECTORIES "${_plx_prefix}/include/plx-3")
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES "${_plx_prefix}/include/plx-3")
# For find_package(plx).
list(FIND CMAKE_PREFIX_PATH "${_plx_prefix}" _plx_known)
if(_plx_known EQUAL -1)
  list(INSERT CMAKE_PREFIX_PATH 0 "${_plx_prefix}")
endif()
unset(_plx_prefix)
unset(_plx_known)
