# libplx.so.3: every source of the library's folders, in one shared object that stands on the C library only; and
# libplx.a, the same for static programs.

set(PLX_FOLDERS libC libC/i386 exceptions string containers numbers locale iostream cxxabi cxxabi/i386 unwind)
list(TRANSFORM PLX_FOLDERS APPEND /*.cpp OUTPUT_VARIABLE PLX_GLOBS)
file(GLOB PLX_COMMON_SOURCES CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} ${PLX_GLOBS})
# What depends on how the library is linked to a program.
file(GLOB PLX_SHARED_SOURCES CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} */shared/*.cpp)
file(GLOB PLX_STATIC_SOURCES CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} */archive/*.cpp)
file(GLOB_RECURSE PLX_HEADERS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/include/[a-z]*)
# The 8 KB of exception memory stand behind all other zero-initialised data, so that what a start writes lies on one page.
list(REMOVE_ITEM PLX_COMMON_SOURCES libC/eh_memory.cpp)
list(APPEND PLX_COMMON_SOURCES libC/eh_memory.cpp)

# What is large and does no work of its own, or seldom: blocks are moved by the C library, and names of days are read once
# in a while. Not the deques: small code takes half as long again to insert and erase in the middle.
set_source_files_properties(
  containers/vector_instances.cpp locale/facet_vector.cpp locale/moneypunct.cpp locale/time_get.cpp cxxabi/readable_name.cpp
  PROPERTIES COMPILE_OPTIONS $<$<CONFIG:Release>:-Os>)

# The day of the sources stands for that of the build: the same sources make the same library.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND git -C ${CMAKE_SOURCE_DIR} log -1 --format=%ct
    OUTPUT_VARIABLE seconds OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
  if(failed EQUAL 0 AND seconds)
    set(ENV{SOURCE_DATE_EPOCH} ${seconds})
  endif()
endif()
string(TIMESTAMP PLX_DATE "%Y-%m-%d" UTC)
set_source_files_properties(libC/version.cpp
  PROPERTIES COMPILE_DEFINITIONS "PLX_VERSION=\"${PROJECT_VERSION}\";PLX_DATE=\"${PLX_DATE}\"")

# The processor that everything may count on; whatever needs more asks the processor at run time.
set(PLX_TARGET_FLAGS -m32 -march=i686 -mtune=generic)
# No aliasing rules: the runtime reads frames and records that other compilers' code wrote, through its own types.
set(PLX_CXX_FLAGS -fno-exceptions -fno-strict-aliasing -fvisibility=hidden -fvisibility-inlines-hidden -fno-threadsafe-statics
    -nostdinc++ -ffunction-sections -fdata-sections)
# Exceptions of C++ cross the library's frames by their tables.
set(PLX_FRAME_FLAGS -fasynchronous-unwind-tables)
# Arguments are stored where they go, not pushed: each push has a line in the tables, which are a fifth shorter without,
# and the code is as quick.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  list(APPEND PLX_FRAME_FLAGS -maccumulate-outgoing-args)
else()
  list(APPEND PLX_FRAME_FLAGS -mllvm -no-x86-call-frame-opt)
endif()
# What runs seldom, or does long work, has frame pointers: its tables are half as long again without.
file(GLOB PLX_SELDOM_RUN RELATIVE ${CMAKE_SOURCE_DIR}
  locale/money*.cpp locale/time*.cpp locale/messages*.cpp locale/locale*.cpp locale/imp.cpp locale/collate.cpp locale/codecvt.cpp
  locale/num_get.cpp locale/num_put*.cpp exceptions/*.cpp iostream/strstream*.cpp iostream/standard_streams.cpp iostream/filebuf_open.cpp
  iostream/ios_base.cpp iostream/*position*.cpp iostream/file_streams.cpp iostream/string_streams.cpp locale/facet*.cpp
  locale/numpunct.cpp locale/ctype.cpp libC/array.cpp
  iostream/extract_long_long.cpp libC/needed_destruction.cpp libC/uncaught_report.cpp containers/*_instances.cpp cxxabi/readable_name.cpp
  unwind/frame_*.cpp unwind/expression.cpp iostream/basic_ios.cpp iostream/failure.cpp iostream/stringbuf_operations.cpp
  iostream/istream.cpp iostream/ostream.cpp locale/timepunct.cpp cxxabi/abi_type_info.cpp)
set_property(SOURCE ${PLX_SELDOM_RUN} APPEND PROPERTY COMPILE_OPTIONS -fno-omit-frame-pointer)
set(PLX_WARNINGS -Wall -Wextra -Werror -Wundef -Wvla -Wpointer-arith -Wnon-virtual-dtor)

# plx_compile(TARGET OPTIONS...): how every form of the library is compiled.
function(plx_compile target)
  target_compile_features(${target} PRIVATE cxx_std_17)
  target_include_directories(${target} PRIVATE include)
  target_compile_options(${target} PRIVATE ${PLX_TARGET_FLAGS} ${PLX_CXX_FLAGS} ${PLX_FRAME_FLAGS} ${PLX_WARNINGS} ${ARGN})
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # Each form of operator delete has a file of its own, so that programs can replace just one.
    target_compile_options(${target} PRIVATE -Wno-sized-deallocation)
  endif()
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

# Position-independent, for the shared object and for static programs that are loaded anywhere.
add_library(plx_common OBJECT ${PLX_COMMON_SOURCES})
plx_compile(plx_common ${PLX_PROGRAM_FLAGS})
set_target_properties(plx_common PROPERTIES POSITION_INDEPENDENT_CODE ON)
add_library(plx_loaded OBJECT ${PLX_SHARED_SOURCES})
plx_compile(plx_loaded ${PLX_PROGRAM_FLAGS})
set_target_properties(plx_loaded PROPERTIES POSITION_INDEPENDENT_CODE ON)
add_library(plx SHARED $<TARGET_OBJECTS:plx_loaded> $<TARGET_OBJECTS:plx_common>)

# Linked as C: the compiler then adds the C library and nothing of the host's C++ library.
set(CMAKE_CXX_IMPLICIT_LINK_LIBRARIES "")
set_target_properties(plx PROPERTIES
  LINKER_LANGUAGE C
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  LIBRARY_OUTPUT_DIRECTORY ${PLX_LIB})
# References inside the library go straight to their target, except to the replaceable operators new and delete, to
# functions that are compared, and to data of which programs for a fixed address hold copies that count. Code and
# constants share pages: two mappings fewer at every start.
target_link_options(plx PRIVATE -m32 -static-libgcc ${PLX_PROGRAM_FLAGS}
  LINKER:-O1,--hash-style=gnu,--as-needed,--gc-sections,-z,text,-z,relro,-z,noexecstack,-z,noseparate-code
  LINKER:--dynamic-list-cpp-new,--dynamic-list=${CMAKE_SOURCE_DIR}/cmake/preemptible.list
  LINKER:--version-script=${CMAKE_SOURCE_DIR}/cmake/version.map,-T,${CMAKE_SOURCE_DIR}/cmake/start.ld)
set_target_properties(plx PROPERTIES LINK_DEPENDS
  "${CMAKE_SOURCE_DIR}/cmake/preemptible.list;${CMAKE_SOURCE_DIR}/cmake/start.ld;${CMAKE_SOURCE_DIR}/cmake/version.map")
# What -lplx finds: the library and what each program of C++ needs of it beside.
add_custom_command(TARGET plx POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E rm -f ${PLX_LIB}/libplx.so
  COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/driver/libplx.so.in ${PLX_LIB}/libplx.so
  VERBATIM)
if(NOT PLX_SANITIZE)
  # The sanitizer's own entry points come from the program.
  target_link_options(plx PRIVATE LINKER:-z,defs)
endif()

# Compiled once more and not position-independent, as the programs that take it in are: an eighth quicker for exceptions and
# some percent for the rest, where every register counts. Not combined with sanitizers, which need shared libraries.
if(NOT PLX_SANITIZE)
  add_library(plx_static STATIC ${PLX_COMMON_SOURCES} ${PLX_STATIC_SOURCES})
  plx_compile(plx_static -fno-pic -fno-pie)
  set_target_properties(plx_static PROPERTIES
    OUTPUT_NAME plx POSITION_INDEPENDENT_CODE OFF ARCHIVE_OUTPUT_DIRECTORY ${PLX_LIB})
  add_library(plx_pie STATIC $<TARGET_OBJECTS:plx_common> ${PLX_STATIC_SOURCES})
  plx_compile(plx_pie)
  set_target_properties(plx_pie PROPERTIES POSITION_INDEPENDENT_CODE ON ARCHIVE_OUTPUT_DIRECTORY ${PLX_LIB})
endif()
