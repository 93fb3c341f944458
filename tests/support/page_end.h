// SPDX-License-Identifier: MIT
// Bytes that end where a page of memory ends, with a page behind them that cannot be read: a read
// beyond them ends the process.
#ifndef QUARNFC_TESTS_SUPPORT_PAGE_END_H_
#define QUARNFC_TESTS_SUPPORT_PAGE_END_H_

#include <cstddef>

namespace quarnfc_test {

class PageEnd {
 public:
  explicit PageEnd(const void* bytes, std::size_t size);
  ~PageEnd();
  PageEnd(const PageEnd&) = delete;
  PageEnd& operator=(const PageEnd&) = delete;

  void* Data() const { return data_; }

  template <class Char>
  Char* As() const {
    return static_cast<Char*>(data_);
  }

 private:
  void* base_;
  std::size_t total_;
  void* data_;
};

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_SUPPORT_PAGE_END_H_
