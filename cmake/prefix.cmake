# The build tree as an installed prefix: the drivers, the headers and the canary where the drivers look for them; and the
# same for installation, below CMAKE_INSTALL_PREFIX and DESTDIR.

list(JOIN PLX_PROGRAM_FLAGS " " PLX_PROGRAM_FLAGS_TEXT)
set(PLX_DRIVERS "")
foreach(driver plx-c++ plx-cc)
  configure_file(driver/${driver} ${PLX_BIN}/${driver} @ONLY
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  list(APPEND PLX_DRIVERS ${PLX_BIN}/${driver})
endforeach()

file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/include ${CMAKE_BINARY_DIR}/share/plx-3)
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/include ${CMAKE_BINARY_DIR}/include/plx-3 SYMBOLIC)
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/driver/canary ${CMAKE_BINARY_DIR}/share/plx-3/canary SYMBOLIC)

install(TARGETS plx LIBRARY DESTINATION lib)
install(FILES ${PLX_ARCHIVE} DESTINATION lib)
install(PROGRAMS ${PLX_DRIVERS} DESTINATION bin)
install(DIRECTORY include/ DESTINATION include/plx-3 PATTERN ".clang-format" EXCLUDE)
install(DIRECTORY driver/canary DESTINATION share/plx-3)
