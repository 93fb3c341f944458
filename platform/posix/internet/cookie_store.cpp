// SPDX-License-Identifier: MIT
#include "platform/posix/internet/cookie_store.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/posix/internet/head.h"
#include "platform/posix/internet/http_date.h"

namespace quarnfc::internet {
namespace {

// A server may not fill the memory of the process.
constexpr std::size_t kMostCookies = 3000;
constexpr std::size_t kLongestCookie = 4096;

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& ch : lower) {
    if (ch >= 'A' && ch <= 'Z') ch = static_cast<char>(ch | 0x20);
  }
  return lower;
}

std::string PathOf(const Target& target) {
  return target.object.substr(0, target.object.find('?'));
}

// The folder of the object, which is a cookie's path when it names none.
std::string DefaultPath(const Target& target) {
  const std::string path = PathOf(target);
  const std::size_t slash = path.rfind('/');
  return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

bool IsAddress(const std::string& host) {
  return host.find_first_not_of("0123456789.") == std::string::npos || host[0] == '[';
}

bool DomainMatches(const std::string& host, const std::string& domain) {
  if (host == domain) return true;
  return host.size() > domain.size() && host.ends_with(domain) &&
         host[host.size() - domain.size() - 1] == '.' && !IsAddress(host);
}

bool PathMatches(const std::string& path, const std::string& cookie_path) {
  if (!path.starts_with(cookie_path)) return false;
  return path.size() == cookie_path.size() || cookie_path.back() == '/' ||
         path[cookie_path.size()] == '/';
}

}  // namespace

CookieStore& TheCookies() {
  static CookieStore& store = *new CookieStore;
  return store;
}

bool CookieStore::Set(const Target& target, std::string_view text, CookieOrigin origin) {
  Parsed parsed;
  if (!Parse(target, text, parsed) || !Settle(target, origin, parsed)) return false;
  const std::lock_guard lock(mutex_);
  const Key key(parsed.domain, parsed.path, parsed.name);
  const auto existing = cookies_.find(key);
  if (parsed.expired) {
    if (existing != cookies_.end()) cookies_.erase(existing);
    return true;
  }
  if (existing == cookies_.end() && cookies_.size() >= kMostCookies) return false;
  parsed.cookie.created = existing != cookies_.end() ? existing->second.created : ++last_created_;
  cookies_[key] = parsed.cookie;
  return true;
}

bool CookieStore::Parse(const Target& target, std::string_view text, Parsed& parsed) {
  if (text.size() > kLongestCookie || text.find_first_of("\r\n") != std::string_view::npos) {
    return false;
  }
  const std::size_t end = text.find(';');
  const std::string_view pair = text.substr(0, end);
  const std::size_t equals = pair.find('=');
  if (equals == std::string_view::npos) return false;
  parsed.name = Trimmed(pair.substr(0, equals));
  parsed.cookie.value = Trimmed(pair.substr(equals + 1));
  if (parsed.name.empty()) return false;
  parsed.domain = Lower(target.host);
  parsed.path = DefaultPath(target);
  std::string_view rest = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  while (!rest.empty()) {
    const std::size_t next = rest.find(';');
    TakeAttribute(rest.substr(0, next), parsed);
    rest = next == std::string_view::npos ? std::string_view() : rest.substr(next + 1);
  }
  return true;
}

void CookieStore::TakeAttribute(std::string_view attribute, Parsed& parsed) {
  const std::size_t equals = attribute.find('=');
  const std::string name = Lower(Trimmed(attribute.substr(0, equals)));
  std::string value;
  if (equals != std::string_view::npos) value = Trimmed(attribute.substr(equals + 1));
  if (name == "secure") {
    parsed.cookie.secure = true;
  } else if (name == "httponly") {
    parsed.cookie.http_only = true;
  } else if (name == "path" && !value.empty() && value[0] == '/') {
    parsed.path = value;
  } else if (name == "domain" && value.size() > (value[0] == '.' ? 1u : 0u)) {
    parsed.domain = Lower(value[0] == '.' ? value.substr(1) : value);
    parsed.cookie.host_only = false;
  } else if (name == "max-age" && !value.empty()) {
    const long long seconds = std::strtoll(value.c_str(), nullptr, 10);
    parsed.expired = seconds <= 0;
    constexpr long long kLongest = 400LL * 24 * 3600;
    parsed.cookie.expires = std::time(nullptr) + std::min(seconds, kLongest);
  } else if (name == "expires" && parsed.cookie.expires == 0) {
    std::time_t expires = 0;
    if (!ParseHttpDate(value, expires)) return;
    parsed.cookie.expires = expires;
    parsed.expired = expires <= std::time(nullptr);
  }
}

// Checks that the target may set the cookie.
bool CookieStore::Settle(const Target& target, CookieOrigin origin, Parsed& parsed) {
  const std::string host = Lower(target.host);
  if (!DomainMatches(host, parsed.domain)) return false;
  // A domain without a dot inside, such as "com", would reach everybody's servers.
  if (parsed.domain != host && parsed.domain.find('.') == std::string::npos) return false;
  if (origin == CookieOrigin::kHost && parsed.cookie.http_only) return false;
  return !parsed.cookie.secure || target.secure;
}

std::string CookieStore::HeaderFor(const Target& target) { return Join(target, true); }

std::string CookieStore::TextFor(const Target& target) { return Join(target, false); }

std::string CookieStore::Join(const Target& target, bool for_server) {
  const std::lock_guard lock(mutex_);
  if (cookies_.empty()) return "";
  const std::time_t now = std::time(nullptr);
  std::erase_if(cookies_, [now](const auto& entry) {
    return entry.second.expires != 0 && entry.second.expires <= now;
  });
  using Entry = std::pair<const Key, Cookie>;
  std::vector<const Entry*> sent;
  const std::string host = Lower(target.host);
  const std::string path = PathOf(target);
  for (const Entry& entry : cookies_) {
    const auto& [domain, cookie_path, name] = entry.first;
    const Cookie& cookie = entry.second;
    const bool host_matches = cookie.host_only ? host == domain : DomainMatches(host, domain);
    if (host_matches && PathMatches(path, cookie_path) && (!cookie.secure || target.secure) &&
        (!cookie.http_only || for_server)) {
      sent.push_back(&entry);
    }
  }
  std::sort(sent.begin(), sent.end(), [](const Entry* left, const Entry* right) {
    const std::size_t left_length = std::get<1>(left->first).size();
    const std::size_t right_length = std::get<1>(right->first).size();
    if (left_length != right_length) return left_length > right_length;
    return left->second.created < right->second.created;
  });
  std::string text;
  for (const Entry* entry : sent) {
    if (!text.empty()) text += "; ";
    text += std::get<2>(entry->first) + "=" + entry->second.value;
  }
  return text;
}

}  // namespace quarnfc::internet
