// SPDX-License-Identifier: MIT
// URLs: parts, percent escapes, references (RFC 3986).
//
//   url       = scheme ":" [ "//" authority ] path [ "?" query ] [ "#" fragment ]
//   authority = [ user [ ":" password ] "@" ] host [ ":" port ]
//
// Parts are cut at the first delimiter, credentials at the last "@". Text is bytes; nothing
// recurses, memory is that of the parts. Deviations, deliberate: bytes are escaped only where a
// request cannot carry them (blanks, control characters), and references keep no credentials.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_URL_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_URL_H_

#include <quarnfc/platform_types.h>

#include <string>
#include <string_view>

namespace quarnfc::internet {

// A URL in its parts, as they stand in the text.
struct UrlParts {
  std::string scheme;  // lower case, without the colon
  bool has_authority = false;
  std::string user;
  std::string password;
  std::string host;  // an IPv6 address with its brackets
  std::string port;
  std::string path;   // with its leading "/", unless the scheme has no hierarchy
  std::string extra;  // "?query#fragment"
};

// False when the text starts with no scheme.
bool SplitUrl(std::string_view url, UrlParts& parts);

// The number of a port, up to 65,535; an empty text leaves port alone. False when it is none.
bool ParsePort(const std::string& text, unsigned short& port);

// Text with every byte escaped that may not stand in the object of a request.
std::string EscapeObject(std::string_view text);

// A path without "." and ".." segments.
std::string WithoutDots(std::string_view path);

// Where a request goes.
struct Target {
  bool secure = false;
  std::string host;
  unsigned short port = 0;
  std::string object;  // path and query, escaped
  std::string user;    // decoded
  std::string password;
};

Target MakeTarget(bool secure, const std::string& host, unsigned short port,
                  const std::string& object);

// An HTTP or HTTPS URL; the fragment is left out. Returns the error.
DWORD ParseTarget(const char* url, Target& target);

// The URL that reference means as seen from base. Credentials are not taken over.
bool ResolveReference(const Target& base, const std::string& reference, Target& target);

// The URL of a target, without credentials.
std::string TextOf(const Target& target);

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_URL_H_
