# The kinds of target this project is made of, one function each:
#
#   fdo_library(NAME SOURCES ... [DEPENDS ...])      a subsystem, quillon_NAME, a static library that
#                                                    libquillon is assembled from
#   fdo_test(NAME SOURCES ... [DEPENDS ...] [LABELS ...])
#   fdo_benchmark(NAME SOURCES ... [DEPENDS ...])
#   fdo_fuzz_target(NAME SOURCES ... [DEPENDS ...])  with its corpus in fuzz/corpus/NAME
#
# Tests, benchmarks and fuzz targets link the subsystems themselves, not the shared library, so that
# internals are reached without being exported.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(WIN32)
  # quillon.dll, whichever compiler makes it.
  set(CMAKE_SHARED_LIBRARY_PREFIX "")
  set(CMAKE_SHARED_MODULE_PREFIX "")
endif()

# The variable with the folders where the loader of a program looks for libraries.
if(NOT WIN32)
  set(QUILLON_LOADER_PATH LD_LIBRARY_PATH)
elseif(CMAKE_CROSSCOMPILING)
  set(QUILLON_LOADER_PATH QUILLON_WINE_PATH)  # of scripts/run-under-wine
else()
  set(QUILLON_LOADER_PATH PATH)
endif()

if(NOT CMAKE_RUNTIME_OUTPUT_DIRECTORY)
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
  set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
endif()

add_library(quillon_options INTERFACE)
target_include_directories(quillon_options INTERFACE "${PROJECT_SOURCE_DIR}")
if(MSVC)
  target_compile_options(quillon_options INTERFACE /W4 /utf-8)
else()
  # FDO's published interface has results like `const double`, which overriding operations must repeat.
  target_compile_options(quillon_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wno-ignored-qualifiers)
  # Optimising, g++ 12 sees overlapping copies in "text" + std::string() (its bug 105651).
  target_compile_options(quillon_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
endif()
if(QUILLON_WARNINGS_AS_ERRORS)
  target_compile_options(quillon_options INTERFACE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
endif()

if(QUILLON_SANITIZE)
  add_compile_options(-fsanitize=${QUILLON_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUILLON_SANITIZE})
endif()
if(QUILLON_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()

# Where a subsystem's headers are found, and that its objects are linked, not imported.
add_library(quillon_headers INTERFACE)
target_include_directories(quillon_headers INTERFACE "${PROJECT_SOURCE_DIR}/include")
target_compile_definitions(quillon_headers INTERFACE QUILLON_STATIC)

# What the presets that look for one kind of fault build: the tests that use threads, the fuzz targets.
add_custom_target(thread_tests)
add_custom_target(fuzz_targets)

function(fdo_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
  add_library(quillon_${name} STATIC ${arg_SOURCES})
  target_link_libraries(quillon_${name} PRIVATE quillon_options PUBLIC quillon_headers ${arg_DEPENDS})
  target_compile_definitions(quillon_${name} PRIVATE QUILLON_BUILDING)
endfunction()

# Presets which only run the tests parse the largest headers once. The others show that every file includes what
# it uses. From such a header g++ 12 warns of what is wrong in the standard library's text alone, so that where
# warnings are errors only the tests, which are not optimised there, take one.
function(fdo_precompile target)
  if(QUILLON_PRECOMPILE AND NOT QUILLON_WARNINGS_AS_ERRORS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()
if(QUILLON_BUILD_TESTS AND QUILLON_PRECOMPILE)
  set(source "${CMAKE_CURRENT_BINARY_DIR}/test_headers.cc")
  file(GENERATE OUTPUT "${source}" CONTENT "int main() { return 0; }\n")
  add_executable(test_headers EXCLUDE_FROM_ALL ${source})
  target_link_libraries(test_headers PRIVATE quillon_options GTest::gmock GTest::gtest_main)
  target_compile_options(test_headers PRIVATE ${QUILLON_TEST_OPTIONS})
  target_precompile_headers(test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
endif()

function(fdo_test name)
  if(NOT QUILLON_BUILD_TESTS)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS;LABELS")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE quillon_options ${arg_DEPENDS} GTest::gmock GTest::gtest_main)
  target_compile_options(${name} PRIVATE ${QUILLON_TEST_OPTIONS})
  if(QUILLON_PRECOMPILE)
    target_precompile_headers(${name} REUSE_FROM test_headers)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}" TIMEOUT 1200)
  if("threads" IN_LIST arg_LABELS)
    add_dependencies(thread_tests ${name})
  endif()
endfunction()

# Links a test with the recording provider, which testing/ defines, and gives it a registry where that is the
# only provider.
function(use_recording_provider test)
  if(NOT TARGET ${test})
    return()
  endif()
  target_link_libraries(${test} PRIVATE quillon_recording_provider)
  set_tests_properties(${test} PROPERTIES
    ENVIRONMENT "FDO_PROVIDERS_FOLDER=${PROJECT_BINARY_DIR}/recording_registry")
endfunction()

# Tests that are all about files of GDAL. They link quillon_ogr_test_files.
function(skip_without_gdal)
  foreach(test IN LISTS ARGN)
    if(TARGET ${test})
      target_sources(${test} PRIVATE "${PROJECT_SOURCE_DIR}/ogr_backend/skip_without_gdal.cc")
      set_tests_properties(${test} PROPERTIES SKIP_REGULAR_EXPRESSION "GDAL is not there, and need not be")
    endif()
  endforeach()
endfunction()

# Under the tests a benchmark runs once with the shortest of times, so that none rots.
function(fdo_benchmark name)
  if(NOT QUILLON_BUILD_BENCHMARKS)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE quillon_options ${arg_DEPENDS} benchmark::benchmark_main)
  if(QUILLON_BUILD_TESTS)
    add_test(NAME ${name} COMMAND ${name} --benchmark_min_time=0.001)
    set_tests_properties(${name} PROPERTIES LABELS benchmark TIMEOUT 1200)
  endif()
endfunction()

# A fuzz target defines LLVMFuzzerTestOneInput. Under the tests its corpus runs as plain input, with
# any compiler; with QUILLON_BUILD_FUZZERS it is a libFuzzer program.
function(fdo_fuzz_target name)
  if(NOT QUILLON_BUILD_TESTS)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS")
  set(corpus "${PROJECT_SOURCE_DIR}/fuzz/corpus/${name}")
  if(QUILLON_BUILD_FUZZERS)
    add_executable(${name} ${arg_SOURCES})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    # What libFuzzer finds goes into the first folder, and the corpus stays what is committed.
    set(found "${CMAKE_CURRENT_BINARY_DIR}/${name}_found")
    file(MAKE_DIRECTORY "${found}")
    add_test(NAME ${name} COMMAND ${name} -runs=20000 -max_total_time=20 -seed=1 "${found}" "${corpus}")
  else()
    add_executable(${name} ${arg_SOURCES} "${PROJECT_SOURCE_DIR}/fuzz/run_corpus.cc")
    add_test(NAME ${name} COMMAND ${name} "${corpus}")
  endif()
  target_link_libraries(${name} PRIVATE quillon_options ${arg_DEPENDS})
  set_tests_properties(${name} PROPERTIES LABELS fuzz TIMEOUT 1200)
  add_dependencies(fuzz_targets ${name})
endfunction()

# Compiles each header alone, as a program in the oldest standard that the public headers allow.
function(fdo_check_headers target)
  if(NOT QUILLON_CHECK_HEADERS)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "BASE" "HEADERS")
  set(sources)
  foreach(header IN LISTS arg_HEADERS)
    string(MAKE_C_IDENTIFIER "${header}" identifier)
    set(source "${CMAKE_CURRENT_BINARY_DIR}/header_checks/${target}/${identifier}.cc")
    file(GENERATE OUTPUT "${source}" CONTENT "#include <${header}>\n#include <${header}>\n")
    list(APPEND sources "${source}")
  endforeach()
  add_library(${target}_header_checks OBJECT ${sources})
  target_link_libraries(${target}_header_checks PRIVATE quillon_options ${target})
  set_target_properties(${target}_header_checks PROPERTIES CXX_STANDARD 17)
endfunction()
