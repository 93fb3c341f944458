// SPDX-License-Identifier: MIT
#include "qn/http_cookie_jar.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <ctime>

#include "qn/input_file.h"
#include "qn/os.h"
#include "qn/output_file.h"

namespace qn {
namespace {

constexpr std::string_view kHttpOnly = "#HttpOnly_";

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& ch : lower) ch = static_cast<char>(ch >= 'A' && ch <= 'Z' ? ch | 0x20 : ch);
  return lower;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// Takes the text in front of the next separator, or all of it, away from rest.
std::string_view Next(std::string_view& rest, char separator) {
  const std::size_t end = rest.find(separator);
  const std::string_view piece = rest.substr(0, end);
  rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
  return piece;
}

long long Number(std::string_view text) {
  long long number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool IsAddress(std::string_view host) {
  return host.find_first_not_of("0123456789.") == std::string_view::npos || host[0] == '[';
}

// Whether host is domain or lies below it.
bool LiesIn(std::string_view host, std::string_view domain) {
  if (host == domain) return true;
  return host.size() > domain.size() && host.ends_with(domain) && !IsAddress(host) &&
         host[host.size() - domain.size() - 1] == '.';
}

std::string PathOf(const HttpUrl& url) { return url.object.substr(0, url.object.find('?')); }

// The folder of the object, which is a cookie's path when it names none.
std::string FolderOf(const HttpUrl& url) {
  const std::string path = PathOf(url);
  const std::size_t slash = path.rfind('/');
  return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

int MonthOf(const std::string& name) {
  constexpr std::string_view kMonths = "janfebmaraprmayjunjulaugsepoctnovdec";
  const std::size_t at = kMonths.find(Lower(name));
  return at == std::string_view::npos || at % 3 != 0 ? 0 : static_cast<int>(at / 3) + 1;
}

}  // namespace

long long CookieDate(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return 0;
  const std::string rest(text.substr(comma + 1));
  int day = 0;
  int year = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
  char month[4] = "";
  const int found = std::sscanf(rest.c_str(), " %2d%*1[- ]%3[A-Za-z]%*1[- ]%4d %2d:%2d:%2d", &day,
                                month, &year, &hour, &minute, &second);
  if (found != 6 || hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 ||
      second > 60 || day < 1 || year < 0) {
    return 0;
  }
  if (year < 100) year += year < 70 ? 2000 : 1900;
  const std::chrono::year_month_day date(std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(MonthOf(month))),
                                         std::chrono::day(static_cast<unsigned>(day)));
  if (!date.ok()) return 0;
  const long long days = std::chrono::sys_days(date).time_since_epoch().count();
  return ((days * 24 + hour) * 60 + minute) * 60 + second;
}

bool HttpCookieJar::Cookie::HasExpired() const {
  return expires != 0 && expires <= static_cast<long long>(std::time(nullptr));
}

bool HttpCookieJar::Cookie::BelongsTo(const HttpUrl& url) const {
  const std::string host = Lower(url.server);
  const std::string object = PathOf(url);
  const bool below = object.starts_with(path) && (object.size() == path.size() ||
                                                  path.back() == '/' || object[path.size()] == '/');
  return below && (subdomains ? LiesIn(host, domain) : host == domain) &&
         (!secure || url.IsSecure()) && !HasExpired();
}

// domain, whether those below get it, path, secure, expires, name, value
std::string HttpCookieJar::Cookie::Line() const {
  const auto truth = [](bool is) { return is ? "\tTRUE\t" : "\tFALSE\t"; };
  return std::string(http_only ? kHttpOnly : "") + (subdomains ? "." : "") + domain +
         truth(subdomains) + path + truth(secure) + std::to_string(expires) + "\t" + name + "\t" +
         value + "\n";
}

bool HttpCookieJar::ParseLine(std::string_view line, Cookie& cookie) {
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  cookie.http_only = line.starts_with(kHttpOnly);
  if (cookie.http_only) line.remove_prefix(kHttpOnly.size());
  if (line.empty() || line[0] == '#' || std::count(line.begin(), line.end(), '\t') < 5) {
    return false;
  }
  std::string_view domain = Next(line, '\t');
  if (domain.starts_with('.')) domain.remove_prefix(1);
  cookie.domain = Lower(domain);
  cookie.subdomains = Next(line, '\t') == "TRUE";
  cookie.path = Next(line, '\t');
  cookie.secure = Next(line, '\t') == "TRUE";
  cookie.expires = Number(Next(line, '\t'));
  cookie.name = Next(line, '\t');
  cookie.value = line;
  return !cookie.domain.empty() && cookie.path.starts_with('/') && !cookie.name.empty();
}

void HttpCookieJar::Load(const std::string& path) {
  FILE* const file = os::OpenFile(path, "rb");
  if (file == nullptr) return;
  std::fclose(file);
  const std::string content = ReadInput(path);
  for (std::string_view rest = content; !rest.empty();) {
    Cookie cookie;
    if (ParseLine(Next(rest, '\n'), cookie)) Put(cookie);
  }
}

void HttpCookieJar::Save(const std::string& path) const {
  OutputFile file(path);
  file.Write("# Netscape HTTP Cookie File\n");
  for (const Cookie& cookie : cookies_) {
    if (!cookie.HasExpired()) file.Write(cookie.Line());
  }
  file.Commit();
}

void HttpCookieJar::Put(const Cookie& cookie) {
  const auto known = std::find_if(cookies_.begin(), cookies_.end(), [&cookie](const Cookie& other) {
    return other.ComesFrom(cookie);
  });
  if (known != cookies_.end()) {
    *known = cookie;
  } else {
    cookies_.push_back(cookie);
  }
}

void HttpCookieJar::TakeAttribute(std::string_view attribute, Cookie& cookie) {
  std::string_view value = attribute;
  const std::string name = Lower(Trimmed(Next(value, '=')));
  value = Trimmed(value);
  if (name == "secure") {
    cookie.secure = true;
  } else if (name == "httponly") {
    cookie.http_only = true;
  } else if (name == "path" && value.starts_with('/')) {
    cookie.path = value;
  } else if (name == "domain" && !value.empty()) {
    if (value.starts_with('.')) value.remove_prefix(1);
    cookie.domain = Lower(value);
    cookie.subdomains = true;
  } else if (name == "max-age" && !value.empty()) {
    constexpr long long kLongest = 400LL * 24 * 3600;
    const long long seconds = std::min(Number(value), kLongest);
    // One second after 1970 has passed for certain.
    cookie.expires = seconds > 0 ? static_cast<long long>(std::time(nullptr)) + seconds : 1;
  } else if (name == "expires" && cookie.expires == 0) {
    cookie.expires = CookieDate(value);
  }
}

void HttpCookieJar::Take(const HttpUrl& url, std::string_view set_cookie) {
  constexpr std::size_t kLongest = 4096;
  if (set_cookie.size() > kLongest || set_cookie.find('\t') != std::string_view::npos) return;
  std::string_view rest = set_cookie;
  std::string_view value = Next(rest, ';');
  if (value.find('=') == std::string_view::npos) return;
  Cookie cookie;
  const std::string host = Lower(url.server);
  cookie.domain = host;
  cookie.path = FolderOf(url);
  cookie.name = Trimmed(Next(value, '='));
  cookie.value = Trimmed(value);
  while (!rest.empty()) TakeAttribute(Next(rest, ';'), cookie);
  // A domain without a dot inside, such as "com", would reach everybody's servers.
  const bool wide = cookie.domain != host && cookie.domain.find('.') == std::string::npos;
  if (cookie.name.empty() || wide || !LiesIn(host, cookie.domain)) return;
  if (cookie.secure && !url.IsSecure()) return;
  Put(cookie);
}

std::string HttpCookieJar::HeaderFor(const HttpUrl& url) const {
  std::vector<const Cookie*> sent;
  for (const Cookie& cookie : cookies_) {
    if (cookie.BelongsTo(url)) sent.push_back(&cookie);
  }
  // Longer paths come first.
  std::stable_sort(sent.begin(), sent.end(), [](const Cookie* left, const Cookie* right) {
    return left->path.size() > right->path.size();
  });
  std::string text;
  for (const Cookie* cookie : sent) {
    text += (text.empty() ? "" : "; ") + cookie->name + "=" + cookie->value;
  }
  return text;
}

}  // namespace qn
