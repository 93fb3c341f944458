#include <quarnfc/internet_file.h>

#include "net/file_mode.h"
#include "net/inherited_context.h"
#include "net/internet_error.h"
#include "platform/internet.h"

using quarnfc::net::InternetError;
using quarnfc::net::ResolveContext;

CQNHttpFile::CQNHttpFile(HINTERNET file, HINTERNET session, const char* object, const char* server,
                         const char* verb, unsigned __int64 context)
    : CQNInternetFile(file, session, object, server, context, quarnfc::net::kReadOnly),
      object_(object),
      verb_(verb) {
  connection_handle_ = file;
}

CQNHttpFile::CQNHttpFile(HINTERNET file, const char* verb, const char* object,
                         CQNHttpConnection* connection)
    : CQNInternetFile(file, object, connection, quarnfc::net::kReadOnly),
      object_(object),
      verb_(verb) {
  connection_handle_ = file;
}

CQNHttpFile::~CQNHttpFile() = default;

int CQNHttpFile::AddRequestHeaders(const char* headers, unsigned long flags, int length) {
  if (length == -1) length = lstrlenA(headers);
  return HttpAddRequestHeadersA(handle_, headers, length, flags);
}

int CQNHttpFile::AddRequestHeaders(CQNString& headers, unsigned long flags) {
  return AddRequestHeaders(headers, flags, headers.GetLength());
}

int CQNHttpFile::SendRequest(const char* headers, unsigned long headersLength, void* optional,
                             unsigned long optionalLength) {
  const BOOL sent = HttpSendRequestA(handle_, headers, headersLength, optional, optionalLength);
  if (!sent) InternetError::ThrowLast(context_);
  return sent;
}

int CQNHttpFile::SendRequest(CQNString& headers, void* optional, unsigned long optionalLength) {
  return SendRequest(headers, headers.GetLength(), optional, optionalLength);
}

int CQNHttpFile::SendRequestEx(unsigned long totalLength, unsigned long flags,
                               unsigned __int64 context) {
  INTERNET_BUFFERSA buffers = {};
  buffers.dwStructSize = sizeof(buffers);
  buffers.dwBufferTotal = totalLength;
  return SendRequestEx(&buffers, nullptr, flags, context);
}

int CQNHttpFile::SendRequestEx(INTERNET_BUFFERSA* buffersIn, INTERNET_BUFFERSA* buffersOut,
                               unsigned long flags, unsigned __int64 context) {
  const BOOL begun =
      HttpSendRequestExA(handle_, buffersIn, buffersOut, flags, ResolveContext(context, context_));
  if (!begun) InternetError::ThrowLast(context_);
  read_mode_ = quarnfc::net::kReadWrite;
  return begun;
}

int CQNHttpFile::EndRequest(unsigned long flags, INTERNET_BUFFERSA* buffers,
                            unsigned __int64 context) {
  // Bytes written after the end would be taken for the start of the next request.
  Flush();
  const BOOL ended = HttpEndRequestA(handle_, buffers, flags, ResolveContext(context, context_));
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
