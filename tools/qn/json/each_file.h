// SPDX-License-Identifier: MIT
// One command on several files.
#ifndef QN_JSON_EACH_FILE_H_
#define QN_JSON_EACH_FILE_H_

#include <string>
#include <vector>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"

namespace qn {

inline constexpr std::size_t kMostFiles = 100'000;

// Carries work(file) out for each. A Failure of the only one is thrown on; that of one of several
// is told, with the file's name, and the others follow. Returns an ExitCode.
template <class Work>
int ForEachFile(const std::vector<std::string>& files, const Work& work) {
  int result = kSuccess;
  for (const std::string& file : files) {
    try {
      work(file);
    } catch (const Failure& failure) {
      if (files.size() == 1) throw;
      std::string message = failure.what();
      const std::string name = file == "-" ? "standard input" : DisplayText(file);
      if (message.find(name) == std::string::npos) message.insert(0, name + ": ");
      PrintError(message);
      result = kFailure;
    }
  }
  return result;
}

}  // namespace qn

#endif  // QN_JSON_EACH_FILE_H_
