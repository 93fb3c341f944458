// SPDX-License-Identifier: MIT
// The internet functions of platform/internet.h off Windows: those that hosts may use as well, and
// the URL functions, which only the library calls.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_H_

#include <quarnfc/internet_api.h>

typedef int BOOL;

enum INTERNET_SCHEME {
  INTERNET_SCHEME_UNKNOWN = -1,
  INTERNET_SCHEME_FTP = 1,
  INTERNET_SCHEME_GOPHER = 2,
  INTERNET_SCHEME_HTTP = 3,
  INTERNET_SCHEME_HTTPS = 4,
  INTERNET_SCHEME_FILE = 5,
  INTERNET_SCHEME_NEWS = 6,
  INTERNET_SCHEME_MAILTO = 7,
};

// The parts of a URL. For each part that is wanted the caller gives a buffer and its size; a part
// without either is left out, and the query with the fragment then stays with the path.
struct URL_COMPONENTSA {
  DWORD dwStructSize;
  char* lpszScheme;
  DWORD dwSchemeLength;
  INTERNET_SCHEME nScheme;
  char* lpszHostName;
  DWORD dwHostNameLength;
  unsigned short nPort;
  char* lpszUserName;
  DWORD dwUserNameLength;
  char* lpszPassword;
  DWORD dwPasswordLength;
  char* lpszUrlPath;
  DWORD dwUrlPathLength;
  char* lpszExtraInfo;
  DWORD dwExtraInfoLength;
};

int InternetCanonicalizeUrlA(const char* url, char* buffer, DWORD* length, DWORD flags);
int InternetCrackUrlA(const char* url, DWORD length, DWORD flags, URL_COMPONENTSA* parts);

constexpr DWORD URL_UNESCAPE_INPLACE = 0x00100000;
constexpr DWORD URL_DONT_UNESCAPE_EXTRA_INFO = 0x02000000;

typedef int HRESULT;
constexpr bool FAILED(HRESULT result) { return result < 0; }
HRESULT UrlUnescapeA(char* url, char* unescaped, DWORD* length, DWORD flags);

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_H_
