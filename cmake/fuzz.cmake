# Fuzzers: each tests/fuzz/<name>.cpp defines LLVMFuzzerTestOneInput and aborts when something is wrong.
#
#   fuzz/<name>        a test: the target with a main that runs it on the files of tests/fuzz/corpus/<name>
#   fuzz.<name>        what ./dev fuzz builds: fuzz/<name> in the build tree, with libFuzzer
#
# libFuzzer's own run-time library stands on the host's C++ library, so ours must not be seen by it: target and library,
# instrumented, become one shared object whose only exported name is the target's entry. The target is compiled as the
# library is: an exception that reaches it ends the process, and no local of it is destroyed on the way.

file(GLOB fuzz_files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/fuzz/*.cpp)
set(PLX_FUZZ_MAP ${CMAKE_SOURCE_DIR}/tests/fuzz/exported.map)
set(PLX_FUZZ_FLAGS -m32 -g -fsanitize=address,undefined -fno-sanitize=vptr,function -fno-sanitize-recover=all)

if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
  add_library(plx_fuzzed OBJECT EXCLUDE_FROM_ALL ${PLX_COMMON_SOURCES} ${PLX_SHARED_SOURCES})
  target_compile_features(plx_fuzzed PRIVATE cxx_std_17)
  target_include_directories(plx_fuzzed PRIVATE include)
  target_compile_options(plx_fuzzed PRIVATE ${PLX_TARGET_FLAGS} ${PLX_CXX_FLAGS} ${PLX_FUZZ_FLAGS}
                         -fsanitize=fuzzer-no-link -O1 -fPIC)
endif()

foreach(file IN LISTS fuzz_files)
  cmake_path(GET file STEM name)
  plx_program_tests(fuzz/${name} plx-c++ "${file};${CMAKE_SOURCE_DIR}/tests/fuzz/driver/replay.cpp" "${PLX_HEADERS}")
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    add_library(fuzz_${name} SHARED EXCLUDE_FROM_ALL ${file} $<TARGET_OBJECTS:plx_fuzzed>)
    target_compile_features(fuzz_${name} PRIVATE cxx_std_17)
    target_include_directories(fuzz_${name} PRIVATE include)
    target_compile_options(fuzz_${name} PRIVATE ${PLX_TARGET_FLAGS} ${PLX_CXX_FLAGS} ${PLX_FUZZ_FLAGS}
                           -fvisibility=default -fsanitize=fuzzer-no-link -O1)
    set_target_properties(fuzz_${name} PROPERTIES
      LINKER_LANGUAGE C CXX_EXTENSIONS OFF LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/fuzz LINK_DEPENDS ${PLX_FUZZ_MAP})
    target_link_options(fuzz_${name} PRIVATE ${PLX_FUZZ_FLAGS} LINKER:--version-script=${PLX_FUZZ_MAP})
    add_custom_command(
      OUTPUT ${CMAKE_BINARY_DIR}/fuzz/${name}
      COMMAND ${CMAKE_CXX_COMPILER} ${PLX_FUZZ_FLAGS} -fsanitize=fuzzer $<TARGET_FILE:fuzz_${name}>
              -Wl,-rpath,${CMAKE_BINARY_DIR}/fuzz -o ${CMAKE_BINARY_DIR}/fuzz/${name}
      DEPENDS fuzz_${name}
      VERBATIM)
    add_custom_target(fuzz.${name} DEPENDS ${CMAKE_BINARY_DIR}/fuzz/${name})
  endif()
endforeach()
