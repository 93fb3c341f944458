// SPDX-License-Identifier: MIT
// A stand-in for the platform's internet API in the internal tests: it hands out the bytes and
// failures a test asks for and records what the library asks of it. Nothing touches the network.
#ifndef QUARNFC_TESTS_NET_FAKE_INTERNET_H_
#define QUARNFC_TESTS_NET_FAKE_INTERNET_H_

#include <quarnfc/internet_file.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/internet.h"

struct FakeInternet {
  // Reading: the bytes of the response, how many are handed out already, the counts asked for. A
  // read hands out as much as it can unless read_limit is smaller.
  std::string response;
  size_t response_position = 0;
  unsigned int read_limit = 0xFFFFFFFF;
  char endless_response = 0;  // the byte that is handed out without end
  std::vector<unsigned int> reads;

  // Writing: what each write received. A write takes at most write_limit bytes.
  std::vector<std::string> writes;
  unsigned int write_limit = 0xFFFFFFFF;

  // The error that the next calls fail with; 0 lets them succeed.
  DWORD read_error = 0;
  DWORD write_error = 0;
  DWORD end_error = 0;

  // Runs inside each transfer and each closing of a handle, as a status callback would.
  std::function<void()> during_transfer;
  std::function<void()> during_close;

  std::vector<std::string> calls;  // "close 0x1234", "end", ...
  DWORD position = 0;              // what InternetSetFilePointer answers
  std::string server_text;         // what InternetGetLastResponseInfoA answers
  bool asks_for_end = false;       // whether it asks for room for the terminator
  std::string header;              // what HttpQueryInfoA answers; empty fails
  bool counts_header = true;       // whether it counts what it wrote
  std::string cookie;              // what InternetGetCookieA answers; empty fails
  bool counts_cookie = true;       // whether it counts what it wrote
  DWORD data_available = 0;

  DWORD handle_type = 0;  // what a handle says it is; 0 fails

  // Status callbacks: the one that was installed before the library's, which replaces it.
  INTERNET_STATUS_CALLBACK callback = nullptr;
  bool refuses_callback = false;
};

// The fake of the running test.
FakeInternet& TheFakeInternet();

constexpr unsigned __int64 kTestContext = 77;

// What the last error says after a write, also a short one.
constexpr DWORD kErrorOfShortWrites = 38;

inline HINTERNET FakeHandle() { return reinterpret_cast<HINTERNET>(0x1234); }

inline HINTERNET FakeUrlHandle() { return reinterpret_cast<HINTERNET>(0x5678); }

inline HINTERNET FakeConnectionHandle() { return reinterpret_cast<HINTERNET>(0x4321); }

// A file over a handle of the fake, as a host's derived class would make it.
class FakeFile : public CQNInternetFile {
 public:
  explicit FakeFile(int readMode, HINTERNET handle = FakeHandle())
      : CQNInternetFile(handle, nullptr, "object", "server", kTestContext, readMode) {}
};

class FakeHttpFile : public CQNHttpFile {
 public:
  explicit FakeHttpFile(HINTERNET handle = FakeHandle(), const char* object = "/object")
      : CQNHttpFile(handle, nullptr, object, "server", "GET", kTestContext) {}
};

#endif  // QUARNFC_TESTS_NET_FAKE_INTERNET_H_
