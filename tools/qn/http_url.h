// SPDX-License-Identifier: MIT
// URLs of the command qn http.
#ifndef QN_HTTP_URL_H_
#define QN_HTTP_URL_H_

#include <quarnfc/platform_types.h>

#include <string>
#include <string_view>

namespace qn {

// A URL in its parts, ready for a request.
struct HttpUrl {
  DWORD service = 0;  // one of EQNServiceType
  std::string server;
  unsigned short port = 0;
  std::string object;    // path and query, without the fragment
  std::string user;      // decoded
  std::string password;  // decoded

  bool IsHttp() const;
  bool IsSecure() const;

  // Whether both lead to the same server, so that credentials for one may be sent to the other.
  bool SameServer(const HttpUrl& other) const;

  // The URL without credentials and fragment.
  std::string Text() const;
};

// Takes a URL apart. Bytes above 127 are escaped as they stand, which is UTF-8 as browsers send
// it. Throws Failure when the URL cannot be parsed.
HttpUrl ParseUrl(const std::string& url);

// The URL that a Location header means as seen from base.
std::string ResolveLocation(const HttpUrl& base, std::string_view location);

// The last part of the path, as -O names its file; "" when there is none, or none that is the plain
// name of a file in the current folder: "..", a separator or a control character in it.
std::string RemoteName(const HttpUrl& url);

}  // namespace qn

#endif  // QN_HTTP_URL_H_
