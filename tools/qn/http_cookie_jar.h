// SPDX-License-Identifier: MIT
// Cookies of qn http that outlive the command: a file in the format of Netscape, as curl and
// browsers exchange it.
#ifndef QN_HTTP_COOKIE_JAR_H_
#define QN_HTTP_COOKIE_JAR_H_

#include <string>
#include <string_view>
#include <vector>

#include "qn/http_url.h"

namespace qn {

class HttpCookieJar {
 public:
  // Adds the cookies of a file; one that does not exist has none. Lines that are no cookies are
  // left out. Throws Failure when the file cannot be read.
  void Load(const std::string& path);

  // Writes every cookie that has not expired. Throws Failure.
  void Save(const std::string& path) const;

  // Keeps what a response of url sets with a header Set-Cookie (RFC 6265), or forgets what it takes
  // back. A cookie that url may not set is left out.
  void Take(const HttpUrl& url, std::string_view set_cookie);

  // The header Cookie for a request to url, "name=value; name=value"; "" for none.
  std::string HeaderFor(const HttpUrl& url) const;

 private:
  struct Cookie {
    std::string domain;  // without a leading dot
    bool subdomains = false;
    std::string path;
    bool secure = false;
    bool http_only = false;
    long long expires = 0;  // seconds since 1970; 0 at the end of the session
    std::string name;
    std::string value;

    bool ComesFrom(const Cookie& other) const {
      return name == other.name && domain == other.domain && path == other.path;
    }
    bool HasExpired() const;
    bool BelongsTo(const HttpUrl& url) const;
    std::string Line() const;
  };

  static bool ParseLine(std::string_view line, Cookie& cookie);
  static void TakeAttribute(std::string_view attribute, Cookie& cookie);
  void Put(const Cookie& cookie);

  std::vector<Cookie> cookies_;
};

// A date of a cookie, such as "Sun, 06 Nov 1994 08:49:37 GMT" or "Sunday, 06-Nov-94 08:49:37 GMT",
// in seconds since 1970; 0 for anything else.
long long CookieDate(std::string_view text);

}  // namespace qn

#endif  // QN_HTTP_COOKIE_JAR_H_
