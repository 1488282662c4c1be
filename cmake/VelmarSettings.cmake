# Language, warnings, output folders and sanitizers, for every target of the tree.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/archive)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)

set(VELMAR_SANITIZE "" CACHE STRING "address (with undefined), thread, or empty")
if(VELMAR_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # The sanitizers' code hides from this warning that the standard library's regular expressions are initialized.
  add_compile_options(-Wno-maybe-uninitialized)
endif()
if(VELMAR_SANITIZE STREQUAL "address")
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
elseif(VELMAR_SANITIZE STREQUAL "thread")
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()

# velmar_module(NAME [LINK libraries...]): the objects of all sources in the calling folder, to be linked into a library
# or a test. A source that is named *_ruby.cpp is left to velmar_ruby_module.
function(velmar_module name)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "_ruby\\.cpp$")
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_LINK})
endfunction()

# velmar_test(NAME FOLDER folder [LINK libraries...]): one GoogleTest program of all *_test.cpp under `folder`; every
# case is visible to ctest and runs in a process with a home folder of its own.
function(velmar_test name)
  cmake_parse_arguments(ARG "" "FOLDER" "LINK" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${ARG_FOLDER}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources} ${CMAKE_SOURCE_DIR}/tests/support/test_main.cpp)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gmock GTest::gtest)
  target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h> <map> <string> <vector>)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
endfunction()
