#include "tests/net/fake_internet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

FakeInternet g_fake;

// Every test starts with a fresh fake.
class FreshFake : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { g_fake = FakeInternet(); }
};

[[maybe_unused]] const bool g_listening = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new FreshFake);
  return true;
}();

BOOL Answer(DWORD error) {
  if (error == 0) return TRUE;
  SetLastError(error);
  return FALSE;
}

void CallBack(const std::function<void()>& callback) {
  if (!callback) return;
  const std::function<void()> once = callback;
  once();
}

BOOL WINAPI FakeReadFile(HINTERNET, void* buffer, DWORD count, DWORD* read) {
  FakeInternet& fake = g_fake;
  fake.reads.push_back(count);
  CallBack(fake.during_transfer);
  if (fake.read_error != 0) return Answer(fake.read_error);
  DWORD given = std::min(count, static_cast<DWORD>(fake.read_limit));
  if (fake.endless_response != 0) {
    std::memset(buffer, fake.endless_response, given);
  } else {
    given = std::min(given, static_cast<DWORD>(fake.response.size() - fake.response_position));
    std::memcpy(buffer, fake.response.data() + fake.response_position, given);
    fake.response_position += given;
  }
  *read = given;
  return TRUE;
}

BOOL WINAPI FakeWriteFile(HINTERNET, const void* data, DWORD count, DWORD* written) {
  FakeInternet& fake = g_fake;
  CallBack(fake.during_transfer);
  if (fake.write_error != 0) return Answer(fake.write_error);
  *written = std::min(count, static_cast<DWORD>(fake.write_limit));
  fake.writes.emplace_back(static_cast<const char*>(data), *written);
  fake.calls.push_back("write " + fake.writes.back());
  SetLastError(ERROR_HANDLE_EOF);
  return TRUE;
}

HINTERNET WINAPI FakeOpen(const char* agent, DWORD access, const char*, const char*, DWORD flags) {
  char call[64];
  wsprintfA(call, "open %s access %u flags %u", agent, access, flags);
  g_fake.calls.push_back(call);
  return FakeHandle();
}

HINTERNET WINAPI FakeOpenUrl(HINTERNET, const char* url, const char*, DWORD length, DWORD flags,
                             DWORD_PTR context) {
  char call[100];
  wsprintfA(call, "url %s headers %u flags %u context %u", url, length, flags,
            static_cast<unsigned int>(context));
  g_fake.calls.push_back(call);
  return FakeUrlHandle();
}

BOOL WINAPI FakeQueryOption(HINTERNET, DWORD, void* buffer, DWORD* length) {
  if (g_fake.handle_type == 0) return Answer(ERROR_INTERNET_INVALID_OPERATION);
  *length = sizeof(g_fake.handle_type);
  std::memcpy(buffer, &g_fake.handle_type, *length);
  return TRUE;
}

INTERNET_STATUS_CALLBACK WINAPI FakeSetStatusCallback(HINTERNET,
                                                      INTERNET_STATUS_CALLBACK callback) {
  g_fake.calls.push_back(callback != nullptr ? "install" : "uninstall");
  if (g_fake.refuses_callback) {
    SetLastError(ERROR_INTERNET_INVALID_OPERATION);
    return INTERNET_INVALID_STATUS_CALLBACK;
  }
  return std::exchange(g_fake.callback, callback);
}

BOOL WINAPI FakeCloseHandle(HINTERNET handle) {
  char call[64];
  wsprintfA(call, "close %x", static_cast<unsigned int>(reinterpret_cast<ULONG_PTR>(handle)));
  g_fake.calls.push_back(call);
  CallBack(g_fake.during_close);
  return TRUE;
}

DWORD WINAPI FakeSetFilePointer(HINTERNET, LONG offset, void*, DWORD method, DWORD_PTR context) {
  char call[64];
  wsprintfA(call, "seek %d %u %u", offset, method, static_cast<unsigned int>(context));
  g_fake.calls.push_back(call);
  SetLastError(12016);
  return g_fake.position;
}

BOOL WINAPI FakeQueryDataAvailable(HINTERNET, DWORD* available, DWORD flags, DWORD_PTR context) {
  if (flags != 0 || context != 0) return Answer(ERROR_INVALID_PARAMETER);  // both are reserved
  *available = g_fake.data_available;
  return g_fake.data_available != 0;
}

BOOL WINAPI FakeSendRequestEx(HINTERNET, INTERNET_BUFFERSA* in, INTERNET_BUFFERSA*, DWORD flags,
                              DWORD_PTR context) {
  char call[64];
  wsprintfA(call, "begin %u of size %u flags %u context %u", in->dwBufferTotal,
            static_cast<unsigned int>(in->dwStructSize - sizeof(*in)), flags,
            static_cast<unsigned int>(context));
  g_fake.calls.push_back(call);
  return TRUE;
}

BOOL WINAPI FakeEndRequest(HINTERNET, INTERNET_BUFFERSA*, DWORD flags, DWORD_PTR context) {
  char call[64];
  wsprintfA(call, "end flags %u context %u", flags, static_cast<unsigned int>(context));
  g_fake.calls.push_back(call);
  return Answer(g_fake.end_error);
}

BOOL WINAPI FakeQueryInfo(HINTERNET, DWORD, void* buffer, DWORD* length, DWORD* index) {
  const std::string& header = g_fake.header;
  g_fake.calls.push_back(index != nullptr ? "query with index" : "query");
  if (header.empty()) return Answer(ERROR_HTTP_HEADER_NOT_FOUND);
  const DWORD capacity = *length;
  *length = static_cast<DWORD>(header.size());
  if (buffer == nullptr || capacity < header.size()) return Answer(ERROR_INSUFFICIENT_BUFFER);
  std::memcpy(buffer, header.data(), header.size());
  if (!g_fake.counts_header) *length = 0xFFFFFFFF;
  return TRUE;
}

BOOL WINAPI FakeGetCookie(const char*, const char*, char* buffer, DWORD* length) {
  const std::string& cookie = g_fake.cookie;
  if (cookie.empty()) return Answer(ERROR_NO_MORE_ITEMS);
  const DWORD capacity = *length;
  *length = static_cast<DWORD>(cookie.size()) + 1;
  if (buffer == nullptr) return TRUE;
  if (capacity < *length) return Answer(ERROR_INSUFFICIENT_BUFFER);
  std::memcpy(buffer, cookie.c_str(), *length);
  if (!g_fake.counts_cookie) *length = 0xFFFFFFFF;
  return TRUE;
}

BOOL WINAPI FakeGetLastResponseInfo(DWORD* error, char* buffer, DWORD* length) {
  const std::string& text = g_fake.server_text;
  *error = 0;
  const DWORD capacity = *length;
  *length = static_cast<DWORD>(text.size());
  if (text.empty()) return TRUE;
  const DWORD needed = *length + (g_fake.asks_for_end ? 1 : 0);
  if (buffer == nullptr || capacity < needed) {
    *length = needed;
    return Answer(ERROR_INSUFFICIENT_BUFFER);
  }
  std::memcpy(buffer, text.c_str(), needed);
  return TRUE;
}

// The messages of the platform, and one for the error that asks for the server's own words.
DWORD WINAPI FakeFormatMessage(DWORD flags, const void* source, DWORD code, DWORD language,
                               char* buffer, DWORD size, va_list* arguments) {
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

FakeInternet& TheFakeInternet() { return g_fake; }

// The library reaches the platform through import pointers; these stand in their place.
extern "C" {
extern decltype(&FakeOpen) const __imp_InternetOpenA = FakeOpen;
extern decltype(&FakeSetStatusCallback) const __imp_InternetSetStatusCallback =
    FakeSetStatusCallback;
extern decltype(&FakeOpenUrl) const __imp_InternetOpenUrlA = FakeOpenUrl;
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
