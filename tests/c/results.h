// SPDX-License-Identifier: MIT
// What the functions of the flat C interface return, as values that the tests compare.
#ifndef QUARNFC_TESTS_C_RESULTS_H_
#define QUARNFC_TESTS_C_RESULTS_H_

#include <quarnfc/c/base.h>

#include <string>

namespace c_results {

// A text that belongs to the caller; "(null)" for none.
inline std::string Taken(char* text) {
  const std::string copy = text == nullptr ? "(null)" : text;
  qnFreeMem(text);
  return copy;
}

// The out-argument of a call, and what it says: "code: message", "" without an error.
class Error {
 public:
  Error() = default;
  ~Error() { qnCloseHandle(handle_); }
  Error(const Error&) = delete;
  Error& operator=(const Error&) = delete;

  CQNObject** Out() {
    qnCloseHandle(handle_);
    handle_ = nullptr;
    return &handle_;
  }

  std::string Text() const {
    if (handle_ == nullptr) return "";
    return std::to_string(qncErrorCode(handle_)) + ": " + Taken(qncErrorMessage(handle_));
  }

 private:
  CQNObject* handle_ = nullptr;
};

}  // namespace c_results

#endif  // QUARNFC_TESTS_C_RESULTS_H_
