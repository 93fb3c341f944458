// SPDX-License-Identifier: MIT
// A line of libcurl: an easy handle and the multi handle that keeps its connection.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_CURL_LINE_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_CURL_LINE_H_

#include <curl/curl.h>

#include <list>
#include <memory>
#include <mutex>

#include "platform/posix/internet/curl_signals.h"
#include "platform/posix/internet/transport.h"

namespace quarnfc::internet {

struct EasyCloser {
  void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
};
struct MultiCloser {
  void operator()(CURLM* multi) const {
    const QuietPipes quiet(true);  // a connection that goes may say goodbye
    curl_multi_cleanup(multi);
  }
};

// Belongs to one exchange at a time. The connection stays with the multi handle when the easy
// handle leaves it, which is how it is kept for the next exchange of the same route.
struct CurlLine {
  std::unique_ptr<CURL, EasyCloser> easy;
  std::unique_ptr<CURLM, MultiCloser> multi;
  Route route;
};

// The idle lines of a session.
class CurlPool {
 public:
  // A line whose connection leads along route, or a new one. Null members when there is no memory.
  // libcurl is loaded by then.
  CurlLine Take(const Route& route);

  // Keeps a line after a whole exchange; the oldest one goes when there are many.
  void Give(CurlLine line);

 private:
  std::mutex mutex_;
  std::list<CurlLine> idle_;  // the last one used stands first
};

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_CURL_LINE_H_
