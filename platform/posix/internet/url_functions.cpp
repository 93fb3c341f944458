// SPDX-License-Identifier: MIT
// The URL functions, under the names the library calls.
#include <quarnfc/percent_encoding.h>

#include <cstring>
#include <string>

#include "platform/internet.h"
#include "platform/posix/internet/handle.h"
#include "platform/posix/internet/head.h"
#include "platform/posix/internet/request.h"
#include "platform/posix/internet/url.h"

namespace {

using quarnfc::internet::Answer;
using quarnfc::internet::ParsePort;
using quarnfc::internet::SplitUrl;
using quarnfc::internet::StoreText;
using quarnfc::internet::UrlParts;
using quarnfc::internet::WithoutDots;

struct Scheme {
  const char* name;
  INTERNET_SCHEME number;
  unsigned short port;
};

constexpr Scheme kSchemes[] = {
    {"ftp", INTERNET_SCHEME_FTP, 21},     {"gopher", INTERNET_SCHEME_GOPHER, 70},
    {"http", INTERNET_SCHEME_HTTP, 80},   {"https", INTERNET_SCHEME_HTTPS, 443},
    {"file", INTERNET_SCHEME_FILE, 0},    {"news", INTERNET_SCHEME_NEWS, 0},
    {"mailto", INTERNET_SCHEME_MAILTO, 0}};

const Scheme* FindScheme(const std::string& name) {
  for (const Scheme& scheme : kSchemes) {
    if (name == scheme.name) return &scheme;
  }
  return nullptr;
}

// Whether the objects of a scheme are paths of servers.
bool IsHierarchical(const std::string& scheme) {
  return scheme == "http" || scheme == "https" || scheme == "ftp" || scheme == "gopher";
}

// Without the white space around it and the line ends inside.
std::string Cleaned(const char* url) {
  std::string clean;
  for (; *url != '\0'; ++url) {
    if (*url != '\t' && *url != '\r' && *url != '\n') clean += *url;
  }
  const std::size_t start = clean.find_first_not_of(' ');
  if (start == std::string::npos) return "";
  return clean.substr(start, clean.find_last_not_of(' ') - start + 1);
}

// Whether canonical form writes a byte as %XX. An escape that is there already stays as it is.
bool IsUnsafe(unsigned char byte, DWORD flags) {
  if ((flags & ICU_NO_ENCODE) != 0) return byte == ' ' && (flags & ICU_ENCODE_SPACES_ONLY) != 0;
  if ((flags & ICU_ENCODE_SPACES_ONLY) != 0) return byte == ' ';
  return byte <= ' ' || byte == 0x7F || std::strchr("\"<>[\\]^`{|}", byte) != nullptr;
}

// The bytes of the character at text. Those of double-byte characters stay as they are, whatever
// the second one means by itself.
std::size_t CharacterSize(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  return lead > 0x80 && lead < 0xFF && text.size() > 1 ? 2 : 1;
}

std::string Encoded(std::string_view text, DWORD flags) {
  static const char kDigits[] = "0123456789ABCDEF";
  std::string encoded;
  while (!text.empty()) {
    const std::size_t size = CharacterSize(text);
    const auto byte = static_cast<unsigned char>(text[0]);
    if (byte < 0x80 && IsUnsafe(byte, flags)) {
      encoded += '%';
      encoded += kDigits[byte >> 4];
      encoded += kDigits[byte & 15];
    } else {
      encoded += text.substr(0, size);
    }
    text.remove_prefix(size);
  }
  return encoded;
}

std::string WithSlashes(std::string_view path) {
  std::string slashes;
  while (!path.empty()) {
    const std::size_t size = CharacterSize(path);
    slashes += path[0] == '\\' ? "/" : path.substr(0, size);
    path.remove_prefix(size);
  }
  return slashes;
}

// "user:password@host:port" with its credentials encoded.
std::string EncodedAuthority(std::string_view authority, DWORD flags) {
  const std::size_t at = authority.rfind('@');
  if (at == std::string_view::npos) return std::string(authority);
  return Encoded(authority.substr(0, at), flags) + std::string(authority.substr(at));
}

// Backslashes in front of the query count as slashes, as browsers take them.
std::string WithPlainSlashes(const std::string& url) {
  const std::size_t extra = url.find_first_of("?#");
  return WithSlashes(url.substr(0, extra)) + (extra == std::string::npos ? "" : url.substr(extra));
}

std::string Canonical(const std::string& text, DWORD flags) {
  UrlParts parts;
  if (!SplitUrl(text, parts)) return Encoded(text, flags);
  // A letter and a colon are a drive.
  if (parts.scheme.size() == 1) return "file:///" + Encoded(WithPlainSlashes(text), flags);
  const std::string url = IsHierarchical(parts.scheme) ? WithPlainSlashes(text) : text;
  SplitUrl(url, parts);
  if (!parts.has_authority || !IsHierarchical(parts.scheme)) {
    return parts.scheme + Encoded(std::string_view(url).substr(parts.scheme.size()), flags);
  }
  if (parts.path.empty()) parts.path.assign(1, '/');
  if ((flags & ICU_NO_META) == 0) parts.path = WithoutDots(parts.path);
  // Behind the path, where servers make their own rules, a browser changes nothing.
  const bool keeps_extra = (flags & ICU_BROWSER_MODE) != 0;
  const std::size_t authority = url.find("//") + 2;
  const std::size_t end = url.find_first_of("/?#", authority);
  return parts.scheme + "://" + EncodedAuthority(url.substr(authority, end - authority), flags) +
         Encoded(parts.path, flags) + (keeps_extra ? parts.extra : Encoded(parts.extra, flags));
}

// Copies a part that is wanted; false when its buffer is too small.
bool Store(const std::string& text, char* buffer, DWORD& length) {
  if (buffer == nullptr) return true;
  const bool fits = text.size() < length;
  length = static_cast<DWORD>(text.size()) + (fits ? 0 : 1);
  if (fits) std::memcpy(buffer, text.c_str(), text.size() + 1);
  return fits;
}

// Each part tells the length it needs, whichever of them does not fit.
bool StoreAll(const UrlParts& split, URL_COMPONENTSA& parts) {
  bool all = true;
  const auto store = [&all](const std::string& text, char* buffer, DWORD& length) {
    if (!Store(text, buffer, length)) all = false;
  };
  store(split.scheme, parts.lpszScheme, parts.dwSchemeLength);
  store(split.host, parts.lpszHostName, parts.dwHostNameLength);
  store(split.user, parts.lpszUserName, parts.dwUserNameLength);
  store(split.password, parts.lpszPassword, parts.dwPasswordLength);
  store(split.path, parts.lpszUrlPath, parts.dwUrlPathLength);
  store(split.extra, parts.lpszExtraInfo, parts.dwExtraInfoLength);
  return all;
}

// Whether a server is missing where the scheme's objects are on one.
bool LacksServer(const UrlParts& split) {
  return IsHierarchical(split.scheme) && (!split.has_authority || split.host.empty());
}

DWORD Crack(const std::string& url, DWORD flags, URL_COMPONENTSA& parts) {
  UrlParts split;
  if (!SplitUrl(url, split)) return ERROR_INTERNET_UNRECOGNIZED_SCHEME;
  const Scheme* scheme = FindScheme(split.scheme);
  unsigned short port = scheme != nullptr ? scheme->port : 0;
  if (!ParsePort(split.port, port) || LacksServer(split)) return ERROR_INTERNET_INVALID_URL;
  if (parts.lpszExtraInfo == nullptr) split.path += split.extra;
  if ((flags & (ICU_ESCAPE | ICU_DECODE)) != 0) split.path = QNPercentEncoding::Decode(split.path);
  if (!StoreAll(split, parts)) return ERROR_INSUFFICIENT_BUFFER;
  parts.nScheme = scheme != nullptr ? scheme->number : INTERNET_SCHEME_UNKNOWN;
  parts.nPort = port;
  return 0;
}

}  // namespace

int InternetCanonicalizeUrlA(const char* url, char* buffer, DWORD* length, DWORD flags) {
  if (url == nullptr || length == nullptr || *url == '\0') return Answer(ERROR_INVALID_PARAMETER);
  return Answer(StoreText(Canonical(Cleaned(url), flags), buffer, *length));
}

int InternetCrackUrlA(const char* url, DWORD length, DWORD flags, URL_COMPONENTSA* parts) {
  if (url == nullptr || parts == nullptr || parts->dwStructSize != sizeof(*parts)) {
    return Answer(ERROR_INVALID_PARAMETER);
  }
  const std::string text(url, length != 0 ? length : std::strlen(url));
  return Answer(Crack(text, flags, *parts));
}

HRESULT UrlUnescapeA(char* url, char* /*unescaped*/, DWORD* /*length*/, DWORD flags) {
  const std::string text(url);
  const bool keeps_extra = (flags & URL_DONT_UNESCAPE_EXTRA_INFO) != 0;
  const std::size_t end = keeps_extra ? text.find_first_of("?#") : std::string::npos;
  const std::string decoded = QNPercentEncoding::Decode(text.substr(0, end)) +
                              (end == std::string::npos ? "" : text.substr(end));
  std::memcpy(url, decoded.c_str(), decoded.size() + 1);
  return 0;
}
