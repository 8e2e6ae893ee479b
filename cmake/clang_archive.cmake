# libplx_clang.a: the part of the clang adapter that lives in every program. It is program code, so it is always built by
# the clang that the driver uses, whatever compiles the library, and not position-independent. One object per member.

find_program(PLX_CLANG NAMES clang-14 clang REQUIRED DOC "The clang of the driver")
find_program(PLX_AR NAMES ar llvm-ar-14 llvm-ar REQUIRED)

file(GLOB PLX_ARCHIVE_SOURCES CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} clang/program/*.cpp clang/program/*.S)
set(PLX_ARCHIVE ${PLX_LIB}/libplx_clang.a)
set(archive_objects "")
foreach(source IN LISTS PLX_ARCHIVE_SOURCES)
  set(object ${CMAKE_BINARY_DIR}/${source}.o)
  cmake_path(GET object PARENT_PATH folder)
  file(MAKE_DIRECTORY ${folder})
  set(flags ${PLX_TARGET_FLAGS} -fno-pic -O2 -I ${CMAKE_SOURCE_DIR}/include ${PLX_PROGRAM_FLAGS})
  if(source MATCHES "\\.cpp$")
    list(APPEND flags -std=c++17 ${PLX_CXX_FLAGS} ${PLX_WARNINGS})
  endif()
  add_custom_command(
    OUTPUT ${object}
    COMMAND ${PLX_CLANG} ${flags} -MD -MF ${object}.d -MT ${object} -c ${CMAKE_SOURCE_DIR}/${source} -o ${object}
    DEPENDS ${CMAKE_SOURCE_DIR}/${source}
    DEPFILE ${object}.d
    COMMENT "Building ${source} for programs"
    VERBATIM)
  list(APPEND archive_objects ${object})
endforeach()

# The list stands in a file, so that a source that went away makes a new archive.
file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/clang/program/members CONTENT "${archive_objects}\n")
add_custom_command(
  OUTPUT ${PLX_ARCHIVE}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${PLX_LIB}
  COMMAND ${CMAKE_COMMAND} -E rm -f ${PLX_ARCHIVE}
  COMMAND ${PLX_AR} crsD ${PLX_ARCHIVE} ${archive_objects}
  DEPENDS ${archive_objects} ${CMAKE_BINARY_DIR}/clang/program/members
  COMMENT "Linking libplx_clang.a"
  VERBATIM)
add_custom_target(plx_clang ALL DEPENDS ${PLX_ARCHIVE})
