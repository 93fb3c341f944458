// SPDX-License-Identifier: MIT
// What HttpQueryInfoA tells.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/posix/internet/http_date.h"
#include "platform/posix/internet/request.h"

namespace {

using quarnfc::internet::Answer;
using quarnfc::internet::Answering;
using quarnfc::internet::Find;
using quarnfc::internet::Header;
using quarnfc::internet::Headers;
using quarnfc::internet::ParseHttpDate;
using quarnfc::internet::Request;
using quarnfc::internet::StoreText;

constexpr DWORD kLevelMask = 0x0000FFFF;

struct NamedLevel {
  DWORD level;
  const char* header;
};

constexpr NamedLevel kHeaders[] = {{HTTP_QUERY_CONTENT_TYPE, "Content-Type"},
                                   {HTTP_QUERY_CONTENT_LENGTH, "Content-Length"},
                                   {HTTP_QUERY_DATE, "Date"},
                                   {HTTP_QUERY_EXPIRES, "Expires"},
                                   {HTTP_QUERY_LAST_MODIFIED, "Last-Modified"},
                                   {HTTP_QUERY_ACCEPT_RANGES, "Accept-Ranges"},
                                   {HTTP_QUERY_CONTENT_ENCODING, "Content-Encoding"},
                                   {HTTP_QUERY_LOCATION, "Location"},
                                   {HTTP_QUERY_SERVER, "Server"},
                                   {HTTP_QUERY_WWW_AUTHENTICATE, "WWW-Authenticate"},
                                   {HTTP_QUERY_SET_COOKIE, "Set-Cookie"},
                                   {HTTP_QUERY_CONTENT_RANGE, "Content-Range"},
                                   {HTTP_QUERY_ETAG, "ETag"},
                                   {HTTP_QUERY_TRANSFER_ENCODING, "Transfer-Encoding"}};

const char* HeaderOf(DWORD level) {
  for (const NamedLevel& named : kHeaders) {
    if (named.level == level) return named.header;
  }
  return nullptr;
}

// The lines of a head, each with end behind it.
std::string RawHeaders(const Request& request, bool of_request, std::string_view end) {
  std::string text;
  const auto add = [&text, end](const std::string& line) { (text += line) += end; };
  if (!of_request) {
    for (const std::string& line : request.response_lines) add(line);
    return text;
  }
  add(request.verb + " " + request.target.object + (request.http_1_0 ? " HTTP/1.0" : " HTTP/1.1"));
  for (const Header& header : request.headers.All()) add(header.name + ": " + header.value);
  return text;
}

// What a level that is no header needs to be there.
enum class Needs { kNothing, kResponse, kResponseUnlessOfRequest };

bool IsThere(const Request& request, Needs needs, bool of_request) {
  if (needs == Needs::kNothing) return true;
  if (needs == Needs::kResponseUnlessOfRequest && of_request) return true;
  return !request.response_lines.empty();
}

struct Fact {
  DWORD level;
  Needs needs;
  std::string (*text)(const Request& request, bool of_request);
};

constexpr Fact kFacts[] = {
    {HTTP_QUERY_VERSION, Needs::kResponse,
     [](const Request& request, bool) { return request.response.version; }},
    {HTTP_QUERY_STATUS_CODE, Needs::kResponse,
     [](const Request& request, bool) { return std::to_string(request.response.status); }},
    {HTTP_QUERY_STATUS_TEXT, Needs::kResponse,
     [](const Request& request, bool) { return request.response.reason; }},
    {HTTP_QUERY_REQUEST_METHOD, Needs::kNothing,
     [](const Request& request, bool) { return request.verb; }},
    {HTTP_QUERY_RAW_HEADERS, Needs::kResponseUnlessOfRequest,
     [](const Request& request, bool of_request) {
       return RawHeaders(request, of_request, std::string_view("\0", 1));
     }},
    {HTTP_QUERY_RAW_HEADERS_CRLF, Needs::kResponseUnlessOfRequest,
     [](const Request& request, bool of_request) {
       return RawHeaders(request, of_request, "\r\n") + "\r\n";
     }}};

// The text of a level; error says why there is none, indexed whether it is one of several.
DWORD TextOfLevel(const Request& request, DWORD level, const char* custom, DWORD skip,
                  bool& indexed, std::string& text) {
  const bool of_request = (level & HTTP_QUERY_FLAG_REQUEST_HEADERS) != 0;
  const DWORD what = level & kLevelMask;
  const auto* const fact = std::find_if(std::begin(kFacts), std::end(kFacts),
                                        [what](const Fact& each) { return each.level == what; });
  if (fact != std::end(kFacts)) {
    if (!IsThere(request, fact->needs, of_request)) return ERROR_HTTP_HEADER_NOT_FOUND;
    text = fact->text(request, of_request);
    return 0;
  }
  const char* name = what == HTTP_QUERY_CUSTOM ? custom : HeaderOf(what);
  if (name == nullptr) return ERROR_HTTP_INVALID_QUERY_REQUEST;
  const Headers& headers = of_request ? request.headers : request.response.headers;
  const std::string* value = headers.Find(name, skip);
  if (value == nullptr) return ERROR_HTTP_HEADER_NOT_FOUND;
  indexed = true;
  text = *value;
  return 0;
}

DWORD StoreNumber(const std::string& text, void* buffer, DWORD& length) {
  char* end = nullptr;
  const unsigned long long number = std::strtoull(text.c_str(), &end, 10);
  if (end == text.c_str() || text[0] == '-') return ERROR_HTTP_INVALID_HEADER;
  // Greater ones do not fit what hosts ask for: their text tells them.
  if (number > 0xFFFFFFFF) return ERROR_HTTP_INVALID_HEADER;
  const bool fits = buffer != nullptr && length >= sizeof(DWORD);
  length = sizeof(DWORD);
  if (!fits) return ERROR_INSUFFICIENT_BUFFER;
  const DWORD stored = static_cast<DWORD>(number);
  std::memcpy(buffer, &stored, sizeof(stored));
  return 0;
}

DWORD StoreTime(const std::string& text, void* buffer, DWORD& length) {
  SYSTEMTIME time = {};
  std::time_t seconds = 0;
  if (!ParseHttpDate(text, seconds)) return ERROR_HTTP_INVALID_HEADER;
  const bool fits = buffer != nullptr && length >= sizeof(time);
  length = sizeof(time);
  if (!fits) return ERROR_INSUFFICIENT_BUFFER;
  std::tm parts = {};
  gmtime_r(&seconds, &parts);
  time.wYear = static_cast<unsigned short>(parts.tm_year + 1900);
  time.wMonth = static_cast<unsigned short>(parts.tm_mon + 1);
  time.wDayOfWeek = static_cast<unsigned short>(parts.tm_wday);
  time.wDay = static_cast<unsigned short>(parts.tm_mday);
  time.wHour = static_cast<unsigned short>(parts.tm_hour);
  time.wMinute = static_cast<unsigned short>(parts.tm_min);
  time.wSecond = static_cast<unsigned short>(parts.tm_sec);
  std::memcpy(buffer, &time, sizeof(time));
  return 0;
}

// In the form that the level asks for.
DWORD Store(DWORD level, const std::string& text, void* buffer, DWORD& length) {
  if ((level & HTTP_QUERY_FLAG_NUMBER) != 0) return StoreNumber(text, buffer, length);
  if ((level & HTTP_QUERY_FLAG_SYSTEMTIME) != 0) return StoreTime(text, buffer, length);
  return StoreText(text, buffer, length);
}

DWORD Query(const Request& request, DWORD level, void* buffer, DWORD& length, DWORD* index) {
  const bool custom = (level & kLevelMask) == HTTP_QUERY_CUSTOM;
  if (custom && buffer == nullptr) return ERROR_INVALID_PARAMETER;
  const std::string name = custom ? static_cast<const char*>(buffer) : "";
  const DWORD skip = index != nullptr ? *index : 0;
  bool indexed = false;
  std::string text;
  DWORD error = TextOfLevel(request, level, name.c_str(), skip, indexed, text);
  if (error == 0) error = Store(level, text, buffer, length);
  if (error == 0 && indexed && index != nullptr) ++*index;
  return error;
}

}  // namespace

int HttpQueryInfoA(HINTERNET request, DWORD level, void* buffer, DWORD* length, DWORD* index) {
  return Answering(0, [&] {
    const auto found = Find<Request>(request);
    if (found == nullptr) return 0;
    if (length == nullptr) return Answer(ERROR_INVALID_PARAMETER);
    return Answer(Query(*found, level, buffer, *length, index));
  });
}
