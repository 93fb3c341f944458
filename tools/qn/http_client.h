// One HTTP exchange of the command qn http, on top of the library's classes.
#ifndef QN_HTTP_CLIENT_H_
#define QN_HTTP_CLIENT_H_

#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qn {

// A URL in its parts. The text is library text.
struct UrlParts {
  unsigned long service;
  unsigned short port;
  CQNString server;
  CQNString object;
  CQNString user;
  CQNString password;
};

// Throws Failure when the URL cannot be parsed.
UrlParts ParseUrl(const std::string& url);

struct HttpRequest {
  std::string verb;
  std::string url;
  std::vector<std::string> headers;  // "Name: value" each
  std::string body;
  unsigned long timeout_seconds = 0;  // 0: the platform's time-outs
  bool insecure = false;              // accept any certificate
};

// Sends a request and gives access to its response. Throws Failure, with the platform's words, when
// the exchange breaks down.
class HttpExchange {
 public:
  explicit HttpExchange(const HttpRequest& request);

  unsigned long Status() const { return status_; }

  // "404 Not Found"
  std::string StatusLine() const;

  // The head of the response as it came.
  std::string Head() const;

  // Hands the body to sink, piece by piece, showing progress. Throws Failure when the body is
  // shorter than announced.
  void ReceiveBody(const std::function<void(std::string_view)>& sink);

 private:
  void Prepare(CQNHttpFile& file, const HttpRequest& request);

  CQNInternetSession session_;
  std::unique_ptr<CQNHttpConnection> connection_;
  std::unique_ptr<CQNHttpFile> file_;
  unsigned long status_ = 0;
  std::string label_;
};

}  // namespace qn

#endif  // QN_HTTP_CLIENT_H_
