// SPDX-License-Identifier: MIT
#include <quarnfc/internet.h>

#include <cstring>

#include "platform/internet.h"

int CQNInternetSession::SetCookie(const char* url, const char* cookieName, const char* cookieData) {
  return InternetSetCookieA(url, cookieName, cookieData);
}

int CQNInternetSession::GetCookie(const char* url, const char* cookieName, char* buffer,
                                  DWORD length) {
  return InternetGetCookieA(url, cookieName, buffer, &length);
}

DWORD CQNInternetSession::GetCookieLength(const char* url, const char* cookieName) {
  DWORD length = 0;
  return InternetGetCookieA(url, cookieName, nullptr, &length) ? length : 0;
}

int CQNInternetSession::GetCookie(const char* url, const char* cookieName, CQNString& cookie) {
  DWORD length = GetCookieLength(url, cookieName);
  cookie.Empty();
  char* buffer = cookie.GetBufferSetLength(static_cast<int>(length) + 1);
  std::memset(buffer, 0, length + 1);
  const BOOL fetched = InternetGetCookieA(url, cookieName, buffer, &length);
  // A count of all ones means that the platform did not count: the string measures its text.
  cookie.ReleaseBuffer(fetched ? static_cast<int>(length) : 0);
  return fetched;
}
