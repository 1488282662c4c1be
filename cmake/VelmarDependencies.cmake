# What the tree is built with, all of it Debian packages (see ./velmar setup).
include(GoogleTest)
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(GTest REQUIRED)
find_package(PNG REQUIRED)
find_package(embree 3 REQUIRED)
find_package(glog REQUIRED)
find_package(assimp REQUIRED)
pkg_check_modules(JSONCPP REQUIRED IMPORTED_TARGET jsoncpp)
pkg_check_modules(PUGIXML REQUIRED IMPORTED_TARGET pugixml)
pkg_check_modules(LIBZIP REQUIRED IMPORTED_TARGET libzip)
find_package(Ruby 2.2 REQUIRED)

# The interpreter's headers. A module of it leaves the interpreter's own functions to the process that loads it; a
# program that embeds it links ruby_embedded.
add_library(ruby_headers INTERFACE)
target_include_directories(ruby_headers SYSTEM INTERFACE ${Ruby_INCLUDE_DIRS})
add_library(ruby_embedded INTERFACE)
target_link_libraries(ruby_embedded INTERFACE ruby_headers ${Ruby_LIBRARIES})

# The image library's own CMake package asks for folders that its Debian package does not bring, so it is named here.
add_library(openimageio INTERFACE)
target_link_libraries(openimageio INTERFACE OpenImageIO OpenImageIO_Util)
