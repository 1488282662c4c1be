# velmar_ruby_test(FILE): every test method of a minitest file as one ctest entry per file, in a real interpreter.
file(GLOB_RECURSE ruby_test_files CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_test.rb)
