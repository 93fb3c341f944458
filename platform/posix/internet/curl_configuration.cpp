// SPDX-License-Identifier: MIT
// How libcurl is told what to send.
#include <quarnfc/internet_api.h>

#include <climits>
#include <cstdlib>

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

}  // namespace

DWORD CurlExchange::Configure(const OutgoingHead& head) {
  if (!LoadCurl()) return ERROR_MOD_NOT_FOUND;
  line_ = pool_->Take(head.route);
  if (line_.easy == nullptr || line_.multi == nullptr) return ERROR_NOT_ENOUGH_MEMORY;
  CURL* easy = line_.easy.get();
  connect_timeout_ = head.connect_timeout;
  security_flags_ = head.route.security_flags;
  may_signal_ = head.route.secure || MayMeetProxy(head.route);
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(easy, CURLOPT_BUFFERSIZE, kReceiveBuffer);
  curl_easy_setopt(easy, CURLOPT_PATH_AS_IS, 1L);
  curl_easy_setopt(easy, CURLOPT_HTTP_VERSION,
                   head.http_1_0 ? CURL_HTTP_VERSION_1_0 : CURL_HTTP_VERSION_1_1);
  curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS,
                   connect_timeout_ != 0 ? static_cast<long>(connect_timeout_) : LONG_MAX / 1000);
  if (head.route.secure && !RelaxCertificates(easy, security_flags_)) {
    return ERROR_INTERNET_SECURITY_CHANNEL_ERROR;
  }
  ConfigureProxy(head);
  ConfigureBody(head);
  ConfigureCallbacks();
  if (!ConfigureHeaders(head)) return ERROR_NOT_ENOUGH_MEMORY;
  return ConfigureUrl(head);
}

DWORD CurlExchange::ConfigureUrl(const OutgoingHead& head) {
  url_.reset(curl_url());
  if (url_ == nullptr) return ERROR_NOT_ENOUGH_MEMORY;
  const Route& route = head.route;
  // An IPv6 address has brackets in URLs, which hosts may leave out.
  const bool bare_address = route.host.find(':') != std::string::npos && route.host[0] != '[';
  const std::string host = bare_address ? "[" + route.host + "]" : route.host;
  const bool set =
      curl_url_set(url_.get(), CURLUPART_SCHEME, route.secure ? "https" : "http", 0) == CURLUE_OK &&
      curl_url_set(url_.get(), CURLUPART_HOST, host.c_str(), 0) == CURLUE_OK &&
      curl_url_set(url_.get(), CURLUPART_PORT, std::to_string(route.port).c_str(), 0) ==
          CURLUE_OK &&
      curl_url_set(url_.get(), CURLUPART_PATH, MayMeetProxy(route) ? head.target.c_str() : "/",
                   0) == CURLUE_OK;
  if (!set) return ERROR_INTERNET_INVALID_URL;
  curl_easy_setopt(line_.easy.get(), CURLOPT_CURLU, url_.get());
  if (!MayMeetProxy(route)) {
    curl_easy_setopt(line_.easy.get(), CURLOPT_REQUEST_TARGET, head.target.c_str());
  }
  return 0;
}

void CurlExchange::ConfigureBody(const OutgoingHead& head) {
  CURL* easy = line_.easy.get();
  chunked_ = head.body == BodyKind::kChunked;
  if (head.body == BodyKind::kNone) {
    curl_easy_setopt(easy, head.verb == "HEAD" ? CURLOPT_NOBODY : CURLOPT_HTTPGET, 1L);
  } else {
    curl_easy_setopt(easy, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(easy, CURLOPT_INFILESIZE_LARGE,
                     chunked_ ? curl_off_t{-1} : static_cast<curl_off_t>(head.body_length));
    curl_easy_setopt(easy, CURLOPT_READFUNCTION, OnUpload);
    curl_easy_setopt(easy, CURLOPT_READDATA, this);
    if (head.verb == "HEAD") curl_easy_setopt(easy, CURLOPT_NOBODY, 1L);
  }
  curl_easy_setopt(easy, CURLOPT_CUSTOMREQUEST, head.verb.c_str());
}

void CurlExchange::ConfigureProxy(const OutgoingHead& head) {
  CURL* easy = line_.easy.get();
  const Route& route = head.route;
  curl_easy_setopt(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
  if (route.proxy.access_type == INTERNET_OPEN_TYPE_DIRECT) {
    curl_easy_setopt(easy, CURLOPT_PROXY, "");
  } else if (route.proxy.access_type == INTERNET_OPEN_TYPE_PROXY) {
    curl_easy_setopt(easy, CURLOPT_PROXY, route.proxy.name.c_str());
    curl_easy_setopt(easy, CURLOPT_NOPROXY, DirectHosts(route.proxy.bypass).c_str());
  }
  if (route.proxy_user.empty()) return;
  curl_easy_setopt(easy, CURLOPT_PROXYUSERNAME, route.proxy_user.c_str());
  curl_easy_setopt(easy, CURLOPT_PROXYPASSWORD, route.proxy_password.c_str());
}

bool CurlExchange::ConfigureHeaders(const OutgoingHead& head) {
  // What libcurl would add by itself, unless the host has said it.
  std::vector<std::string> lines = {"Accept:", "Expect:"};
  // A header without a value is written with a semicolon there.
  for (const std::string& header : head.headers) {
    const bool empty = header.size() >= 2 && header.compare(header.size() - 2, 2, ": ") == 0;
    lines.push_back(empty ? header.substr(0, header.size() - 2) + ";" : header);
    const bool accept = curl_strnequal(header.c_str(), "Accept:", 7) != 0;
    if (accept) lines[0].clear();
  }
  if (chunked_) lines.emplace_back("Transfer-Encoding: chunked");
  for (const std::string& line : lines) {
    if (line.empty()) continue;
    curl_slist* longer = curl_slist_append(headers_.get(), line.c_str());
    if (longer == nullptr) return false;
    (void)headers_.release();
    headers_.reset(longer);
  }
  curl_easy_setopt(line_.easy.get(), CURLOPT_HTTPHEADER, headers_.get());
  return true;
}

void CurlExchange::ConfigureCallbacks() {
  CURL* easy = line_.easy.get();
  curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, OnHeader);
  curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, OnBody);
  curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
  curl_easy_setopt(easy, CURLOPT_SOCKOPTFUNCTION, OnSocket);
  curl_easy_setopt(easy, CURLOPT_SOCKOPTDATA, this);
  curl_easy_setopt(easy, CURLOPT_PREREQFUNCTION, OnConnected);
  curl_easy_setopt(easy, CURLOPT_PREREQDATA, this);
}

}  // namespace quarnfc::internet
