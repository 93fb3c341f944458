// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

namespace {

// A temporary folder of this process alone, which testing::TempDir() names from here on, so that
// test programs that run at the same time never meet in a file.
class OwnTempFolder {
 public:
  OwnTempFolder()
      : path_(std::filesystem::temp_directory_path() /
              ("quarnfc_tests_" + std::to_string(std::random_device{}()))) {
    std::filesystem::create_directories(path_);
    const std::string name = (path_ / "").string();
#if defined(_WIN32)
    _putenv_s("TEST_TMPDIR", name.c_str());
#else
    setenv("TEST_TMPDIR", name.c_str(), 1);
#endif
  }
  ~OwnTempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  OwnTempFolder(const OwnTempFolder&) = delete;
  OwnTempFolder& operator=(const OwnTempFolder&) = delete;

 private:
  std::filesystem::path path_;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const OwnTempFolder temp_folder;
  return RUN_ALL_TESTS();
}
