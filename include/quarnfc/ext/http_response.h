// SPDX-License-Identifier: MIT
// What an HTTP call brings: a response as a value, or why there is none.
//
// Text is what the server sent; messages are in the ANSI code page. Header-only, C++17. A plain
// value: one thread at a time.
//
// Example:
//   quarnfc::ext::HttpResponse response;
//   response.headers = quarnfc::ext::HttpHeadersOf("HTTP/1.1 200 OK\r\nETag: \"1\"\r\n\r\n");
//   response.Header("etag");    // == "\"1\""
#ifndef QUARNFC_EXT_HTTP_RESPONSE_H_
#define QUARNFC_EXT_HTTP_RESPONSE_H_

#include <quarnfc/internet_exception.h>
#include <quarnfc/platform_types.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnfc::ext {

// Name and value, without colon, outer blanks and line end.
using HttpHeader = std::pair<std::string, std::string>;

// Why a call brought no whole response.
enum class HttpFailure {
  kNone,
  kRequest,     // the URL or a header is none; nothing was sent
  kNetwork,     // the platform failed
  kDeadline,    // the time was up
  kCancelled,   // by the host
  kTooLarge,    // the body is larger than the host allows
  kIncomplete,  // the body ended before its announced length
  kTarget,      // the host's sink or file took no more
};

struct HttpResponse {
  HttpFailure failure = HttpFailure::kNone;
  // The platform's code of the failure, 0 for none: 12002 for the deadline, 12017 for cancelling,
  // 12030 for an incomplete body, 12005, 12006 or 87 for an unusable request, 223 for a body that
  // is too large, 29 for the target.
  DWORD code = 0;
  DWORD status = 0;                 // such as 200; 0 when no response came
  std::vector<HttpHeader> headers;  // in the order in which they came
  std::string body;                 // what of it was received when there was a failure

  // Whether the response is whole and its status is one of success, 200 to 299.
  bool Succeeded() const { return failure == HttpFailure::kNone && status / 100 == 2; }

  // The value of the first header of a name, upper and lower case alike; "" when there is none.
  std::string Header(std::string_view name) const;

  // The platform's text for the code; "" without a failure and where the platform has none.
  std::string Message() const {
    char text[512] = "";
    if (code != 0) CQNInternetException(code).GetErrorMessage(text, sizeof(text));
    return text;
  }
};

namespace detail {

inline bool SameHeaderName(std::string_view a, std::string_view b) {
  const auto lower = [](char ch) {
    return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch | 0x20) : ch;
  };
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return true;
}

inline std::string_view WithoutOuterBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace detail

inline std::string HttpResponse::Header(std::string_view name) const {
  for (const HttpHeader& header : headers) {
    if (detail::SameHeaderName(header.first, name)) return header.second;
  }
  return "";
}

// The headers of a head: its lines but the first, which is the status line. Lines without a colon
// are left out.
inline std::vector<HttpHeader> HttpHeadersOf(std::string_view head) {
  std::vector<HttpHeader> headers;
  for (std::size_t end = head.find('\n'); end != std::string_view::npos; end = head.find('\n')) {
    head.remove_prefix(end + 1);
    const std::string_view line = head.substr(0, head.find_first_of("\r\n"));
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) continue;
    headers.emplace_back(detail::WithoutOuterBlanks(line.substr(0, colon)),
                         detail::WithoutOuterBlanks(line.substr(colon + 1)));
  }
  return headers;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_HTTP_RESPONSE_H_
