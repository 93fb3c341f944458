// SPDX-License-Identifier: MIT
// What the library's HTTP client stands on, used by itself: libcurl, or the platform's functions on
// Windows.
#ifndef QUARNFC_BENCH_HTTP_PEER_H_
#define QUARNFC_BENCH_HTTP_PEER_H_

#include <memory>
#include <string>

namespace bench {

class HttpPeer {
 public:
  static const char* const kName;

  explicit HttpPeer(unsigned short port);
  ~HttpPeer();
  HttpPeer(const HttpPeer&) = delete;
  HttpPeer& operator=(const HttpPeer&) = delete;

  // Fetches a resource from 127.0.0.1 over the connection that is kept; the bytes of its body.
  unsigned long long Fetch(const std::string& path);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace bench

#endif  // QUARNFC_BENCH_HTTP_PEER_H_
