# gdb's view of plx: printers and commands in share/plx-3/gdb, and the file by which gdb finds them on its own.
#
# gdb looks for such a file beside the library, as libplx.so.3.3.0-gdb.py, and below the auto-load folder of its own
# data directory, under the library's whole path. It runs those below its data directory, and others only where the user
# said so (add-auto-load-safe-path). The first that exists decides, so only one is installed: below /usr, where the data
# directory is, there; elsewhere beside the library, which also goes with a tree that is moved.

set(PLX_GDB_DATA share/plx-3/gdb)
set(PLX_GDB_LIB lib)  # where the library is installed, below the prefix
set(PLX_GDB_FILE libplx.so.${PROJECT_VERSION}-gdb.py)
cmake_path(RELATIVE_PATH PLX_GDB_DATA BASE_DIRECTORY ${PLX_GDB_LIB} OUTPUT_VARIABLE PLX_GDB_RELATIVE)

# The build tree.
configure_file(gdb/auto_load.py.in ${PLX_LIB}/${PLX_GDB_FILE} @ONLY)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/share/plx-3)
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/gdb ${CMAKE_BINARY_DIR}/share/plx-3/gdb SYMBOLIC)

install(DIRECTORY gdb/plx_printers DESTINATION ${PLX_GDB_DATA} FILES_MATCHING PATTERN "*.py")
install(FILES gdb/load.py DESTINATION ${PLX_GDB_DATA})
install(CODE "
  set(folder \"\${CMAKE_INSTALL_PREFIX}/${PLX_GDB_LIB}\")
  if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
    set(folder \"/usr/share/gdb/auto-load\${folder}\")
  endif()
  file(INSTALL \"${PLX_LIB}/${PLX_GDB_FILE}\" DESTINATION \"\${folder}\")
")
