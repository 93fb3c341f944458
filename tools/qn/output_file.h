// SPDX-License-Identifier: MIT
// Output files that are whole or not there.
#ifndef QN_OUTPUT_FILE_H_
#define QN_OUTPUT_FILE_H_

#include <cstdio>
#include <string>
#include <string_view>

namespace qn {

// Writes to a temporary file beside the target and puts it in the target's place on Commit. An
// object that goes away without Commit leaves the target as it was. Devices and pipes are written
// directly.
class OutputFile {
 public:
  // Throws Failure when the temporary file cannot be created.
  explicit OutputFile(const std::string& path);
  ~OutputFile();

  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Throws Failure.
  void Write(std::string_view bytes);

  // The temporary file's name, for functions that write a file themselves. It exists, empty, and
  // is closed; Write must not be used on this object.
  const std::string& Name();

  // Ends the output. Throws Failure.
  void Commit();

 private:
  void Close();
  [[noreturn]] void Fail(const char* what) const;

  std::string target_;
  std::string name_;  // what is written: the temporary file, or the device itself
  FILE* file_ = nullptr;
};

}  // namespace qn

#endif  // QN_OUTPUT_FILE_H_
