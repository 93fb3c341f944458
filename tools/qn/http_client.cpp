#include "http_client.h"

#include <quarnfc/url.h>

#include <cstdlib>

#include "errors.h"
#include "transfer_progress.h"

// After the library's headers, to show that both agree on the platform's types.
#include <windows.h>
#include <wininet.h>

namespace qn {
namespace {

constexpr unsigned int kBlock = 256 * 1024;

std::string TextOf(const CQNString& text) { return static_cast<const char*>(text); }

std::string MessageOf(const CQNInternetException& exception) {
  char text[512] = "";
  exception.GetErrorMessage(text, sizeof(text));
  std::string message(text);
  while (!message.empty() && static_cast<unsigned char>(message.back()) <= ' ') message.pop_back();
  const std::string code = "error " + std::to_string(exception.GetErrorCode());
  return message.empty() ? code : message + " (" + code + ")";
}

// Runs an action of the library's HTTP client; what it throws becomes a Failure.
template <class Action>
auto Guarded(const std::string& label, Action action) {
  try {
    return action();
  } catch (CQNInternetException* exception) {
    const std::unique_ptr<CQNInternetException> owner(exception);
    throw Failure(label + ": " + MessageOf(*exception));
  }
}

// The announced length of the body; 0 when there is none.
unsigned long long AnnouncedLength(const CQNHttpFile& file) {
  CQNString text;
  if (!file.QueryInfo(HTTP_QUERY_CONTENT_LENGTH, text)) return 0;
  return std::strtoull(text, nullptr, 10);
}

// The last part of a URL, short enough to stand beside a progress bar.
std::string ShortName(const std::string& url) {
  constexpr std::size_t kLongest = 24;
  const std::string path = url.substr(0, url.find_first_of("?#"));
  return path.substr(path.find_last_of('/') + 1).substr(0, kLongest);
}

void SetTimeouts(CQNHttpFile& file, unsigned long seconds) {
  for (const unsigned long option : {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                                     INTERNET_OPTION_RECEIVE_TIMEOUT}) {
    file.SetOption(option, seconds * 1000);
  }
}

}  // namespace

UrlParts ParseUrl(const std::string& url) {
  UrlParts parts = {};
  if (!qnParseURLEx(url.c_str(), parts.service, parts.server, parts.object, parts.port, parts.user,
                    parts.password, ICU_BROWSER_MODE)) {
    throw Failure("'" + url + "' is not a URL that can be parsed");
  }
  return parts;
}

HttpExchange::HttpExchange(const HttpRequest& request) : session_("qn"), label_(request.url) {
  const UrlParts url = ParseUrl(request.url);
  if (url.service != eServiceHttp && url.service != eServiceHttps) {
    throw Failure("'" + request.url + "' is neither an HTTP nor an HTTPS URL");
  }
  const unsigned long flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE |
                              (url.service == eServiceHttps ? INTERNET_FLAG_SECURE : 0);
  Guarded(label_, [&] {
    const char* user = url.user.IsEmpty() ? nullptr : static_cast<const char*>(url.user);
    const char* password = user != nullptr ? static_cast<const char*>(url.password) : nullptr;
    connection_.reset(session_.GetHttpConnection(url.server, url.port, user, password));
    file_.reset(connection_->OpenRequest(request.verb.c_str(), url.object, nullptr, 1, nullptr,
                                         "HTTP/1.1", flags));
    Prepare(*file_, request);
    std::string body = request.body;
    file_->SendRequest(nullptr, 0, body.data(), static_cast<unsigned long>(body.size()));
  });
  file_->QueryInfoStatusCode(status_);
}

void HttpExchange::Prepare(CQNHttpFile& file, const HttpRequest& request) {
  for (const std::string& header : request.headers) {
    if (!file.AddRequestHeaders(header.c_str(), HTTP_ADDREQ_FLAG_ADD | HTTP_ADDREQ_FLAG_REPLACE)) {
      throw Failure("'" + header + "' is not a header");
    }
  }
  if (request.timeout_seconds != 0) SetTimeouts(file, request.timeout_seconds);
  if (request.insecure) {
    file.SetOption(INTERNET_OPTION_SECURITY_FLAGS, SECURITY_FLAG_IGNORE_UNKNOWN_CA |
                                                       SECURITY_FLAG_IGNORE_CERT_CN_INVALID |
                                                       SECURITY_FLAG_IGNORE_CERT_DATE_INVALID);
  }
}

std::string HttpExchange::StatusLine() const {
  CQNString text;
  file_->QueryInfo(HTTP_QUERY_STATUS_TEXT, text);
  return std::to_string(status_) + (text.IsEmpty() ? "" : " " + TextOf(text));
}

std::string HttpExchange::Head() const {
  CQNString text;
  file_->QueryInfo(HTTP_QUERY_RAW_HEADERS_CRLF, text);
  return TextOf(text);
}

void HttpExchange::ReceiveBody(const std::function<void(std::string_view)>& sink) {
  const unsigned long long announced = AnnouncedLength(*file_);
  TransferProgress progress(ShortName(label_), announced);
  std::string block(kBlock, '\0');
  unsigned long long received = 0;
  for (;;) {
    const unsigned int count = Guarded(label_, [&] { return file_->Read(block.data(), kBlock); });
    if (count == 0) break;
    received += count;
    sink({block.data(), count});
    progress.Update(received);
  }
  if (received < announced) {
    throw Failure(label_ + ": " + std::to_string(received) + " of " + std::to_string(announced) +
                  " bytes received");
  }
}

}  // namespace qn
