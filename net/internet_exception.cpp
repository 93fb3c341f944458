#include <quarnfc/internet_exception.h>

#include <cstring>
#include <memory>
#include <type_traits>

#include "net/bounded_text.h"
#include "net/internet_error.h"
#include "platform/internet.h"

namespace {

constexpr DWORD kSystemLanguage = 0x0800;

struct LocalDeleter {
  void operator()(char* text) const { LocalFree(text); }
};
using LocalText = std::unique_ptr<char, LocalDeleter>;

struct ModuleDeleter {
  void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, ModuleDeleter>;

// The text of code in a message table; null when it has none.
LocalText FormatCode(DWORD source, HMODULE module, DWORD code) {
  char* text = nullptr;
  FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | source, module, code, kSystemLanguage,
                 reinterpret_cast<char*>(&text), 0, nullptr);
  return LocalText(text);
}

LocalText TextOfCode(DWORD code) {
  const Module internet_api(LoadLibraryA("WININET.DLL"));
  LocalText text;
  if (internet_api != nullptr) {
    text = FormatCode(FORMAT_MESSAGE_FROM_HMODULE, internet_api.get(), code);
  }
  if (text == nullptr) text = FormatCode(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code);
  return text;
}

// The words of the server that failed last on this thread. Deliberately all or nothing.
void CopyServerText(char* text, unsigned int maximum) {
  DWORD error = 0;
  DWORD length = 0;
  if (InternetGetLastResponseInfoA(&error, nullptr, &length) ||
      GetLastError() != ERROR_INSUFFICIENT_BUFFER) {
    return;
  }
  quarnfc::net::CopyBounded(text, maximum, "");
  // Compared as the platform asked for it: what it reports after the copy leaves the end out.
  const DWORD needed = length;
  // One byte more than asked for, so that the text always has an end.
  const LocalText response(static_cast<char*>(LocalAlloc(LPTR, SIZE_T{length} + 1)));
  if (response == nullptr || !InternetGetLastResponseInfoA(&error, response.get(), &length)) return;
  if (maximum >= needed && maximum > std::strlen(response.get())) {
    quarnfc::net::CopyBounded(text, maximum, response.get());
  }
}

}  // namespace

namespace quarnfc::net {

void InternetError::Throw(unsigned long code, unsigned __int64 context) {
  auto* exception = new CQNInternetException(code);
  exception->context_ = context;
  throw exception;
}

void InternetError::ThrowLast(unsigned __int64 context) { Throw(GetLastError(), context); }

}  // namespace quarnfc::net

CQNInternetException::CQNInternetException(unsigned long code)
    : code_(static_cast<unsigned int>(code)), context_(0) {}

unsigned int CQNInternetException::GetErrorCode() const { return code_; }

unsigned __int64 CQNInternetException::GetContext() const { return context_; }

int CQNInternetException::GetErrorMessage(char* text, unsigned int maximum,
                                          unsigned int* helpContext) const {
  if (helpContext != nullptr) *helpContext = 0;
  const LocalText message = TextOfCode(code_);
  if (message == nullptr) {
    quarnfc::net::CopyBounded(text, maximum, "");
    return 0;
  }
  if (code_ == ERROR_INTERNET_EXTENDED_ERROR) {
    CopyServerText(text, maximum);
  } else {
    quarnfc::net::CopyBounded(text, maximum, message.get());
  }
  return 1;
}
