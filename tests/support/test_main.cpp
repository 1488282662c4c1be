// Entry of every C++ test program: gives the process a fresh home folder and takes it away again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    std::string home = (std::filesystem::temp_directory_path() / "velmar-test-XXXXXX").string();
    if (mkdtemp(home.data()) == nullptr) return 2;
    setenv("HOME", home.c_str(), 1);
    const int result = RUN_ALL_TESTS();
    std::error_code ignored;
    std::filesystem::remove_all(home, ignored);
    return result;
}
