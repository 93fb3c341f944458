// SPDX-License-Identifier: MIT
// A file in the temporary folder that lives as long as the object. Its path is taken from one list,
// so that no library of the run-time keeps anything for it.
#ifndef QUARNFC_TESTS_FAILING_MEMORY_SCRATCH_FILE_H_
#define QUARNFC_TESTS_FAILING_MEMORY_SCRATCH_FILE_H_

#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <string>

namespace failing {

class ScratchFile {
 public:
  explicit ScratchFile(const std::string& contents) { Write(contents); }
  ~ScratchFile() { std::remove(path()); }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  // One path for the process: scenarios run one after the other.
  static const char* path() {
    static const std::string path = (std::filesystem::temp_directory_path() /
                                     ("quarnfc_failing_" + std::to_string(std::random_device{}())))
                                        .string();
    return path.c_str();
  }

  void Write(const std::string& contents) {
    const Stream stream(std::fopen(path(), "wb"));
    if (stream != nullptr) std::fwrite(contents.data(), 1, contents.size(), stream.get());
  }

  std::string Contents() const {
    const Stream stream(std::fopen(path(), "rb"));
    std::string contents(stream == nullptr ? 0 : 100000, '\0');
    if (stream != nullptr) {
      contents.resize(std::fread(contents.data(), 1, contents.size(), stream.get()));
    }
    return contents;
  }

 private:
  struct Closer {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
  };
  using Stream = std::unique_ptr<std::FILE, Closer>;
};

}  // namespace failing

#endif  // QUARNFC_TESTS_FAILING_MEMORY_SCRATCH_FILE_H_
