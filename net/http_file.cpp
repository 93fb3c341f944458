// SPDX-License-Identifier: MIT
#include <quarnfc/internet_file.h>

#include "net/arguments.h"
#include "net/file_values.h"
#include "net/handle_registry.h"
#include "net/internet_error.h"
#include "platform/internet.h"

using quarnfc::net::InternetError;
using quarnfc::net::Live;
using quarnfc::net::ResolveContext;

CQNHttpFile::CQNHttpFile(HINTERNET file, HINTERNET session, const char* object, const char* server,
                         const char* verb, unsigned __int64 context)
    : CQNInternetFile(object, server, context, quarnfc::net::kReadOnly),
      object_(object),
      verb_(verb) {
  TakeHandle(file, session, nullptr);
  connection_handle_ = file;
}

CQNHttpFile::CQNHttpFile(HINTERNET file, const char* verb, const char* object,
                         CQNHttpConnection* connection)
    : CQNInternetFile(object, connection->server_, connection->context_, quarnfc::net::kReadOnly),
      object_(object),
      verb_(verb) {
  TakeHandle(file, connection->handle_, connection->session_);
  connection_handle_ = file;
}

CQNHttpFile::~CQNHttpFile() = default;

int CQNHttpFile::AddRequestHeaders(const char* headers, DWORD flags, int length) {
  const DWORD count = quarnfc::net::HeadersLength(headers, static_cast<DWORD>(length));
  return HttpAddRequestHeadersA(Live(handle_, this), headers, count, flags);
}

int CQNHttpFile::AddRequestHeaders(CQNString& headers, DWORD flags) {
  return AddRequestHeaders(headers, flags, headers.GetLength());
}

int CQNHttpFile::SendRequest(const char* headers, DWORD headersLength, void* optional,
                             DWORD optionalLength) {
  const BOOL sent = HttpSendRequestA(Live(handle_, this), headers,
                                     quarnfc::net::HeadersLength(headers, headersLength), optional,
                                     optionalLength);
  if (!sent) InternetError::ThrowLast(context_);
  return sent;
}

int CQNHttpFile::SendRequest(CQNString& headers, void* optional, DWORD optionalLength) {
  return SendRequest(headers, static_cast<DWORD>(headers.GetLength()), optional, optionalLength);
}

int CQNHttpFile::SendRequestEx(DWORD totalLength, DWORD flags, unsigned __int64 context) {
  INTERNET_BUFFERSA buffers = {};
  buffers.dwStructSize = sizeof(buffers);
  buffers.dwBufferTotal = totalLength;
  return SendRequestEx(&buffers, nullptr, flags, context);
}

int CQNHttpFile::SendRequestEx(INTERNET_BUFFERSA* buffersIn, INTERNET_BUFFERSA* buffersOut,
                               DWORD flags, unsigned __int64 context) {
  const BOOL begun = HttpSendRequestExA(Live(handle_, this), buffersIn, buffersOut, flags,
                                        ResolveContext(context, context_));
  if (!begun) InternetError::ThrowLast(context_);
  read_mode_ = quarnfc::net::kReadWrite;
  return begun;
}

int CQNHttpFile::EndRequest(DWORD flags, INTERNET_BUFFERSA* buffers, unsigned __int64 context) {
  // Bytes written after the end would be taken for the start of the next request.
  Flush();
  const BOOL ended =
      HttpEndRequestA(Live(handle_, this), buffers, flags, ResolveContext(context, context_));
  if (!ended) InternetError::ThrowLast(context_);
  return ended;
}

CQNString CQNHttpFile::GetVerb() const { return verb_; }

CQNString CQNHttpFile::GetFileURL() const {
  CQNString url("http://");
  if (connection_handle_ == nullptr) return url;
  url += server_name_;
  if (object_.IsEmpty()) return url;
  if (object_[0] != '/' && object_[0] != '\\') url += '/';
  url += object_;
  return url;
}
