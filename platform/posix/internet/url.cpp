// SPDX-License-Identifier: MIT
#include "platform/posix/internet/url.h"

#include <quarnfc/internet_api.h>
#include <quarnfc/percent_encoding.h>

#include <utility>
#include <vector>

#include "platform/posix/internet/head.h"

namespace quarnfc::internet {
namespace {

bool IsSchemeCharacter(char ch) {
  const char lower = static_cast<char>(ch | 0x20);
  return (lower >= 'a' && lower <= 'z') || (ch >= '0' && ch <= '9') || ch == '+' || ch == '-' ||
         ch == '.';
}

// "user:password@host:port" in its parts.
void SplitAuthority(std::string_view text, UrlParts& parts) {
  const std::size_t at = text.rfind('@');
  if (at != std::string_view::npos) {
    const std::string_view credentials = text.substr(0, at);
    const std::size_t colon = credentials.find(':');
    parts.user = credentials.substr(0, colon);
    if (colon != std::string_view::npos) parts.password = credentials.substr(colon + 1);
    text.remove_prefix(at + 1);
  }
  const std::size_t bracket = text.empty() || text[0] != '[' ? 0 : text.find(']');
  const std::size_t colon = bracket == std::string_view::npos ? bracket : text.find(':', bracket);
  parts.host = text.substr(0, colon);
  if (colon != std::string_view::npos) parts.port = text.substr(colon + 1);
}

}  // namespace

bool ParsePort(const std::string& text, unsigned short& port) {
  if (text.empty()) return true;
  unsigned int number = 0;
  for (const char ch : text) {
    if (ch < '0' || ch > '9') return false;
    number = number * 10 + static_cast<unsigned int>(ch - '0');
    if (number > 0xFFFF) return false;
  }
  port = static_cast<unsigned short>(number);
  return true;
}

bool SplitUrl(std::string_view url, UrlParts& parts) {
  parts = UrlParts();
  std::size_t end = 0;
  while (end < url.size() && IsSchemeCharacter(url[end])) ++end;
  if (end == 0 || end == url.size() || url[end] != ':') return false;
  for (const char ch : url.substr(0, end)) {
    parts.scheme += ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch | 0x20) : ch;
  }
  url.remove_prefix(end + 1);
  const std::size_t extra = url.find_first_of("?#");
  if (extra != std::string_view::npos) {
    parts.extra = url.substr(extra);
    url = url.substr(0, extra);
  }
  parts.has_authority = url.substr(0, 2) == "//";
  if (parts.has_authority) {
    url.remove_prefix(2);
    const std::size_t slash = url.find('/');
    SplitAuthority(url.substr(0, slash), parts);
    url = slash == std::string_view::npos ? std::string_view() : url.substr(slash);
  }
  parts.path = url;
  return true;
}

std::string EscapeObject(std::string_view text) {
  std::string escaped;
  for (const char ch : text) {
    const auto byte = static_cast<unsigned char>(ch);
    if (byte > ' ' && byte != 0x7F) {
      escaped += ch;
    } else {
      QNPercentEncoding::AppendEscape(escaped, ch);
    }
  }
  return escaped;
}

std::string WithoutDots(std::string_view path) {
  std::vector<std::string_view> segments;
  const bool rooted = !path.empty() && path[0] == '/';
  if (rooted) path.remove_prefix(1);
  bool open = true;  // whether the path ends with a "/"
  while (open) {
    const std::size_t slash = path.find('/');
    const std::string_view segment = path.substr(0, slash);
    open = slash != std::string_view::npos;
    path = open ? path.substr(slash + 1) : std::string_view();
    const bool dot = segment == ".";
    const bool up = segment == "..";
    if (up && !segments.empty()) segments.pop_back();
    if (!dot && !up) segments.push_back(segment);
    if (!open && (dot || up)) segments.emplace_back();
  }
  std::string clean = rooted ? "/" : "";
  for (std::size_t i = 0; i < segments.size(); ++i) {
    if (i != 0) clean += '/';
    clean += segments[i];
  }
  return clean;
}

Target MakeTarget(bool secure, const std::string& host, unsigned short port,
                  const std::string& object) {
  Target target;
  target.secure = secure;
  target.host = host;
  target.port = port != 0 ? port : static_cast<unsigned short>(secure ? 443 : 80);
  const bool rooted = !object.empty() && (object[0] == '/' || object[0] == '*');
  std::string path(rooted ? 0 : 1, '/');
  path.append(object, 0, object.find('#'));
  target.object = EscapeObject(path);
  return target;
}

DWORD ParseTarget(const char* url, Target& target) {
  if (url == nullptr) return ERROR_INVALID_PARAMETER;
  UrlParts parts;
  if (!SplitUrl(url, parts)) return ERROR_INTERNET_UNRECOGNIZED_SCHEME;
  const bool secure = parts.scheme == "https";
  if (!secure && parts.scheme != "http") return ERROR_INTERNET_UNRECOGNIZED_SCHEME;
  unsigned short port = 0;
  if (!parts.has_authority || parts.host.empty() || !ParsePort(parts.port, port)) {
    return ERROR_INTERNET_INVALID_URL;
  }
  target = MakeTarget(secure, parts.host, port, WithoutDots(parts.path) + parts.extra);
  target.user = QNPercentEncoding::Decode(parts.user);
  target.password = QNPercentEncoding::Decode(parts.password);
  return 0;
}

// RFC 3986, 5.2.2.
bool ResolveReference(const Target& base, const std::string& reference, Target& target) {
  UrlParts parts;
  std::string absolute;
  const std::string scheme = base.secure ? "https:" : "http:";
  const std::string path = base.object.substr(0, base.object.find('?'));
  if (SplitUrl(reference, parts)) {
    absolute = reference;
  } else if (reference.substr(0, 2) == "//") {
    absolute = scheme + reference;
  } else {
    Target root = base;
    if (!reference.empty() && reference[0] == '/') {
      root.object = reference;
    } else if (reference.empty() || reference[0] == '?' || reference[0] == '#') {
      root.object = path + reference;
    } else {
      root.object = path.substr(0, path.rfind('/') + 1) + reference;
    }
    absolute = TextOf(root);
  }
  if (ParseTarget(absolute.c_str(), target) != 0) return false;
  target.user.clear();
  target.password.clear();
  return true;
}

std::string TextOf(const Target& target) {
  const unsigned short usual = target.secure ? 443 : 80;
  std::string text = target.secure ? "https://" : "http://";
  text += target.host;
  if (target.port != usual) text.append(1, ':').append(std::to_string(target.port));
  return text + target.object;
}

}  // namespace quarnfc::internet
