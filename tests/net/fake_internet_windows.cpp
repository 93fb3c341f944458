// SPDX-License-Identifier: MIT
// Puts the stand-in in the place of the platform's functions: the library reaches them through
// import pointers, which are defined here.
#include <cstring>

#include "tests/net/fake_internet.h"

namespace {

// The messages of the platform, and one for the error that asks for the server's own words.
DWORD FakeFormatMessage(DWORD flags, const void* source, DWORD code, DWORD language, char* buffer,
                        DWORD size, va_list* arguments) {
  constexpr char kExtendedError[] = "The server returned extended information.";
  if (code == ERROR_INTERNET_EXTENDED_ERROR) {
    auto* text = static_cast<char*>(LocalAlloc(LPTR, sizeof(kExtendedError)));
    std::memcpy(text, kExtendedError, sizeof(kExtendedError));
    *reinterpret_cast<char**>(buffer) = text;
    return sizeof(kExtendedError) - 1;
  }
  static const auto real = reinterpret_cast<decltype(&FormatMessageA)>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "FormatMessageA")));
  return real(flags, source, code, language, buffer, size, arguments);
}

}  // namespace

extern "C" {
decltype(InternetOpenA) FakeOpen;
decltype(InternetSetStatusCallback) FakeSetStatusCallback;
decltype(InternetOpenUrlA) FakeOpenUrl;
decltype(InternetConnectA) FakeConnect;
decltype(HttpOpenRequestA) FakeOpenRequest;
decltype(InternetQueryOptionA) FakeQueryOption;
decltype(InternetReadFile) FakeReadFile;
decltype(InternetWriteFile) FakeWriteFile;
decltype(InternetCloseHandle) FakeCloseHandle;
decltype(InternetSetFilePointer) FakeSetFilePointer;
decltype(InternetQueryDataAvailable) FakeQueryDataAvailable;
decltype(HttpSendRequestExA) FakeSendRequestEx;
decltype(HttpEndRequestA) FakeEndRequest;
decltype(HttpQueryInfoA) FakeQueryInfo;
decltype(InternetGetCookieA) FakeGetCookie;
decltype(InternetGetLastResponseInfoA) FakeGetLastResponseInfo;

extern decltype(&FakeOpen) const __imp_InternetOpenA = FakeOpen;
extern decltype(&FakeSetStatusCallback) const __imp_InternetSetStatusCallback =
    FakeSetStatusCallback;
extern decltype(&FakeOpenUrl) const __imp_InternetOpenUrlA = FakeOpenUrl;
extern decltype(&FakeConnect) const __imp_InternetConnectA = FakeConnect;
extern decltype(&FakeOpenRequest) const __imp_HttpOpenRequestA = FakeOpenRequest;
extern decltype(&FakeQueryOption) const __imp_InternetQueryOptionA = FakeQueryOption;
extern decltype(&FakeReadFile) const __imp_InternetReadFile = FakeReadFile;
extern decltype(&FakeWriteFile) const __imp_InternetWriteFile = FakeWriteFile;
extern decltype(&FakeCloseHandle) const __imp_InternetCloseHandle = FakeCloseHandle;
extern decltype(&FakeSetFilePointer) const __imp_InternetSetFilePointer = FakeSetFilePointer;
extern decltype(&FakeQueryDataAvailable) const __imp_InternetQueryDataAvailable =
    FakeQueryDataAvailable;
extern decltype(&FakeSendRequestEx) const __imp_HttpSendRequestExA = FakeSendRequestEx;
extern decltype(&FakeEndRequest) const __imp_HttpEndRequestA = FakeEndRequest;
extern decltype(&FakeQueryInfo) const __imp_HttpQueryInfoA = FakeQueryInfo;
extern decltype(&FakeGetCookie) const __imp_InternetGetCookieA = FakeGetCookie;
extern decltype(&FakeGetLastResponseInfo) const __imp_InternetGetLastResponseInfoA =
    FakeGetLastResponseInfo;
extern decltype(&FakeFormatMessage) const __imp_FormatMessageA = FakeFormatMessage;
}
