// SPDX-License-Identifier: MIT
// How libcurl is told what to send.
#include <quarnfc/internet_api.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "platform/posix/internet/curl_certificates.h"
#include "platform/posix/internet/curl_exchange.h"
#include "platform/posix/internet/late_curl.h"

namespace quarnfc::internet {
namespace {

constexpr long kReceiveBuffer = 256 * 1024;

// Whether a request over plain HTTP may go through a proxy, which then wants the whole URL and may
// speak TLS.
bool MayMeetProxy(const Route& route) {
  if (route.secure || route.proxy.access_type == INTERNET_OPEN_TYPE_DIRECT) return false;
  return route.proxy.access_type == INTERNET_OPEN_TYPE_PROXY ||
         std::getenv("http_proxy") != nullptr || std::getenv("all_proxy") != nullptr;
}

// Hosts that are reached directly, as libcurl wants them.
std::string DirectHosts(const std::string& bypass) {
  std::string hosts = bypass;
  for (char& ch : hosts) {
    if (ch == ' ' || ch == ';') ch = ',';
  }
  const std::size_t local = hosts.find("<local>");
  if (local != std::string::npos) hosts.replace(local, 7, "localhost,127.0.0.1,::1");
  return hosts;
}

// Whether libcurl has kept a copy of the text.
bool Tell(CURL* easy, CURLoption option, const std::string& text) {
  return curl_easy_setopt(easy, option, text.c_str()) == CURLE_OK;
}

using HeaderList = std::unique_ptr<curl_slist, ListCloser>;

bool Append(HeaderList& list, const char* line) {
  curl_slist* longer = curl_slist_append(list.get(), line);
  if (longer == nullptr) return false;
  (void)list.release();
  list.reset(longer);
  return true;
}

bool IsAccept(const std::string& header) {
  return curl_strnequal(header.c_str(), "Accept:", 7) != 0;
}

// A header without a value is written with a semicolon there.
bool AppendHeader(HeaderList& list, const std::string& header) {
  const bool empty = header.ends_with(": ");
  return Append(list, empty ? (header.substr(0, header.size() - 2) + ";").c_str() : header.c_str());
}

// The headers as libcurl wants them; null when there is no memory.
HeaderList MakeHeaders(const OutgoingHead& head) {
  HeaderList list;
  // What libcurl would add by itself, unless the host has said it.
  const bool says_accept = std::any_of(head.headers.begin(), head.headers.end(), IsAccept);
  bool whole = says_accept || Append(list, "Accept:");
  if (head.body != BodyKind::kNone) whole = whole && Append(list, "Expect:");
  for (const std::string& header : head.headers) whole = whole && AppendHeader(list, header);
  if (head.body == BodyKind::kChunked) whole = whole && Append(list, "Transfer-Encoding: chunked");
  return whole ? std::move(list) : nullptr;
}

}  // namespace

DWORD CurlExchange::Configure(const OutgoingHead& head) {
  if (!LoadCurl()) return ERROR_MOD_NOT_FOUND;
  line_ = pool_->Take(head.route);
  if (line_ == nullptr) return ERROR_NOT_ENOUGH_MEMORY;
  if (!line_->knows_route) {
    if (const DWORD error = ConfigureRoute()) return error;
    line_->knows_route = true;
  }
  CURL* easy = line_->easy.get();
  may_signal_ = head.route.secure || MayMeetProxy(head.route);
  const auto connect_timeout = static_cast<long>(head.connect_timeout);
  curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS,
                   connect_timeout != 0 ? connect_timeout : LONG_MAX / 1000);
  curl_easy_setopt(easy, CURLOPT_HTTP_VERSION,
                   head.http_1_0 ? CURL_HTTP_VERSION_1_0 : CURL_HTTP_VERSION_1_1);
  ConfigureCallbacks();
  if (const DWORD error = ConfigureTarget(head)) return error;
  return ConfigureBody(head) && ConfigureHeaders(head) ? 0 : ERROR_NOT_ENOUGH_MEMORY;
}

// What every request of the route has in common.
DWORD CurlExchange::ConfigureRoute() {
  CURL* easy = line_->easy.get();
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(easy, CURLOPT_BUFFERSIZE, kReceiveBuffer);
  curl_easy_setopt(easy, CURLOPT_PATH_AS_IS, 1L);
  curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, OnHeader);
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, OnBody);
  curl_easy_setopt(easy, CURLOPT_READFUNCTION, OnUpload);
  curl_easy_setopt(easy, CURLOPT_SOCKOPTFUNCTION, OnSocket);
  curl_easy_setopt(easy, CURLOPT_PREREQFUNCTION, OnConnected);
  if (line_->route.secure && !RelaxCertificates(easy, line_->security_flags)) {
    return ERROR_INTERNET_SECURITY_CHANNEL_ERROR;
  }
  return ConfigureProxy() ? ConfigureServer() : ERROR_NOT_ENOUGH_MEMORY;
}

DWORD CurlExchange::ConfigureServer() {
  line_->url.reset(curl_url());
  CURLU* url = line_->url.get();
  if (url == nullptr) return ERROR_NOT_ENOUGH_MEMORY;
  const Route& route = line_->route;
  // An IPv6 address has brackets in URLs, which hosts may leave out.
  const bool bare_address = route.host.find(':') != std::string::npos && route.host[0] != '[';
  const std::string host = bare_address ? "[" + route.host + "]" : route.host;
  const std::string port = std::to_string(route.port);
  const bool set =
      curl_url_set(url, CURLUPART_SCHEME, route.secure ? "https" : "http", 0) == CURLUE_OK &&
      curl_url_set(url, CURLUPART_HOST, host.c_str(), 0) == CURLUE_OK &&
      curl_url_set(url, CURLUPART_PORT, port.c_str(), 0) == CURLUE_OK &&
      curl_url_set(url, CURLUPART_PATH, "/", 0) == CURLUE_OK;
  if (!set) return ERROR_INTERNET_INVALID_URL;
  curl_easy_setopt(line_->easy.get(), CURLOPT_CURLU, url);
  return 0;
}

bool CurlExchange::ConfigureProxy() {
  CURL* easy = line_->easy.get();
  const Route& route = line_->route;
  curl_easy_setopt(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
  bool told = true;
  if (route.proxy.access_type == INTERNET_OPEN_TYPE_DIRECT) {
    told = Tell(easy, CURLOPT_PROXY, "");
  } else if (route.proxy.access_type == INTERNET_OPEN_TYPE_PROXY) {
    told = Tell(easy, CURLOPT_PROXY, route.proxy.name) &&
           Tell(easy, CURLOPT_NOPROXY, DirectHosts(route.proxy.bypass));
  }
  if (route.proxy_user.empty()) return told;
  return told && Tell(easy, CURLOPT_PROXYUSERNAME, route.proxy_user) &&
         Tell(easy, CURLOPT_PROXYPASSWORD, route.proxy_password);
}

void CurlExchange::ConfigureCallbacks() {
  CURL* easy = line_->easy.get();
  for (const CURLoption data : {CURLOPT_HEADERDATA, CURLOPT_WRITEDATA, CURLOPT_READDATA,
                                CURLOPT_SOCKOPTDATA, CURLOPT_PREREQDATA}) {
    curl_easy_setopt(easy, data, this);
  }
}

// A proxy is told the whole URL, which libcurl then has to make itself. Where it cannot, the target
// of the request before must not be asked for instead.
DWORD CurlExchange::ConfigureTarget(const OutgoingHead& head) {
  const char* const target = head.target.c_str();
  const bool whole_url = MayMeetProxy(head.route);
  if (whole_url && curl_url_set(line_->url.get(), CURLUPART_PATH, target, 0) != CURLUE_OK) {
    return ERROR_INTERNET_INVALID_URL;
  }
  const char* const request_target = whole_url ? nullptr : target;
  return curl_easy_setopt(line_->easy.get(), CURLOPT_REQUEST_TARGET, request_target) == CURLE_OK
             ? 0
             : ERROR_NOT_ENOUGH_MEMORY;
}

// Every kind of request says all of it: the one before may have been of another kind.
bool CurlExchange::ConfigureBody(const OutgoingHead& head) {
  CURL* easy = line_->easy.get();
  chunked_ = head.body == BodyKind::kChunked;
  if (head.body == BodyKind::kNone) {
    curl_easy_setopt(easy, CURLOPT_HTTPGET, 1L);
  } else {
    curl_easy_setopt(easy, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(easy, CURLOPT_INFILESIZE_LARGE,
                     chunked_ ? curl_off_t{-1} : static_cast<curl_off_t>(head.body_length));
  }
  if (head.verb == "HEAD") curl_easy_setopt(easy, CURLOPT_NOBODY, 1L);
  return Tell(easy, CURLOPT_CUSTOMREQUEST, head.verb);
}

bool CurlExchange::ConfigureHeaders(const OutgoingHead& head) {
  CurlLine& line = *line_;
  if (line.headers != nullptr && line.body == head.body && line.header_lines == head.headers) {
    return true;
  }
  auto headers = MakeHeaders(head);
  if (headers == nullptr) return false;
  curl_easy_setopt(line.easy.get(), CURLOPT_HTTPHEADER, headers.get());
  line.headers = std::move(headers);
  line.header_lines = head.headers;
  line.body = head.body;
  return true;
}

}  // namespace quarnfc::internet
