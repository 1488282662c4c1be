# Every test method of every minitest file is a ctest entry of its own, named by its path, class and method, and runs in
# a real interpreter. Files named *_leaks_test.rb look at the leak report of the address sanitizer and need its build.

# The sanitizers' runtimes come first in a process whose program was built without them. The C++ runtime comes with
# them, as they look for it when they start.
set(ruby_environment VELMAR_LIB_DIR=${CMAKE_LIBRARY_OUTPUT_DIRECTORY} LC_ALL=C.UTF-8)
if(VELMAR_SANITIZE)
  if(VELMAR_SANITIZE STREQUAL "address")
    set(runtime_names libasan.so libclang_rt.asan-x86_64.so)
  else()
    set(runtime_names libtsan.so libclang_rt.tsan-x86_64.so)
  endif()
  foreach(name ${runtime_names} libstdc++.so.6)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name} OUTPUT_VARIABLE file
                    OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(IS_ABSOLUTE "${file}")
      list(APPEND preloaded ${file})
    endif()
  endforeach()
  list(JOIN preloaded ":" preloaded)
  list(APPEND ruby_environment LD_PRELOAD=${preloaded} UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
       ASAN_OPTIONS=detect_leaks=0
       TSAN_OPTIONS=report_signal_unsafe=0:suppressions=${CMAKE_CURRENT_SOURCE_DIR}/support/thread_sanitizer.txt)
endif()

# velmar_ruby_test(FILE): the test methods of one file.
function(velmar_ruby_test file)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  file(RELATIVE_PATH path ${CMAKE_CURRENT_SOURCE_DIR} ${file})
  string(REGEX REPLACE "_test\\.rb$" "" path ${path})
  file(STRINGS ${file} lines REGEX "^ *(class [A-Z][A-Za-z0-9]*Test( |$)|def test_)")
  foreach(line ${lines})
    if(line MATCHES "class ([A-Za-z0-9]+)")
      set(class ${CMAKE_MATCH_1})
    elseif(line MATCHES "def (test_[a-z0-9_]+)")
      set(name "${path}.${class}.${CMAKE_MATCH_1}")
      add_test(NAME ${name} COMMAND ${Ruby_EXECUTABLE} ${file} --name=${class}\#${CMAKE_MATCH_1})
      set_tests_properties(${name} PROPERTIES TIMEOUT 300 WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
                           FAIL_REGULAR_EXPRESSION "^0 runs|\n0 runs" ENVIRONMENT "${ruby_environment}")
    endif()
  endforeach()
endfunction()

file(GLOB_RECURSE ruby_test_files CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_test.rb)
foreach(file ${ruby_test_files})
  if(NOT file MATCHES "_leaks_test\\.rb$" OR VELMAR_SANITIZE STREQUAL "address")
    velmar_ruby_test(${file})
  endif()
endforeach()

if(VELMAR_SANITIZE STREQUAL "address")
  add_library(velmar_leaking MODULE ${CMAKE_CURRENT_SOURCE_DIR}/support/leaking_module.cpp)
  set_target_properties(velmar_leaking PROPERTIES PREFIX "")
  target_link_libraries(velmar_leaking PRIVATE plugin_ruby)
endif()
