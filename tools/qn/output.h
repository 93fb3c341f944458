// SPDX-License-Identifier: MIT
// Where a command writes: a file that is whole or not there, or standard output.
#ifndef QN_OUTPUT_H_
#define QN_OUTPUT_H_

#include <optional>
#include <string>
#include <string_view>

#include "qn/console.h"
#include "qn/output_file.h"

namespace qn {

class Output {
 public:
  // The file at path, or standard output when path is "-". Throws Failure.
  explicit Output(const std::string& path) {
    if (path != "-") file_.emplace(path);
  }

  // Throws Failure.
  void Write(std::string_view bytes) {
    if (file_) {
      file_->Write(bytes);
    } else {
      PrintBytes(bytes);
    }
  }

  // Ends the output: only now is the file there. Throws Failure.
  void Commit() {
    if (file_) file_->Commit();
  }

 private:
  std::optional<OutputFile> file_;
};

}  // namespace qn

#endif  // QN_OUTPUT_H_
