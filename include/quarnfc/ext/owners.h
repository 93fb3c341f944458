// SPDX-License-Identifier: MIT
// An owner for every release rule: what the library hands out is released when the owner goes.
//
//   OwnedBuffer<T>   a text or byte buffer             qnFreeMem
//   ErrorHandle      an error handle                   qnCloseHandle
//   StringArray      the pieces of SplitStr            FreeStrArr
//   Owned<T>         an object returned by pointer     delete, by the class's own operator
//
// (A system string has its owner in system_string.h.) Owners move and do not copy; none throws when
// it is destroyed or moved. Header-only, C++17. One thread at a time uses an owner.
//
// Example:
//   using namespace quarnfc::ext;
//   ErrorHandle error;
//   CMyJsonObj settings;
//   QNJsonUtils::ReadJsonFile("no such file.json", settings, error.Out());    // == false
//   error.Code();                                                             // == 2u
//   error.Message().empty();                                                  // == false
//   const OwnedBuffer<char> joined(qnUnionPath("C:\\maps", "a.json"));
//   joined.get();    // == "C:\\maps\\a.json"
#ifndef QUARNFC_EXT_OWNERS_H_
#define QUARNFC_EXT_OWNERS_H_

#include <quarnfc/json_files.h>
#include <quarnfc/plain.h>
#include <quarnfc/string_utils.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnfc::ext {

struct FreeMem {
  void operator()(void* buffer) const noexcept { qnFreeMem(buffer); }
};

// A buffer that is documented as released with qnFreeMem; null is no buffer.
template <class T>
using OwnedBuffer = std::unique_ptr<T, FreeMem>;

// An object that is documented as destroyed with delete (Clone, CreateErrorJson, GetHttpConnection,
// OpenURL, OpenRequest, a caught CQNInternetException).
template <class T>
using Owned = std::unique_ptr<T>;

// An error handle, or none.
class ErrorHandle {
 public:
  ErrorHandle() = default;
  // Takes the handle over; 0 is none.
  explicit ErrorHandle(unsigned __int64 handle) : handle_(handle) {}
  ErrorHandle(ErrorHandle&& other) noexcept : handle_(other.Release()) {}
  ErrorHandle& operator=(ErrorHandle&& other) noexcept {
    Reset(other.Release());
    return *this;
  }
  ~ErrorHandle() { qnCloseHandle(handle_); }

  // Where a function stores its handle: closes the one there is and gives the address of an empty
  // one.
  unsigned __int64* Out() {
    Reset();
    return &handle_;
  }

  explicit operator bool() const { return handle_ != 0; }
  unsigned __int64 Get() const { return handle_; }

  // Gives the handle away: to a function that closes it, as CreateErrorJson.
  unsigned __int64 Release() noexcept { return std::exchange(handle_, 0); }

  void Reset(unsigned __int64 handle = 0) noexcept {
    qnCloseHandle(std::exchange(handle_, handle));
  }

  // The error code; 0 without a handle.
  unsigned int Code() const {
    unsigned int code = 0;
    const OwnedBuffer<char> message(qnGetErrorA(handle_, &code));
    return code;
  }

  // The message in the ANSI code page; empty without a handle.
  std::string Message() const {
    const OwnedBuffer<char> message(qnGetErrorA(handle_, nullptr));
    return message == nullptr ? std::string() : std::string(message.get());
  }

 private:
  unsigned __int64 handle_ = 0;
};

// The pieces of a split text, in the ANSI code page.
class StringArray {
 public:
  StringArray() = default;
  // Splits as QNStringUtils::SplitStr does.
  StringArray(const char* text, char separator) {
    QNStringUtils::SplitStr(text, separator, pieces_);
  }
  StringArray(StringArray&& other) noexcept { pieces_.swap(other.pieces_); }
  StringArray& operator=(StringArray&& other) noexcept {
    pieces_.swap(other.pieces_);
    return *this;
  }
  ~StringArray() { QNStringUtils::FreeStrArr(pieces_); }

  // Trims the pieces and drops empty ones, as QNStringUtils::AdjustStrArr does.
  void Adjust(bool trimBlanks, bool dropEmpty) {
    QNStringUtils::AdjustStrArr(pieces_, trimBlanks, dropEmpty);
  }

  std::size_t Size() const { return pieces_.size(); }
  // index must be below Size.
  const char* operator[](std::size_t index) const { return pieces_[index]; }
  auto begin() const { return pieces_.begin(); }
  auto end() const { return pieces_.end(); }

  // The vector itself, for functions that fill or read one.
  std::vector<char*>& Pieces() { return pieces_; }

 private:
  std::vector<char*> pieces_;
};

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_OWNERS_H_
