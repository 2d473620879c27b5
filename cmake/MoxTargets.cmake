# A target per room. Sources are found by folder, so that a new file needs no list to be edited.

# Groups of sources that are compiled as one, as scripts/group_sources.py tells them; without it each is compiled
# by itself.
if(MOX_SOURCE_GROUPS AND EXISTS ${MOX_SOURCE_GROUPS})
  set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${MOX_SOURCE_GROUPS})
  include(${MOX_SOURCE_GROUPS})
endif()

# mox_group_sources(TARGET): compiles the sources of a target of the current folder in those groups.
function(mox_group_sources target)
  get_target_property(sources ${target} SOURCES)
  set(grouped FALSE)
  foreach(source IN LISTS sources)
    file(RELATIVE_PATH relative ${PROJECT_SOURCE_DIR} ${source})
    if(DEFINED "mox_group_${relative}")
      set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${mox_group_${relative}})
      set(grouped TRUE)
    endif()
  endforeach()
  if(grouped)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    # A source that is included counts as a header, whose types should not rest on file-local ones.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
  endif()
endfunction()

# mox_seldom_runs(TARGET): compiles a target without optimisation for the sanitizers, where the optimiser takes two
# thirds of the time; for what has no loops that would run as much longer.
function(mox_seldom_runs target)
  if(MOX_SANITIZE)
    target_compile_options(${target} PRIVATE -O0)
  endif()
endfunction()

# mox_library(NAME [SELDOM_RUNS] [BUSY FOLDER...] [FUZZED] [PUBLIC ...] [PRIVATE ...]): the shared library NAME from
# src/ and include/ of the current folder, exported as moxmediaui::NAME. SELDOM_RUNS is as above, for all but the
# folders BUSY. A fuzz target learns its ways through what is FUZZED, or through those folders of it if there are any.
function(mox_library name)
  cmake_parse_arguments(ARG "SELDOM_RUNS;FUZZED" "SOURCE_DIR;INCLUDE_DIR" "BUSY;PUBLIC;PRIVATE" ${ARGN})
  if(NOT ARG_SOURCE_DIR)
    set(ARG_SOURCE_DIR ${CMAKE_CURRENT_SOURCE_DIR}/src)
  endif()
  if(NOT ARG_INCLUDE_DIR)
    set(ARG_INCLUDE_DIR ${CMAKE_CURRENT_SOURCE_DIR}/include)
  endif()
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${ARG_SOURCE_DIR}/*.cpp)
  if(NOT sources)
    set(sources ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
    file(CONFIGURE OUTPUT ${sources} CONTENT "")
  endif()
  set(parts ${name})
  if(MOX_SANITIZE AND ARG_BUSY)
    set(busy ${sources})
    list(JOIN ARG_BUSY "|" folders)
    list(FILTER busy INCLUDE REGEX "^${ARG_SOURCE_DIR}/(${folders})/")
    list(REMOVE_ITEM sources ${busy})
    add_library(${name}_busy OBJECT ${busy})
    list(APPEND parts ${name}_busy)
  endif()
  add_library(${name} SHARED ${sources})
  add_library(moxmediaui::${name} ALIAS ${name})
  foreach(part IN LISTS parts)
    target_include_directories(${part}
      PUBLIC $<BUILD_INTERFACE:${ARG_INCLUDE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
      PRIVATE ${ARG_SOURCE_DIR})
    target_link_libraries(${part} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
    mox_group_sources(${part})
  endforeach()
  if(TARGET ${name}_busy)
    # Objects from elsewhere are linked first, so that what headers define is taken from the optimised ones.
    target_sources(${name} PRIVATE $<TARGET_OBJECTS:${name}_busy>)
  endif()
  if(ARG_SELDOM_RUNS)
    mox_seldom_runs(${name})
  endif()
  if(ARG_FUZZED AND MOX_BUILD_FUZZERS)
    list(GET parts -1 part)
    target_compile_options(${part} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  # A library calls its own copies of what headers define, not those of the program, which may be slow as a test's.
  target_link_options(${name} PRIVATE LINKER:-Bsymbolic-functions)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT MOX_SANITIZE)
    # What a library forgot to link is told now rather than to the client. The sanitizers leave symbols open.
    target_link_options(${name} PRIVATE LINKER:-z,defs)
  endif()
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  set_property(GLOBAL APPEND PROPERTY MOX_LIBRARIES ${name})
  set_property(GLOBAL APPEND PROPERTY MOX_INCLUDE_DIRS ${ARG_INCLUDE_DIR})
endfunction()

# How every test is compiled, OPTIMIZED or not. All in the same way, so that they can share a precompiled header:
# programs that link Qt have to be position independent as libraries are, so all are; those that work results out
# anew, bit by bit, have to round where the library does, so all do.
function(mox_test_flags name optimized)
  target_compile_options(${name} PRIVATE -fPIC -ffp-contract=off)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND MOX_TEST_COMPILER)
    set(launcher ${PROJECT_SOURCE_DIR}/scripts/compile_with ${MOX_TEST_COMPILER} ${CMAKE_CXX_COMPILER_LAUNCHER})
    set_target_properties(${name} PROPERTIES CXX_COMPILER_LAUNCHER "${launcher}")
  elseif(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # g++ 12 misreads inlined std::string concatenations, which tests are full of.
    target_compile_options(${name} PRIVATE -Wno-array-bounds -Wno-restrict -Wno-stringop-overread
      -Wno-stringop-overflow)
  endif()
  if(MOX_SANITIZE)
    # A report names the test, and the lines of what it called. Its own would make compiling an eighth longer.
    target_compile_options(${name} PRIVATE -g0)
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
      target_compile_options(${name} PRIVATE
        -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/tests/support/sanitizers.ignore)
    endif()
  endif()
  if(NOT MOX_TEST_OPTIMIZATION)
    return()
  endif()
  if(optimized)
    # More would take as much longer to compile as it saves when they run.
    set(optimization -O1)
  else()
    separate_arguments(optimization UNIX_COMMAND "${MOX_TEST_OPTIMIZATION}")
  endif()
  target_compile_options(${name} PRIVATE ${optimization})
endfunction()

# mox_test_header(NAME OPTIMIZED): a precompiled header for tests that are, or are not, optimized.
function(mox_test_header name optimized)
  add_library(${name} OBJECT support/PrecompiledHeader.cpp)
  target_link_libraries(${name} PRIVATE GTest::gmock)
  mox_test_flags(${name} ${optimized})
  target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h>
    <algorithm> <any> <array> <atomic> <chrono> <cmath> <cstdint> <filesystem> <fstream> <functional> <map>
    <memory> <mutex> <optional> <set> <sstream> <string> <string_view> <thread> <unordered_map> <utility> <vector>)
endfunction()

# mox_test_sources(TARGET DIRECTORY OPTIMIZED [LIBRARY...]): how the tests below DIRECTORY that are, or are not,
# optimized are compiled, and what with.
function(mox_test_sources target directory optimized)
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/${directory})
  target_link_libraries(${target} PRIVATE ${ARGN} test_folders GTest::gmock)
  mox_test_flags(${target} ${optimized})
  mox_group_sources(${target})
  if(MOX_PRECOMPILED_HEADERS)
    if(optimized)
      target_precompile_headers(${target} REUSE_FROM test_header_optimized)
    else()
      target_precompile_headers(${target} REUSE_FROM test_header)
    endif()
  endif()
endfunction()

# mox_test(NAME DIRECTORY [OPTIMIZED | OPTIMIZED_HELPERS] [PARTS COUNT] [LONGEST REGEX] [EXCLUDE REGEX] [LINK ...]): one
# test program from every *Test.cpp below DIRECTORY; other sources there are its helpers. OPTIMIZED is for those that
# work out much by themselves, OPTIMIZED_HELPERS for those whose helpers do. A program that is not run by suites is run
# in PARTS at once; otherwise the suites that match LONGEST begin. Tests whose path matches EXCLUDE are those of another
# program.
function(mox_test name directory)
  cmake_parse_arguments(ARG "OPTIMIZED;OPTIMIZED_HELPERS" "EXCLUDE;PARTS;LONGEST" "LINK;ENVIRONMENT" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${directory}/*.cpp)
  if(ARG_EXCLUDE)
    list(FILTER sources EXCLUDE REGEX "${ARG_EXCLUDE}")
  endif()
  if(NOT sources)
    return()
  endif()
  list(LENGTH sources cost)
  if(ARG_OPTIMIZED_HELPERS)
    set(helpers ${sources})
    list(FILTER helpers EXCLUDE REGEX "Test\\.cpp$")
    list(REMOVE_ITEM sources ${helpers})
    add_library(${name}_helpers OBJECT ${helpers})
    mox_test_sources(${name}_helpers ${directory} TRUE ${ARG_LINK})
  endif()
  add_executable(${name} ${sources})
  mox_test_sources(${name} ${directory} ${ARG_OPTIMIZED} ${ARG_LINK})
  if(ARG_OPTIMIZED_HELPERS)
    # Objects from elsewhere are linked first, so that what headers define is taken from the optimised ones.
    target_sources(${name} PRIVATE $<TARGET_OBJECTS:${name}_helpers>)
  endif()
  set(environment QT_QPA_PLATFORM=offscreen ${ARG_ENVIRONMENT})
  if(MOX_TESTS_BY_SUITE)
    file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.cmake CONTENT
"include([==[${PROJECT_SOURCE_DIR}/cmake/MoxSuites.cmake]==])
mox_add_suites(${name} [==[$<TARGET_FILE:${name}>]==] [==[${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.txt]==]
  [==[${environment}]==] [==[${ARG_LONGEST}]==])
")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.cmake)
  else()
    # The longest first, so that none of them is left for the end.
    if(ARG_OPTIMIZED OR ARG_OPTIMIZED_HELPERS)
      math(EXPR cost "3 * ${cost}")
    endif()
    if(NOT ARG_PARTS)
      set(ARG_PARTS 1)
    endif()
    foreach(part RANGE 1 ${ARG_PARTS})
      set(suffix "")
      set(shard "")
      if(ARG_PARTS GREATER 1)
        set(suffix .${part})
        math(EXPR index "${part} - 1")
        set(shard GTEST_TOTAL_SHARDS=${ARG_PARTS} GTEST_SHARD_INDEX=${index})
      endif()
      add_test(NAME ${name}${suffix} COMMAND ${name})
      set_tests_properties(${name}${suffix} PROPERTIES
        ENVIRONMENT "${environment};${shard}" TIMEOUT 1200 LABELS ${name} COST ${cost})
    endforeach()
  endif()
endfunction()
