// SPDX-License-Identifier: MIT
// The exchanges of the command qn http, on top of the library's classes.
#ifndef QN_HTTP_CLIENT_H_
#define QN_HTTP_CLIENT_H_

#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qn/http_cookie_jar.h"
#include "qn/http_url.h"

namespace qn {

struct HttpRequest {
  std::string verb;
  std::string url;
  std::vector<std::string> headers;  // "Name: value" each; a name may come again
  std::string user;                  // "user:password"; that of the URL when empty
  std::string proxy;                 // "host:port"; the system's when empty
  bool has_body = false;
  std::string body;                    // what to send, or
  std::string body_file;               // the file that is sent piece by piece
  unsigned long long resume_from = 0;  // ask for the rest from here
  long long redirects = 20;            // how many are followed
  DWORD timeout_seconds = 0;           // 0: the platform's time-outs
  bool insecure = false;               // accept any certificate
  bool compressed = false;             // ask for a compressed body, and unpack it
  HttpCookieJar* cookies = nullptr;    // borrowed; null leaves cookies to the platform
  bool verbose = false;                // show both heads on standard error
};

// Sends a request, follows redirects and gives access to the response. Credentials and Cookie
// headers of the host's own go to the server of the URL only. Throws Failure.
class HttpExchange {
 public:
  explicit HttpExchange(const HttpRequest& request);

  DWORD Status() const { return status_; }

  // "404 Not Found"
  std::string StatusLine() const;

  // The head of the response as it came.
  std::string Head() const;

  // Hands the body to sink, piece by piece, showing progress. Throws Failure when the body is
  // shorter than announced, or compressed and broken.
  void ReceiveBody(const std::function<void(std::string_view)>& sink);

 private:
  void Send(const HttpRequest& request, const HttpUrl& url, bool trusted);
  void Prepare(const HttpRequest& request, const HttpUrl& url, bool trusted);
  void AddHeaders(const HttpRequest& request, const HttpUrl& url, bool trusted);
  void TakeCookies(HttpCookieJar& cookies, const HttpUrl& url) const;
  std::string Coding() const;
  void SendBody(const HttpRequest& request);
  void SendFile(const std::string& path);
  bool FindRedirect(HttpRequest& request, HttpUrl& url);

  CQNInternetSession session_;
  std::unique_ptr<CQNHttpConnection> connection_;
  std::unique_ptr<CQNHttpFile> file_;
  DWORD status_ = 0;
  bool compressed_;
  std::string label_;
};

}  // namespace qn

#endif  // QN_HTTP_CLIENT_H_
