// SPDX-License-Identifier: MIT
// Headers of requests and heads of responses (RFC 9110, RFC 9112), line by line:
//
//   status line = "HTTP/" version " " three digits [ " " reason ]
//   header      = name { blank } ":" { blank } value { blank }
//
// Names compare without regard to the case of ASCII letters and keep their order; a name with a
// blank inside is none. Lines are not continued: of a response one that is no header is left out,
// of a host it is refused.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_HEAD_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_HEAD_H_

#include <quarnfc/internet_api.h>

#include <string>
#include <string_view>
#include <vector>

namespace quarnfc::internet {

struct Header {
  std::string name;
  std::string value;
};

bool EqualIgnoringCase(std::string_view left, std::string_view right);

// Text without the spaces and tabs around it.
std::string_view Trimmed(std::string_view text);

// "Name: value" in its parts; false when it is no header.
bool SplitHeader(std::string_view line, Header& header);

class Headers {
 public:
  // Adds every line of text, with one of the HTTP_ADDREQ_ flags.
  DWORD AddLines(std::string_view text, DWORD flags);

  void Add(std::string name, std::string value);
  void AddIfNew(const char* name, std::string value);
  void Remove(std::string_view name);

  // The value of a header; null when there is none. skip leaves out that many of the name.
  const std::string* Find(std::string_view name, DWORD skip = 0) const;

  const std::vector<Header>& All() const { return headers_; }

 private:
  DWORD AddOne(Header header, DWORD flags);
  Header* FindFirst(std::string_view name);

  std::vector<Header> headers_;
};

struct ResponseHead {
  std::string version;  // "HTTP/1.1"
  DWORD status = 0;
  std::string reason;
  Headers headers;

  // Reads the lines of a head. False when the first one is no status line; lines that are no
  // headers are left out.
  bool Parse(const std::vector<std::string>& lines);
};

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_HEAD_H_
