// SPDX-License-Identifier: MIT
// std::exception and the exceptions of the language, with the layout that Visual C++ gives them:
// one thrown by one module is read by another, whichever compiler built it. The texts are copied
// and released by the run-time DLL that both share.
#ifndef QUARNFC_RUNTIME_VCRUNTIME_EXCEPTION_H_
#define QUARNFC_RUNTIME_VCRUNTIME_EXCEPTION_H_

#pragma clang system_header

extern "C" {

struct __std_exception_data {
  const char* _What;
  bool _DoFree;
};

__declspec(dllimport) void __cdecl __std_exception_copy(const __std_exception_data* from,
                                                        __std_exception_data* to);
__declspec(dllimport) void __cdecl __std_exception_destroy(__std_exception_data* data);

}  // extern "C"

namespace std {

class exception {
 public:
  exception() noexcept : _Data() {}
  explicit exception(const char* message) noexcept : _Data() {
    const __std_exception_data text = {message, true};
    __std_exception_copy(&text, &_Data);
  }
  // A text that lives as long as the program; it is not copied.
  exception(const char* message, int) noexcept : _Data() { _Data._What = message; }
  exception(const exception& other) noexcept : _Data() {
    __std_exception_copy(&other._Data, &_Data);
  }
  exception& operator=(const exception& other) noexcept {
    if (this == &other) return *this;
    __std_exception_destroy(&_Data);
    __std_exception_copy(&other._Data, &_Data);
    return *this;
  }
  virtual ~exception() noexcept { __std_exception_destroy(&_Data); }

  virtual const char* what() const noexcept {
    return _Data._What != nullptr ? _Data._What : "Unknown exception";
  }

 private:
  __std_exception_data _Data;
};

class bad_exception : public exception {
 public:
  bad_exception() noexcept : exception("bad exception", 1) {}
};

class bad_alloc : public exception {
 public:
  bad_alloc() noexcept : exception("bad allocation", 1) {}

 private:
  friend class bad_array_new_length;
  explicit bad_alloc(const char* message) noexcept : exception(message, 1) {}
};

class bad_array_new_length : public bad_alloc {
 public:
  bad_array_new_length() noexcept : bad_alloc("bad array new length") {}
};

}  // namespace std

#endif  // QUARNFC_RUNTIME_VCRUNTIME_EXCEPTION_H_
