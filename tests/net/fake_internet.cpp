// SPDX-License-Identifier: MIT
#include "tests/net/fake_internet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <utility>

#include "tests/failing_memory/door.h"

namespace {

#if defined(_WIN32)
using FakeOffset = LONG;
#else
using FakeOffset = int;
#endif

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
  if (error == 0) return 1;
  SetLastError(error);
  return 0;
}

template <class... Parts>
void Record(const Parts&... parts) {
  const failing::DoorAjar ajar;
  std::ostringstream text;
  (text << ... << parts);
  g_fake.calls.push_back(text.str());
}

void CallBack(const std::function<void()>& callback) {
  if (!callback) return;
  const std::function<void()> once = callback;
  once();
}

}  // namespace

// Named after what they stand in for; the build puts them in its place.
extern "C" {

int FakeReadFile(HINTERNET, void* buffer, DWORD count, DWORD* read) {
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
  return 1;
}

int FakeWriteFile(HINTERNET, const void* data, DWORD count, DWORD* written) {
  FakeInternet& fake = g_fake;
  CallBack(fake.during_transfer);
  if (fake.write_error != 0) return Answer(fake.write_error);
  *written = std::min(count, static_cast<DWORD>(fake.write_limit));
  fake.writes.emplace_back(static_cast<const char*>(data), *written);
  fake.calls.push_back("write " + fake.writes.back());
  SetLastError(kErrorOfShortWrites);
  return 1;
}

HINTERNET FakeOpen(const char* agent, DWORD access, const char*, const char*, DWORD flags) {
  Record("open ", agent, " access ", access, " flags ", flags);
  return FakeHandle();
}

HINTERNET FakeOpenUrl(HINTERNET, const char* url, const char*, DWORD length, DWORD flags,
                      unsigned __int64 context) {
  Record("url ", url, " headers ", length, " flags ", flags, " context ", context);
  return FakeUrlHandle();
}

int FakeQueryOption(HINTERNET, DWORD, void* buffer, DWORD* length) {
  if (g_fake.handle_type == 0) return Answer(ERROR_INTERNET_INVALID_OPERATION);
  *length = sizeof(g_fake.handle_type);
  std::memcpy(buffer, &g_fake.handle_type, *length);
  return 1;
}

INTERNET_STATUS_CALLBACK FakeSetStatusCallback(HINTERNET, INTERNET_STATUS_CALLBACK callback) {
  g_fake.calls.emplace_back(callback != nullptr ? "install" : "uninstall");
  if (g_fake.refuses_callback) {
    SetLastError(ERROR_INTERNET_INVALID_OPERATION);
    return INTERNET_INVALID_STATUS_CALLBACK;
  }
  return std::exchange(g_fake.callback, callback);
}

HINTERNET FakeConnect(HINTERNET, const char* server, unsigned short port, const char*, const char*,
                      DWORD, DWORD flags, unsigned __int64 context) {
  Record("connect ", server, " ", port, " flags ", flags, " context ", context);
  return FakeConnectionHandle();
}

HINTERNET FakeOpenRequest(HINTERNET, const char* verb, const char* object, const char* version,
                          const char*, const char**, DWORD flags, unsigned __int64 context) {
  Record("request ", verb, " ", object, " ", version, " flags ", flags, " context ", context);
  return FakeUrlHandle();
}

int FakeCloseHandle(HINTERNET handle) {
  const failing::DoorAjar ajar;
  std::ostringstream number;
  number << std::hex << reinterpret_cast<std::uintptr_t>(handle);
  Record("close ", number.str());
  CallBack(g_fake.during_close);
  return 1;
}

DWORD FakeSetFilePointer(HINTERNET, FakeOffset offset, void*, DWORD method,
                         unsigned __int64 context) {
  Record("seek ", offset, " ", method, " ", context);
  SetLastError(12016);
  return g_fake.position;
}

int FakeQueryDataAvailable(HINTERNET, DWORD* available, DWORD flags, unsigned __int64 context) {
  if (flags != 0 || context != 0) return Answer(ERROR_INVALID_PARAMETER);  // both are reserved
  *available = g_fake.data_available;
  return g_fake.data_available != 0;
}

int FakeSendRequestEx(HINTERNET, INTERNET_BUFFERSA* in, INTERNET_BUFFERSA*, DWORD flags,
                      unsigned __int64 context) {
  Record("begin ", in->dwBufferTotal, " of size ", in->dwStructSize - sizeof(*in), " flags ", flags,
         " context ", context);
  return 1;
}

int FakeEndRequest(HINTERNET, INTERNET_BUFFERSA*, DWORD flags, unsigned __int64 context) {
  Record("end flags ", flags, " context ", context);
  return Answer(g_fake.end_error);
}

int FakeQueryInfo(HINTERNET, DWORD, void* buffer, DWORD* length, DWORD* index) {
  const std::string& header = g_fake.header;
  g_fake.calls.emplace_back(index != nullptr ? "query with index" : "query");
  if (header.empty()) return Answer(ERROR_HTTP_HEADER_NOT_FOUND);
  const DWORD capacity = *length;
  *length = static_cast<DWORD>(header.size());
  if (buffer == nullptr || capacity < header.size()) return Answer(ERROR_INSUFFICIENT_BUFFER);
  std::memcpy(buffer, header.data(), header.size());
  if (!g_fake.counts_header) *length = 0xFFFFFFFF;
  return 1;
}

int FakeGetCookie(const char*, const char*, char* buffer, DWORD* length) {
  const std::string& cookie = g_fake.cookie;
  if (cookie.empty()) return Answer(ERROR_NO_MORE_ITEMS);
  const DWORD capacity = *length;
  *length = static_cast<DWORD>(cookie.size()) + 1;
  if (buffer == nullptr) return 1;
  if (capacity < *length) return Answer(ERROR_INSUFFICIENT_BUFFER);
  std::memcpy(buffer, cookie.c_str(), *length);
  if (!g_fake.counts_cookie) *length = 0xFFFFFFFF;
  return 1;
}

int FakeGetLastResponseInfo(DWORD* error, char* buffer, DWORD* length) {
  const std::string& text = g_fake.server_text;
  *error = 0;
  const DWORD capacity = *length;
  *length = static_cast<DWORD>(text.size());
  if (text.empty()) return 1;
  const DWORD needed = *length + (g_fake.asks_for_end ? 1 : 0);
  if (buffer == nullptr || capacity < needed) {
    *length = needed;
    return Answer(ERROR_INSUFFICIENT_BUFFER);
  }
  std::memcpy(buffer, text.c_str(), needed);
  return 1;
}

}  // extern "C"

FakeInternet& TheFakeInternet() { return g_fake; }
