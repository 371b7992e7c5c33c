# The functions that every folder's CMakeLists.txt is made of. They glob with CONFIGURE_DEPENDS, so a new
# source file needs no edit here; a folder that holds no source yet becomes an interface library, so that
# those above it can name it already.
include_guard(GLOBAL)
include(CTest)

option(PLINTH_PROGRAMS "Build the programs" ON)
option(PLINTH_BENCHMARKS "Build the benchmarks where Google Benchmark and SQLite are installed" OFF)
option(PLINTH_FUZZ "Build the fuzz targets (clang only)" OFF)
set(PLINTH_STUB "${PROJECT_SOURCE_DIR}/build/windows/programs/engine/engine.exe" CACHE FILEPATH
    "The engine.exe that the native plinth tool carries; may be missing")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_SCAN_FOR_MODULES OFF)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_DEBUG "-Og -g1")
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
find_program(PLINTH_CCACHE ccache)
if(PLINTH_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without these ccache passes over whatever uses a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
      ${PLINTH_CCACHE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
  else()
    add_compile_options(-fpch-preprocess)
  endif()
endif()

# One include root: a folder on the path would let our Locale.h stand in for <locale.h> on file systems
# that ignore case.
include_directories(${PROJECT_SOURCE_DIR})
set(plinthWarnings -Wall -Wextra -Werror=return-type)
# Tests run once, so that they are compiled for speed of compiling; what they test has its own level.
set(plinthTestOptions ${plinthWarnings} -Og)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  set(plinthTestOptions ${plinthWarnings} -O0 -fno-sanitize=fuzzer-no-link,undefined)
endif()
if(WIN32)
  # Static and without a time stamp: no DLL beyond Windows' own, and equal sources give equal bytes.
  add_compile_options(-ffunction-sections -fdata-sections)
  add_link_options(-static -s -Wl,--no-insert-timestamp -Wl,--gc-sections)
  enable_language(RC)
endif()

# plinth_precompile(<name> OPTIONS <option>... HEADERS <header>... [LIBS <target>...]): what many sources include,
# compiled once; targets take it by REUSE_FROM. Sources still name all that they use: headers are checked alone,
# and the release preset does without.
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/Precompiled.cpp CONTENT "")
function(plinth_precompile name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "OPTIONS;HEADERS;LIBS")
  add_library(${name} OBJECT ${PROJECT_BINARY_DIR}/Precompiled.cpp)
  target_compile_options(${name} PRIVATE ${arg_OPTIONS})
  target_link_libraries(${name} PRIVATE ${arg_LIBS})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()
set(plinthHeaders <algorithm> <array> <cmath> <cstring> <functional> <map> <memory> <optional> <span> <string>
    <string_view> <vector>)
plinth_precompile(plinth_precompiled OPTIONS ${plinthWarnings} HEADERS ${plinthHeaders})
if(WIN32)
  plinth_precompile(plinth_precompiled_win32 OPTIONS ${plinthWarnings}
                    HEADERS ${plinthHeaders} ${PROJECT_SOURCE_DIR}/platform/win32/WindowsApi.h <commctrl.h>)
endif()

# Target plinth_<name> from sources and headers. verify: whether each header is also compiled alone by the
# target all_verify_interface_header_sets.
function(plinth_add_library name verify sources headers depends libs)
  list(TRANSFORM depends PREPEND plinth_)
  if(sources)
    add_library(plinth_${name} STATIC ${sources})
    target_compile_options(plinth_${name} PRIVATE ${plinthWarnings})
    set(precompiled plinth_precompiled)
    if(name MATCHES "_win32$")
      set(precompiled plinth_precompiled_win32)
    endif()
    target_precompile_headers(plinth_${name} REUSE_FROM ${precompiled})
    set(scope PUBLIC)
  else()
    add_library(plinth_${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_link_libraries(plinth_${name} ${scope} ${depends} ${libs})
  if(headers)
    target_sources(plinth_${name} ${scope} FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}
                   FILES ${headers})
    set_target_properties(plinth_${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ${verify})
  endif()
endfunction()

# plinth_library(<name> FOLDER <dir> [DEPENDS <name>...]): target plinth_<name> from <dir>/*.cpp.
function(plinth_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "FOLDER" "DEPENDS;LIBS")
  set(dir ${PROJECT_SOURCE_DIR}/${arg_FOLDER})
  file(GLOB sources CONFIGURE_DEPENDS ${dir}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${dir}/*.h)
  set(verify ON)
  if(WIN32 AND NOT arg_FOLDER MATCHES "/win32$")
    set(verify OFF)  # the native build has done it for the portable headers
  endif()
  plinth_add_library(${name} ${verify} "${sources}" "${headers}" "${arg_DEPENDS}" "${arg_LIBS}")
endfunction()

# plinth_win32_library(<name> FOLDER <dir> [DEPENDS <name>...] [LIBS <system library>...]): Windows only.
function(plinth_win32_library)
  if(WIN32)
    plinth_library(${ARGN})
  endif()
endfunction()

# plinth_program(<exe> [GUI] FOLDER <dir> [DEPENDS <name>...] [EMBEDS <file>...])
# main.cpp is the program; the folder's other sources, with those of its win32/ or posix/ part, are the
# library plinth_<exe>_parts, so that tests can link them. On Windows all *.rc belong to the program; a
# resource script finds files by their path from the source root or the build's engine folder. EMBEDS names
# what the scripts include, since no tool tells.
function(plinth_program exe)
  cmake_parse_arguments(PARSE_ARGV 1 arg "GUI" "FOLDER" "DEPENDS;EMBEDS")
  set(dir ${PROJECT_SOURCE_DIR}/${arg_FOLDER})
  if(WIN32)
    set(system win32)
  else()
    set(system posix)
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${dir}/*.cpp ${dir}/${system}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${dir}/*.h ${dir}/${system}/*.h)
  file(GLOB main CONFIGURE_DEPENDS ${dir}/main.cpp ${dir}/${system}/main.cpp)
  if(main)
    list(REMOVE_ITEM sources ${main})
  endif()
  plinth_add_library(${exe}_parts ON "${sources}" "${headers}" "${arg_DEPENDS}" "")
  if(NOT main)
    return()
  endif()
  add_executable(${exe} ${main})
  target_compile_options(${exe} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:${plinthWarnings}>)
  target_link_libraries(${exe} PRIVATE plinth_${exe}_parts)
  set_target_properties(${exe} PROPERTIES WIN32_EXECUTABLE ${arg_GUI})
  if(WIN32)
    file(GLOB scripts CONFIGURE_DEPENDS ${dir}/*.rc)
    file(GLOB embedded CONFIGURE_DEPENDS ${dir}/*.manifest ${dir}/*.ico ${PROJECT_SOURCE_DIR}/Icons/*.ico)
    target_sources(${exe} PRIVATE ${scripts})
    target_include_directories(${exe} PRIVATE ${PROJECT_BINARY_DIR}/programs/engine)
    set_source_files_properties(${scripts} PROPERTIES OBJECT_DEPENDS "${embedded};${arg_EMBEDS}"
                                COMPILE_OPTIONS "-c;65001")
  endif()
endfunction()

# plinth_brings(<exe> <folder>...): copies folders of the source root beside a program that looks for them
# there, so that it also runs from the build folder.
function(plinth_brings exe)
  if(NOT TARGET ${exe})
    return()
  endif()
  foreach(part ${ARGN})
    if(IS_DIRECTORY ${PROJECT_SOURCE_DIR}/${part})
      file(GLOB files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${part}/*)
      set_property(TARGET ${exe} APPEND PROPERTY LINK_DEPENDS ${files})  # so that a changed file is copied too
      add_custom_command(TARGET ${exe} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E copy_directory ${PROJECT_SOURCE_DIR}/${part}
                $<TARGET_FILE_DIR:${exe}>/${part})
    endif()
  endforeach()
endfunction()

# GoogleTest as installed, or for the Windows cross build from the sources that Debian installs beside it.
macro(plinth_find_gtest)
  find_package(GTest QUIET)
  if(NOT TARGET GTest::gtest_main)
    set(INSTALL_GTEST OFF)
    set(BUILD_GMOCK OFF)
    add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/gtest EXCLUDE_FROM_ALL)
    foreach(part gtest gtest_main)
      target_compile_options(${part} PRIVATE -Og)
      if(NOT TARGET GTest::${part})
        add_library(GTest::${part} ALIAS ${part})
      endif()
    endforeach()
  endif()
  include(GoogleTest)
  plinth_precompile(plinth_precompiled_tests OPTIONS ${plinthTestOptions} LIBS GTest::gtest
                    HEADERS <gtest/gtest.h> ${plinthHeaders})
  set(PLINTH_TEST_DATA "${PROJECT_SOURCE_DIR}/tests/data")
  if(WIN32 AND CMAKE_CROSSCOMPILING)
    set(PLINTH_TEST_DATA "Z:${PLINTH_TEST_DATA}")  # where Wine shows the file system of the host
  endif()
endmacro()

# The test program of a folder from tests/<folder>/*.cpp, without telling ctest.
# Sets resultVar to the target's name, or to nothing while the folder holds no test.
function(plinth_test_program folder resultVar)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "DEPENDS")
  string(REPLACE "/" "_" target ${folder}_tests)
  file(GLOB tests CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*_test.cpp)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*.cpp)
  if(NOT tests)
    set(${resultVar} "" PARENT_SCOPE)
    return()
  endif()
  list(TRANSFORM arg_DEPENDS PREPEND plinth_)
  add_executable(${target} ${sources})
  target_compile_options(${target} PRIVATE ${plinthTestOptions})
  file(GLOB fixtures CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*Fixture.h)
  if(fixtures)
    target_precompile_headers(${target} PRIVATE <gtest/gtest.h> ${plinthHeaders} ${fixtures})
  else()
    target_precompile_headers(${target} REUSE_FROM plinth_precompiled_tests)
  endif()
  target_compile_definitions(${target} PRIVATE PLINTH_TEST_DATA="${PLINTH_TEST_DATA}")
  target_link_libraries(${target} PRIVATE ${arg_DEPENDS} plinth_fakes GTest::gtest_main)
  set(${resultVar} ${target} PARENT_SCOPE)
endfunction()

# plinth_tests(<folder> [DEPENDS <name>...]): program <folder>_tests. Natively every case is a test of ctest;
# for Windows the program is one, since each start under Wine costs more than most cases.
function(plinth_tests folder)
  plinth_test_program(${folder} target ${ARGN})
  if(NOT target)
    return()
  endif()
  if(WIN32)
    add_test(NAME ${target} COMMAND ${target} --gtest_brief=1)
    set_tests_properties(${target} PROPERTIES TIMEOUT 300)
  else()
    gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
  endif()
endfunction()
