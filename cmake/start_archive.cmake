# libplx_start.a: what is linked into every program and every shared object of C++, and in part into shared objects of
# generated C, beside the library; so it is position-independent. One object per member.

file(GLOB PLX_START_SOURCES CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} */program/*.cpp)
add_library(plx_start STATIC ${PLX_START_SOURCES})
plx_compile(plx_start ${PLX_PROGRAM_FLAGS} -O2)
set_target_properties(plx_start PROPERTIES POSITION_INDEPENDENT_CODE ON ARCHIVE_OUTPUT_DIRECTORY ${PLX_LIB})
set(PLX_ARCHIVE ${PLX_LIB}/libplx_start.a)
