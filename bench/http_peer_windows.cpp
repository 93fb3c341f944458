// SPDX-License-Identifier: MIT
#include "bench/http_peer.h"

#include <windows.h>

#include <wininet.h>

#include <stdexcept>
#include <vector>

namespace bench {
namespace {

struct Closer {
  void operator()(void* handle) const { InternetCloseHandle(handle); }
};
using Handle = std::unique_ptr<void, Closer>;

Handle Checked(HINTERNET handle) {
  if (handle == nullptr) throw std::runtime_error("the platform failed");
  return Handle(handle);
}

}  // namespace

struct HttpPeer::State {
  Handle session;
  Handle connection;
  std::vector<char> block = std::vector<char>(256 * 1024);
};

const char* const HttpPeer::kName = "platform";

HttpPeer::HttpPeer(unsigned short port) : state_(std::make_unique<State>()) {
  state_->session = Checked(InternetOpenA("bench", INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0));
  state_->connection = Checked(InternetConnectA(state_->session.get(), "127.0.0.1", port, nullptr,
                                                nullptr, INTERNET_SERVICE_HTTP, 0, 1));
}

HttpPeer::~HttpPeer() = default;

unsigned long long HttpPeer::Fetch(const std::string& path) {
  const Handle request = Checked(HttpOpenRequestA(
      state_->connection.get(), "GET", path.c_str(), "HTTP/1.1", nullptr, nullptr,
      INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_KEEP_CONNECTION, 1));
  if (!HttpSendRequestA(request.get(), nullptr, 0, nullptr, 0)) {
    throw std::runtime_error("the platform failed");
  }
  unsigned long long total = 0;
  for (DWORD count = 1; count != 0; total += count) {
    if (!InternetReadFile(request.get(), state_->block.data(),
                          static_cast<DWORD>(state_->block.size()), &count)) {
      throw std::runtime_error("the platform failed");
    }
  }
  return total;
}

}  // namespace bench
