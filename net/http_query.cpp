// SPDX-License-Identifier: MIT
#include <quarnfc/internet_file.h>

#include <cstdlib>
#include <cstring>

#include "net/handle_registry.h"
#include "platform/internet.h"

int CQNHttpFile::QueryInfo(DWORD level, void* buffer, DWORD* length, DWORD* index) const {
  return HttpQueryInfoA(quarnfc::net::Live(handle_, this), level, buffer, length, index);
}

int CQNHttpFile::QueryInfo(DWORD level, DWORD& number, DWORD* index) const {
  DWORD length = sizeof(number);
  return QueryInfo(level | HTTP_QUERY_FLAG_NUMBER, &number, &length, index);
}

int CQNHttpFile::QueryInfo(DWORD level, SYSTEMTIME* time, DWORD* index) const {
  DWORD length = sizeof(*time);
  return QueryInfo(level | HTTP_QUERY_FLAG_SYSTEMTIME, time, &length, index);
}

int CQNHttpFile::QueryInfo(DWORD level, CQNString& text, DWORD* index) const {
  text.Empty();
  DWORD length = 0;
  if (QueryInfo(level, nullptr, &length, nullptr)) return 1;

  char* buffer = text.GetBufferSetLength(static_cast<int>(length));
  std::memset(buffer, 0, length);
  const BOOL found = QueryInfo(level, buffer, &length, index);
  // A count of all ones means that the platform did not count: the string measures its text.
  text.ReleaseBuffer(found ? static_cast<int>(length) : 0);
  return found;
}

int CQNHttpFile::QueryInfoStatusCode(DWORD& statusCode) const {
  char text[80] = {};
  DWORD length = sizeof(text) - 1;
  const BOOL found = QueryInfo(HTTP_QUERY_STATUS_CODE, text, &length, nullptr);
  if (found) statusCode = static_cast<DWORD>(std::atol(text));
  return found;
}
