// SPDX-License-Identifier: MIT
// A file in the temporary folder that lives as long as the object.
#ifndef QUARNFC_TESTS_SUPPORT_TEMP_FILE_H_
#define QUARNFC_TESTS_SUPPORT_TEMP_FILE_H_

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace quarnfc_test {

class TempFile {
 public:
  explicit TempFile(const std::string& contents) : path_(NewPath()) {
    std::ofstream file(path_, std::ios::binary);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    EXPECT_TRUE(file.good());
  }
  ~TempFile() { std::remove(path_.c_str()); }

  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;

  const char* path() const { return path_.c_str(); }

  // A path in the temporary folder that names nothing yet.
  static std::string NewPath() {
    static std::mt19937_64 random{std::random_device{}()};
    const std::string name = "quarnfc_" + std::to_string(random()) + ".csv";
    return (std::filesystem::temp_directory_path() / name).string();
  }

 private:
  std::string path_;
};

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_TEMP_FILE_H_
