// SPDX-License-Identifier: MIT
// CQNInternetException: the one exception type of the HTTP client.
//
// It is always thrown as a pointer to an object on the library's heap. Whoever catches the pointer,
// by its type or as void*, owns the object and deletes it as a CQNInternetException, once.
//
// Texts are in the process ANSI code page. Threads: an exception is used by one thread at a time;
// the text for code 12003 is that of the calling thread's last failure, so ask on the thread that
// caught it, before its next call.
//
// Example:
//   try {
//     CQNInternetSession session("MapClient");
//     delete session.OpenURL("http://maps.example/");
//   } catch (CQNInternetException* error) {
//     char text[256];
//     error->GetErrorMessage(text, sizeof(text));
//     std::printf("%u: %s\n", error->GetErrorCode(), text);
//     delete error;
//   }
#ifndef QUARNFC_INTERNET_EXCEPTION_H_
#define QUARNFC_INTERNET_EXCEPTION_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

#include <cstddef>
#include <new>

namespace quarnfc::net {
struct InternetError;
}

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

// The destructor is deliberately not virtual: delete the object as what it is.
class QN_API CQNInternetException {
 public:
  // An exception with the platform's error code and context 0. To throw one, make it with new.
  CQNInternetException(DWORD code);

  // Writes the text of the error (ANSI code page) into text, a buffer of maximum bytes, cut to fit
  // without splitting a double-byte character. Returns nonzero on success; an unknown code stores
  // the empty text and returns 0. The text of the internet API is preferred over the system's.
  //
  // For code 12003 (the server's own words) the text is what the server said, or deliberately the
  // empty text when that does not fit whole; text is left as it was when the server said nothing.
  // *helpContext is set to 0 when helpContext is not null.
  virtual int GetErrorMessage(char* text, unsigned int maximum,
                              unsigned int* helpContext = nullptr) const;

  // The error code of the platform: 12000 and above from its internet API, others from the system.
  unsigned int GetErrorCode() const;

  // The context value of the object that failed, so that a host tells its requests apart.
  unsigned __int64 GetContext() const;

  // Through the library's memory, whichever module says new or delete.
  static void* operator new(std::size_t size);
  static void* operator new(std::size_t, void* place) noexcept { return place; }

  // Null instead of std::bad_alloc.
  static void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
      return operator new(size);
    } catch (...) {
      return nullptr;
    }
  }
  static void operator delete(void* object) noexcept;
  static void operator delete(void*, void*) noexcept {}
  static void operator delete(void* object, const std::nothrow_t&) noexcept {
    operator delete(object);
  }

 private:
  friend struct quarnfc::net::InternetError;

  unsigned int code_;
  unsigned __int64 context_;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

#endif  // QUARNFC_INTERNET_EXCEPTION_H_
