// SPDX-License-Identifier: MIT
// The cookies of the process (RFC 6265).
//
//   text      = name "=" value { ";" attribute }
//   attribute = "secure" | "httponly" | ( "path" | "domain" | "max-age" | "expires" ) "=" value
//
// with blanks around every part left out. One pass, no recursion; memory is bounded, since a cookie
// has at most 4,096 bytes and the store 3,000 of them. Deviations from the RFC, all deliberate: a
// cookie lives 400 days at most by max-age; there is no list of public suffixes, a domain without a
// dot inside is refused instead; what servers mark for HTTP only no host sees or sets.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_COOKIE_STORE_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_COOKIE_STORE_H_

#include <ctime>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <tuple>

#include "platform/posix/internet/url.h"

namespace quarnfc::internet {

enum class CookieOrigin { kServer, kHost };  // a Set-Cookie header; a host's call

// Cookies by domain, path and name (RFC 6265). Every member may be called on any thread.
class CookieStore {
 public:
  // Takes "name=value; attributes" that came from, or is meant for, a target. False when it is no
  // cookie or is not that target's to set. An expired one removes what was there.
  bool Set(const Target& target, std::string_view text, CookieOrigin origin);

  // "name=value; name=value" of the cookies that a request to target carries, the ones of longer
  // paths first.
  std::string HeaderFor(const Target& target);

  // The same without those that only servers may see.
  std::string TextFor(const Target& target);

 private:
  struct Cookie {
    std::string value;
    std::time_t expires = 0;  // 0: with the process
    bool secure = false;
    bool http_only = false;
    bool host_only = true;
    unsigned __int64 created = 0;
  };
  using Key = std::tuple<std::string, std::string, std::string>;  // domain, path, name

  struct Parsed {
    std::string name;
    std::string domain;
    std::string path;
    bool expired = false;
    Cookie cookie;
  };

  static bool Parse(const Target& target, std::string_view text, Parsed& parsed);
  static void TakeAttribute(std::string_view attribute, Parsed& parsed);
  static bool Settle(const Target& target, CookieOrigin origin, Parsed& parsed);
  std::string Join(const Target& target, bool for_server);

  std::mutex mutex_;
  std::map<Key, Cookie> cookies_;
  unsigned __int64 last_created_ = 0;
};

CookieStore& TheCookies();

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_COOKIE_STORE_H_
