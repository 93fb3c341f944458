// SPDX-License-Identifier: MIT
#include "qn/http_client.h"

#include <quarnfc/base64.h>
#include <quarnfc/ext/http_response.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/http_api.h"
#include "qn/http_error.h"
#include "qn/http_inflater.h"
#include "qn/input_stream.h"
#include "qn/library_buffer.h"
#include "qn/transfer_progress.h"

namespace qn {
namespace {

constexpr unsigned int kBlock = 256 * 1024;

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

void SetTimeouts(CQNHttpFile& file, DWORD seconds) {
  for (const auto option : {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                            INTERNET_OPTION_RECEIVE_TIMEOUT}) {
    file.SetOption(static_cast<DWORD>(option), seconds * 1000);
  }
}

std::string Lower(std::string text) {
  for (char& ch : text) ch = static_cast<char>(ch >= 'A' && ch <= 'Z' ? ch | 0x20 : ch);
  return text;
}

std::string NameOf(const std::string& header) { return Lower(header.substr(0, header.find(':'))); }

// Whether a header belongs to the server it was meant for alone.
bool IsPrivate(const std::string& header) {
  const std::string name = NameOf(header);
  return name == "authorization" || name == "cookie" || name == "proxy-authorization";
}

bool HoldsName(const std::vector<std::string>& headers, const std::string& name) {
  return std::any_of(headers.begin(), headers.end(),
                     [&name](const std::string& header) { return NameOf(header) == name; });
}

std::string BasicCredentials(const std::string& user_and_password) {
  const LibraryBuffer<char> encoded(
      QNBase64::qnEncodeBase64A(reinterpret_cast<const unsigned char*>(user_and_password.data()),
                                static_cast<unsigned int>(user_and_password.size())));
  return std::string("Authorization: Basic ") + encoded.get();
}

void ShowHead(const std::string& mark, const std::string& head) {
  std::size_t start = 0;
  while (start < head.size()) {
    const std::size_t end = head.find("\r\n", start);
    std::fputs((mark + head.substr(start, end - start) + "\n").c_str(), stderr);
    if (end == std::string::npos) break;
    start = end + 2;
  }
}

}  // namespace

HttpExchange::HttpExchange(const HttpRequest& first)
    : session_("qn", 1, first.proxy.empty() ? 0 : INTERNET_OPEN_TYPE_PROXY,
               first.proxy.empty() ? nullptr : first.proxy.c_str()),
      compressed_(first.compressed),
      label_(first.url) {
  HttpRequest request = first;
  const HttpUrl own = ParseUrl(request.url);
  HttpUrl url = own;
  for (long long followed = 0;; ++followed) {
    if (!url.IsHttp()) throw Failure("'" + request.url + "' is neither an HTTP nor an HTTPS URL");
    Send(request, url, url.SameServer(own));
    if (first.redirects == 0 || !FindRedirect(request, url)) return;
    if (followed == first.redirects) {
      throw Failure(label_ + ": more than " + std::to_string(first.redirects) + " redirects");
    }
  }
}

void HttpExchange::Send(const HttpRequest& request, const HttpUrl& url, bool trusted) {
  const DWORD flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE |
                      INTERNET_FLAG_NO_AUTO_REDIRECT | INTERNET_FLAG_KEEP_CONNECTION |
                      (url.IsSecure() ? INTERNET_FLAG_SECURE : 0) |
                      (request.cookies != nullptr ? INTERNET_FLAG_NO_COOKIES : 0);
  Guarded(label_, [&] {
    file_.reset();
    connection_.reset(session_.GetHttpConnection(url.server.c_str(), url.port));
    file_.reset(connection_->OpenRequest(request.verb.c_str(), url.object.c_str(), nullptr, 1,
                                         nullptr, "HTTP/1.1", flags));
    Prepare(request, url, trusted);
    SendBody(request);
  });
  file_->QueryInfoStatusCode(status_);
  if (request.verbose) ShowHead("< ", Head());
  if (request.cookies != nullptr) TakeCookies(*request.cookies, url);
}

void HttpExchange::TakeCookies(HttpCookieJar& cookies, const HttpUrl& url) const {
  for (const auto& [name, value] : quarnfc::ext::HttpHeadersOf(Head())) {
    if (Lower(name) == "set-cookie") cookies.Take(url, value);
  }
}

void HttpExchange::AddHeaders(const HttpRequest& request, const HttpUrl& url, bool trusted) {
  std::vector<std::string> headers = request.headers;
  const std::string user = !request.user.empty() ? request.user
                           : url.user.empty()    ? ""
                                                 : url.user + ":" + url.password;
  if (!user.empty()) headers.push_back(BasicCredentials(user));
  if (!trusted) std::erase_if(headers, IsPrivate);
  if (request.resume_from != 0) {
    headers.push_back("Range: bytes=" + std::to_string(request.resume_from) + "-");
  }
  if (request.compressed && !HoldsName(headers, "accept-encoding")) {
    headers.emplace_back(HttpInflater::AcceptEncoding());
  }
  const std::string cookies = request.cookies != nullptr ? request.cookies->HeaderFor(url) : "";
  if (!cookies.empty() && !HoldsName(headers, "cookie")) headers.push_back("Cookie: " + cookies);
  for (const std::string& header : headers) {
    if (!file_->AddRequestHeaders(header.c_str(), HTTP_ADDREQ_FLAG_ADD)) {
      throw Failure("'" + header + "' is not a header");
    }
    if (request.verbose) ShowHead("> ", IsPrivate(header) ? "(credentials)" : header);
  }
}

void HttpExchange::Prepare(const HttpRequest& request, const HttpUrl& url, bool trusted) {
  if (request.verbose) ShowHead("> ", request.verb + " " + url.object + " HTTP/1.1");
  AddHeaders(request, url, trusted);
  if (request.timeout_seconds != 0) SetTimeouts(*file_, request.timeout_seconds);
  if (request.insecure) {
    file_->SetOption(INTERNET_OPTION_SECURITY_FLAGS, SECURITY_FLAG_IGNORE_UNKNOWN_CA |
                                                         SECURITY_FLAG_IGNORE_CERT_CN_INVALID |
                                                         SECURITY_FLAG_IGNORE_CERT_DATE_INVALID);
  }
}

void HttpExchange::SendBody(const HttpRequest& request) {
  if (!request.body_file.empty()) {
    SendFile(request.body_file);
    return;
  }
  std::string body = request.body;
  file_->SendRequest(nullptr, 0, body.data(), static_cast<DWORD>(body.size()));
}

// Piece by piece, so that the size of the file does not matter.
void HttpExchange::SendFile(const std::string& path) {
  InputStream input(path);
  const unsigned long long total = input.Size();
  if (total > 0xFFFFFFFF) throw Failure("more than 4 GiB cannot be sent");
  file_->SendRequestEx(static_cast<DWORD>(total));
  for (std::string piece = input.Read(kBlock); !piece.empty(); piece = input.Read(kBlock)) {
    file_->Write(piece.data(), static_cast<unsigned int>(piece.size()));
  }
  file_->EndRequest();
}

// Whether the response is a redirect; then request and url are those of the next hop.
bool HttpExchange::FindRedirect(HttpRequest& request, HttpUrl& url) {
  CQNString location;
  const bool moved =
      status_ == 301 || status_ == 302 || status_ == 303 || status_ == 307 || status_ == 308;
  if (!moved || !file_->QueryInfo(HTTP_QUERY_LOCATION, location)) return false;
  const HttpUrl next = ParseUrl(ResolveLocation(url, static_cast<const char*>(location)));
  if (url.IsSecure() && !next.IsSecure()) {
    throw Failure(label_ + ": a redirect leads from HTTPS to HTTP: " + next.Text());
  }
  if (status_ <= 303 && request.verb != "GET" && request.verb != "HEAD") {
    request.verb = "GET";
    request.has_body = false;
    request.body.clear();
    request.body_file.clear();
    std::erase_if(request.headers,
                  [](const std::string& header) { return header.rfind("Content-Type:", 0) == 0; });
  }
  // The user data of the first URL stays with its server; that of a Location is not asked for.
  const std::string user = url.user;
  const std::string password = url.password;
  const bool same = next.SameServer(url);
  url = next;
  url.user = same ? user : "";
  url.password = same ? password : "";
  return true;
}

std::string HttpExchange::StatusLine() const {
  CQNString text;
  file_->QueryInfo(HTTP_QUERY_STATUS_TEXT, text);
  std::string line = std::to_string(status_);
  if (!text.IsEmpty()) line.append(" ").append(FromLibrary(static_cast<const char*>(text)));
  return line;
}

std::string HttpExchange::Head() const {
  CQNString text;
  file_->QueryInfo(HTTP_QUERY_RAW_HEADERS_CRLF, text);
  return static_cast<const char*>(text);
}

// How the body is compressed; "" when it is not, or is to stay so.
std::string HttpExchange::Coding() const {
  CQNString text;
  if (!compressed_ || !file_->QueryInfo(HTTP_QUERY_CONTENT_ENCODING, text)) return "";
  return Lower(static_cast<const char*>(text));
}

void HttpExchange::ReceiveBody(const std::function<void(std::string_view)>& sink) {
  HttpInflater inflater(Coding());
  const unsigned long long announced = AnnouncedLength(*file_);
  TransferProgress progress(ShortName(label_), announced);
  std::string block(kBlock, '\0');
  unsigned long long received = 0;
  for (;;) {
    const unsigned int count = Guarded(label_, [&] { return file_->Read(block.data(), kBlock); });
    if (count == 0) break;
    received += count;
    inflater.Write({block.data(), count}, sink);
    progress.Update(received);
  }
  if (received < announced) {
    throw Failure(label_ + ": " + std::to_string(received) + " of " + std::to_string(announced) +
                  " bytes received");
  }
  inflater.Finish();
}

}  // namespace qn
