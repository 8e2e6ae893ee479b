# Tests: tests/<folder>/<name>.cpp is a program built by plx-c++, .c one built by plx-cc, .sh a script; each folder
# tests/mixed/<name>/ is one program of C and C++ files. CTest knows them as <folder>/<name>.
#
# A line `test-variants: <flags> | <flags>` at the top of a file makes one test per set of flags, <folder>/<name>:<flags>.
# All sets are tested with the library built by clang++; with the others too where the compiler's level matters, which is
# where exceptions pass, and elsewhere the first set alone.
# tests/<folder>/peer/<name>.cpp must print the same with plx and, by the same compiler, with the library of the host, in
# each variant: see tests/peer.
# Programs are built with the rest of the tree, so that a test runs again at once when nothing changed.

# Programs are built by the compiler that the library was built by: both are tried, in the presets.
set(PLX_TEST_C_COMPILER ${CMAKE_C_COMPILER})
set(PLX_TEST_CXX_COMPILER ${CMAKE_CXX_COMPILER})

set(PLX_TEST_ENVIRONMENT
  PLX_PREFIX=${CMAKE_BINARY_DIR} PLX_SOURCE=${CMAKE_SOURCE_DIR} PLX_SANITIZE=${PLX_SANITIZE}
  PLX_CC=${PLX_TEST_C_COMPILER} PLX_CXX=${PLX_TEST_CXX_COMPILER}
  ASAN_OPTIONS=allocator_may_return_null=1:detect_stack_use_after_return=0:print_legend=0
  UBSAN_OPTIONS=print_stacktrace=1
  LC_ALL=C)

# What does not depend on how the library was built is tested with one build of it.
set(PLX_TEST_ONCE OFF)
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang AND NOT PLX_SANITIZE)
  set(PLX_TEST_ONCE ON)
endif()
set(PLX_LEVELS_MATTER "/tests/(cxxabi|exceptions|generated|mixed|unwind)/")

# Every program is built by `tests`, every program and script has its own target too.
add_custom_target(tests ALL)
set(PLX_TEST_BASE plx ${PLX_ARCHIVE} ${PLX_DRIVERS})

# plx_variants(OUT FILE...): the sets of flags that the files ask for.
function(plx_variants out)
  foreach(file IN LISTS ARGN)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(STRINGS ${file} line LIMIT_INPUT 2000 LIMIT_COUNT 1 REGEX "test-variants:")
    if(line)
      string(REGEX REPLACE ".*test-variants:(.*)" "\\1" line "${line}")
      string(REGEX REPLACE "\\*/.*" "" line "${line}")
      string(REPLACE "|" ";" line "${line}")
      list(TRANSFORM line STRIP)
      if(PLX_SANITIZE)
        list(FILTER line EXCLUDE REGEX "(^| )-static( |$)")
      endif()
      if(NOT PLX_TEST_ONCE AND NOT file MATCHES "${PLX_LEVELS_MATTER}")
        list(GET line 0 line)
      endif()
      set(${out} "${line}" PARENT_SCOPE)
      return()
    endif()
  endforeach()
  set(${out} -O1 PARENT_SCOPE)
endfunction()

function(plx_add_test name)
  add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  set_tests_properties(${name} PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 300 ENVIRONMENT "${PLX_TEST_ENVIRONMENT}")
endfunction()

# plx_program_tests(NAME DRIVER SOURCES [headers that are not in a dependency file]): a test for each variant.
function(plx_program_tests name driver sources headers)
  plx_variants(variants ${sources})
  list(LENGTH variants count)
  foreach(flags IN LISTS variants)
    set(variant ${name})
    if(count GREATER 1)
      string(REGEX REPLACE "(^| )-" "\\1" label "${flags}")
      string(REGEX REPLACE "[^A-Za-z0-9+=.]+" "_" label "${label}")
      set(variant ${name}:${label})
    endif()
    string(REPLACE ":" "." program ${CMAKE_BINARY_DIR}/tests/${variant})
    string(REGEX REPLACE "[^A-Za-z0-9+_.-]" "." target test.${variant})
    cmake_path(GET program PARENT_PATH folder)
    file(MAKE_DIRECTORY ${folder})
    separate_arguments(flags UNIX_COMMAND "${flags}")
    set(archive "")
    if(-static IN_LIST flags)
      set(archive plx_static)
    endif()
    # One dependency file holds one unit only.
    list(LENGTH sources units)
    set(depfile "")
    set(depflags "")
    if(units EQUAL 1)
      set(depfile DEPFILE ${program}.d)
      set(depflags -MD -MF ${program}.d -MT ${program})
    endif()
    add_custom_command(
      OUTPUT ${program}
      COMMAND ${CMAKE_COMMAND} -E env PLX_CC=${PLX_TEST_C_COMPILER} PLX_CXX=${PLX_TEST_CXX_COMPILER}
              ${PLX_BIN}/${driver} ${flags} -g -Wall -Wextra -I ${CMAKE_SOURCE_DIR}/tests ${sources} -o ${program}
              ${depflags}
      DEPENDS ${PLX_TEST_BASE} ${archive} ${sources} ${headers}
      ${depfile}
      COMMENT "Building test ${variant}"
      VERBATIM)
    add_custom_target(${target} DEPENDS ${program})
    add_dependencies(tests ${target})
    plx_add_test(${variant} ${program})
    set_property(GLOBAL APPEND PROPERTY PLX_TEST_TARGETS "${variant} ${target}")
  endforeach()
endfunction()

file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
file(GLOB test_files CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/tests tests/*/*.cpp tests/*/*.c tests/*/*.sh)
list(FILTER test_files EXCLUDE REGEX "^(fuzz|mutants)/")
if(NOT PLX_TEST_ONCE)
  list(FILTER test_files EXCLUDE REGEX "^(documents|gdb|headers|install)/.*\\.sh$|^driver/(places|setup)\\.sh$")
endif()
foreach(file IN LISTS test_files)
  string(REGEX REPLACE "\\.[a-z]+$" "" name ${file})
  set(source ${CMAKE_SOURCE_DIR}/tests/${file})
  if(file MATCHES "\\.sh$")
    plx_add_test(${name} ${source})
  elseif(file MATCHES "\\.cpp$")
    plx_program_tests(${name} plx-c++ "${source}" "")
  else()
    plx_program_tests(${name} plx-cc "${source}" "")
  endif()
endforeach()

file(GLOB mixed_folders CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/tests LIST_DIRECTORIES true tests/mixed/*)
foreach(folder IN LISTS mixed_folders)
  file(GLOB sources CONFIGURE_DEPENDS tests/${folder}/*.c tests/${folder}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS tests/${folder}/*.h)
  if(sources)
    plx_program_tests(${folder} plx-c++ "${sources}" "${headers};${PLX_HEADERS};${CMAKE_SOURCE_DIR}/tests/harness.h")
  endif()
endforeach()

file(GLOB peer_files CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/tests tests/*/peer/*.cpp)
foreach(file IN LISTS peer_files)
  cmake_path(REMOVE_EXTENSION file OUTPUT_VARIABLE name)
  set(variants all)
  if(NOT PLX_TEST_ONCE AND NOT "/tests/${file}" MATCHES "${PLX_LEVELS_MATTER}")
    set(variants first)
  endif()
  plx_add_test(${name} ${CMAKE_SOURCE_DIR}/tests/peer ${CMAKE_SOURCE_DIR}/tests/${file} ${variants})
endforeach()

include(cmake/fuzz.cmake)

# One test and its build target in each line, for ./dev test NAME.
get_property(test_targets GLOBAL PROPERTY PLX_TEST_TARGETS)
list(JOIN test_targets "\n" test_targets)
file(WRITE ${CMAKE_BINARY_DIR}/tests/targets "${test_targets}\n")

if(PLX_TEST_ONCE)
  # Each public header, and C's own in our include path.
  file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/include include/[a-z]* include/plx/*.h
       include/plx/*/*.h)
  list(FILTER headers EXCLUDE REGEX "^(bits|plx)$")
  list(APPEND headers assert.h ctype.h errno.h float.h iso646.h limits.h locale.h signal.h stdarg.h stddef.h stdio.h
       string.h time.h wctype.h)
  foreach(header IN LISTS headers)
    set(refused "")
    if(EXISTS ${CMAKE_SOURCE_DIR}/include/${header})
      file(STRINGS include/${header} refused LIMIT_COUNT 1 REGEX "^#error \"plx has")
    endif()
    if(refused)
      continue() # headers/refused looks at them
    endif()
    plx_add_test(headers/${header} ${CMAKE_SOURCE_DIR}/tests/headers/check_header ${header})
  endforeach()
endif()
