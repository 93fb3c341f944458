// SPDX-License-Identifier: MIT
// What HttpQueryInfoA tells.
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iterator>
#include <string>

#include "platform/posix/internet/http_date.h"
#include "platform/posix/internet/request.h"

namespace {

using quarnfc::internet::Answer;
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

// The lines of a head, each with end, and an empty one behind them.
std::string RawHeaders(const Request& request, bool of_request, const char* end) {
  std::string text;
  if (of_request) {
    text = request.verb + " " + request.target.object + " HTTP/1." +
           (request.http_1_0 ? "0" : "1") + std::string(end, *end == '\0' ? 1 : 2);
    for (const Header& header : request.headers.All()) {
      text += header.name + ": " + header.value + std::string(end, *end == '\0' ? 1 : 2);
    }
  } else {
    for (const std::string& line : request.response_lines) {
      text += line + std::string(end, *end == '\0' ? 1 : 2);
    }
  }
  return text + (*end == '\0' ? "" : end);
}

// The text of a level; error says why there is none.
DWORD TextOfLevel(const Request& request, DWORD level, const char* custom, DWORD& skip,
                  bool& indexed, std::string& text) {
  const bool of_request = (level & HTTP_QUERY_FLAG_REQUEST_HEADERS) != 0;
  const DWORD what = level & kLevelMask;
  const bool answered = !request.response_lines.empty();
  indexed = false;
  switch (what) {
    case HTTP_QUERY_VERSION:
      text = request.response.version;
      return answered ? 0 : ERROR_HTTP_HEADER_NOT_FOUND;
    case HTTP_QUERY_STATUS_CODE:
      text = std::to_string(request.response.status);
      return answered ? 0 : ERROR_HTTP_HEADER_NOT_FOUND;
    case HTTP_QUERY_STATUS_TEXT:
      text = request.response.reason;
      return answered ? 0 : ERROR_HTTP_HEADER_NOT_FOUND;
    case HTTP_QUERY_REQUEST_METHOD:
      text = request.verb;
      return 0;
    case HTTP_QUERY_RAW_HEADERS:
      text = RawHeaders(request, of_request, "\0");
      return answered || of_request ? 0 : ERROR_HTTP_HEADER_NOT_FOUND;
    case HTTP_QUERY_RAW_HEADERS_CRLF:
      text = RawHeaders(request, of_request, "\r\n");
      return answered || of_request ? 0 : ERROR_HTTP_HEADER_NOT_FOUND;
    default:
      break;
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

DWORD Query(const Request& request, DWORD level, void* buffer, DWORD& length, DWORD* index) {
  const bool custom = (level & kLevelMask) == HTTP_QUERY_CUSTOM;
  if (custom && buffer == nullptr) return ERROR_INVALID_PARAMETER;
  const std::string name = custom ? static_cast<const char*>(buffer) : "";
  DWORD skip = index != nullptr ? *index : 0;
  bool indexed = false;
  std::string text;
  if (const DWORD error = TextOfLevel(request, level, name.c_str(), skip, indexed, text)) {
    return error;
  }
  DWORD error = 0;
  if ((level & HTTP_QUERY_FLAG_NUMBER) != 0) {
    error = StoreNumber(text, buffer, length);
  } else if ((level & HTTP_QUERY_FLAG_SYSTEMTIME) != 0) {
    error = StoreTime(text, buffer, length);
  } else {
    error = StoreText(text, buffer, length);
  }
  if (error == 0 && indexed && index != nullptr) ++*index;
  return error;
}

}  // namespace

int HttpQueryInfoA(HINTERNET request, DWORD level, void* buffer, DWORD* length, DWORD* index) {
  const auto found = Find<Request>(request);
  if (found == nullptr) return 0;
  if (length == nullptr) return Answer(ERROR_INVALID_PARAMETER);
  return Answer(Query(*found, level, buffer, *length, index));
}
