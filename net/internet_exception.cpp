// SPDX-License-Identifier: MIT
#include <quarnfc/internet_exception.h>

#include <new>
#include <string>

#include "net/bounded_text.h"
#include "net/internet_error.h"
#include "platform/internet.h"
#include "platform/internet_error_text.h"

namespace {

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
  std::string response(std::size_t{length} + 1, '\0');
  if (!InternetGetLastResponseInfoA(&error, response.data(), &length)) return;
  response.resize(response.find('\0'));
  if (maximum >= needed && maximum > response.size()) {
    quarnfc::net::CopyBounded(text, maximum, response.c_str());
  }
}

}  // namespace

namespace quarnfc::net {

void InternetError::Throw(DWORD code, unsigned __int64 context) {
  auto* exception = new CQNInternetException(code);
  exception->context_ = context;
  throw exception;
}

void InternetError::ThrowLast(unsigned __int64 context) { Throw(GetLastError(), context); }

}  // namespace quarnfc::net

CQNInternetException::CQNInternetException(DWORD code)
    : code_(static_cast<unsigned int>(code)), context_(0) {}

unsigned int CQNInternetException::GetErrorCode() const { return code_; }

unsigned __int64 CQNInternetException::GetContext() const { return context_; }

int CQNInternetException::GetErrorMessage(char* text, unsigned int maximum,
                                          unsigned int* helpContext) const {
  if (helpContext != nullptr) *helpContext = 0;
  std::string message;
  if (!quarnfc::platform::InternetErrorText(code_, message)) {
    quarnfc::net::CopyBounded(text, maximum, "");
    return 0;
  }
  if (code_ == ERROR_INTERNET_EXTENDED_ERROR) {
    CopyServerText(text, maximum);
  } else {
    quarnfc::net::CopyBounded(text, maximum, message.c_str());
  }
  return 1;
}
