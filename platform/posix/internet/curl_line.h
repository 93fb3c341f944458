// SPDX-License-Identifier: MIT
// A line of libcurl: an easy handle, the multi handle that keeps its connection, and what libcurl
// has been told about the requests that travel along it.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_CURL_LINE_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_CURL_LINE_H_

#include <curl/curl.h>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

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

struct UrlCloser {
  void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
struct ListCloser {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

// Belongs to one exchange at a time. The connection stays with the multi handle when the easy
// handle leaves it, which is how it is kept for the next exchange of the same route. What libcurl
// is told about the route and, as long as they are the same, about the headers is told once: saying
// it anew takes as long as a short exchange itself. libcurl keeps no copies of it, so a line stays
// where it is.
struct CurlLine {
  explicit CurlLine(const Route& along) : route(along), security_flags(along.security_flags) {}
  CurlLine(const CurlLine&) = delete;
  CurlLine& operator=(const CurlLine&) = delete;

  const Route route;
  DWORD security_flags;
  bool knows_route = false;
  std::unique_ptr<CURLU, UrlCloser> url;

  // What headers was made from, and the list itself; null before the first request.
  std::vector<std::string> header_lines;
  BodyKind body = BodyKind::kNone;
  std::unique_ptr<curl_slist, ListCloser> headers;

  std::unique_ptr<CURL, EasyCloser> easy;
  std::unique_ptr<CURLM, MultiCloser> multi;
};

// The idle lines of a session.
class CurlPool {
 public:
  // A line whose connection leads along route, or a new one; null when libcurl gives none. It is
  // loaded by then.
  std::unique_ptr<CurlLine> Take(const Route& route);

  // Keeps a line after a whole exchange; the oldest one goes when there are many.
  void Give(std::unique_ptr<CurlLine> line);

 private:
  std::unique_ptr<CurlLine> TakeIdle(const Route& route);

  std::mutex mutex_;
  std::vector<std::unique_ptr<CurlLine>> idle_;  // the last one used stands last
};

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_CURL_LINE_H_
