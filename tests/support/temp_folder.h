// SPDX-License-Identifier: MIT
// A folder in the temporary folder that lives, with what is in it, as long as the object.
#ifndef QUARNFC_TESTS_SUPPORT_TEMP_FOLDER_H_
#define QUARNFC_TESTS_SUPPORT_TEMP_FOLDER_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/temp_file.h"

namespace quarnfc_test {

class TempFolder {
 public:
  TempFolder() : path_(TempFile::NewPath()) { std::filesystem::create_directory(path_); }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

  std::string PathOf(const char* name) const { return (path_ / name).string(); }

  void Write(const char* name, const std::string& contents) const {
    std::ofstream file(path_ / name, std::ios::binary);
    file << contents;
  }

  std::string Read(const char* name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::size_t FileCount() const {
    const std::filesystem::directory_iterator entries(path_);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }

 private:
  std::filesystem::path path_;
};

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_TEMP_FOLDER_H_
