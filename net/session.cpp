// SPDX-License-Identifier: MIT
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>
#include <quarnfc/url.h>

#include <memory>

#include "net/arguments.h"
#include "net/handle_registry.h"
#include "net/internet_error.h"
#include "net/new_object.h"
#include "net/status_call.h"
#include "platform/internet.h"

using quarnfc::net::InternetError;
using quarnfc::net::OwnedHandle;

namespace {

constexpr char kDefaultAgent[] = "Unknow";

// The callback that the platform calls for every handle of a session with callbacks enabled.
void DispatchStatus(HINTERNET handle, unsigned __int64 context, DWORD status, void* information,
                    DWORD informationLength) {
  const quarnfc::net::StatusCall call(quarnfc::net::Registry(), handle);
  if (call.Session() == nullptr) return;
  call.Session()->OnStatusCallback(context, status, information, informationLength);
}

DWORD HandleTypeOf(HINTERNET handle) {
  DWORD type = 0;
  DWORD length = sizeof(type);
  const BOOL known = InternetQueryOptionA(handle, INTERNET_OPTION_HANDLE_TYPE, &type, &length);
  return known ? type : static_cast<DWORD>(eServiceUnknown);
}

// Whether a URL's service, or the type of the handle opened for it, is HTTP.
bool IsHttp(DWORD type) {
  return type == eServiceHttp || type == eServiceHttps || type == INTERNET_HANDLE_TYPE_HTTP_REQUEST;
}

}  // namespace

CQNInternetSession::CQNInternetSession(const char* agent, unsigned __int64 context,
                                       DWORD accessType, const char* proxy, const char* bypass,
                                       DWORD flags)
    : context_(context), handle_(nullptr), previous_callback_(nullptr), callback_enabled_(0) {
  OwnedHandle session(
      InternetOpenA(agent != nullptr ? agent : kDefaultAgent, accessType, proxy, bypass, flags));
  if (session == nullptr) InternetError::ThrowLast(context_);
  quarnfc::net::Registry().Add(session.get(), this, nullptr, this);
  handle_ = session.release();
}

CQNInternetSession::CQNInternetSession(const CQNInternetSession& other)
    : context_(other.context_),
      handle_(other.handle_),
      previous_callback_(other.previous_callback_),
      callback_enabled_(other.callback_enabled_) {
  quarnfc::net::Registry().Share(handle_, &other, this);
}

CQNInternetSession& CQNInternetSession::operator=(const CQNInternetSession& other) {
  if (this == &other) return *this;
  quarnfc::net::Registry().Share(other.handle_, &other, this);
  context_ = other.context_;
  handle_ = other.handle_;
  previous_callback_ = other.previous_callback_;
  callback_enabled_ = other.callback_enabled_;
  return *this;
}

CQNInternetSession::~CQNInternetSession() { CQNInternetSession::Close(); }

void CQNInternetSession::Close() {
  if (quarnfc::net::Registry().Owns(handle_, this) && callback_enabled_ != 0) {
    InternetSetStatusCallback(handle_, nullptr);
    callback_enabled_ = 0;
  }
  quarnfc::net::CloseRegisteredHandle(handle_, this);
  // Callbacks of handles that a copy of this session opened must not reach this object either.
  quarnfc::net::Registry().RemoveSession(this);
}

CQNHttpConnection* CQNInternetSession::GetHttpConnection(const char* server, unsigned short port,
                                                         const char* user, const char* password) {
  return GetHttpConnection(server, 0UL, port, user, password);
}

CQNHttpConnection* CQNInternetSession::GetHttpConnection(const char* server, DWORD flags,
                                                         unsigned short port, const char* user,
                                                         const char* password) {
  return quarnfc::net::NullWithoutMemory(
      [&] { return new CQNHttpConnection(this, server, flags, port, user, password, context_); });
}

CQNHttpFile* CQNInternetSession::OpenURL(const char* url, unsigned __int64 context, DWORD flags,
                                         const char* headers, DWORD headersLength) {
  context = quarnfc::net::ResolveContext(context, context_);
  return quarnfc::net::NullWithoutMemory([&]() -> CQNHttpFile* {
    DWORD type = eServiceUnknown;
    CQNString server;
    CQNString object;
    unsigned short port = 0;
    const bool parsed = qnParseURL(url, type, server, object, port) != 0;
    if (parsed && type == eServiceFile) return nullptr;

    OwnedHandle resource(InternetOpenUrlA(quarnfc::net::Live(handle_, this), url, headers,
                                          quarnfc::net::HeadersLength(headers, headersLength),
                                          flags, context));
    if (resource == nullptr) InternetError::ThrowLast(context_);
    if (!parsed) type = HandleTypeOf(resource.get());
    if (!IsHttp(type)) {
      // Deliberately left open until the session is closed.
      static_cast<void>(resource.release());
      return nullptr;
    }
    std::unique_ptr<CQNHttpFile> file(
        new CQNHttpFile(resource.get(), handle_, object, server, "GET", context));
    quarnfc::net::Registry().SetSession(resource.release(), this);
    return file.release();
  });
}

int CQNInternetSession::EnableStatusCallback(int enable) {
  if (handle_ == nullptr) return 0;
  if ((enable != 0) == (callback_enabled_ != 0)) return 1;
  if (enable == 0) {
    InternetSetStatusCallback(handle_, nullptr);
    callback_enabled_ = 0;
    return 1;
  }
  const INTERNET_STATUS_CALLBACK previous = InternetSetStatusCallback(handle_, DispatchStatus);
  if (previous == INTERNET_INVALID_STATUS_CALLBACK) InternetError::ThrowLast(context_);
  // A copy of this session may have installed the dispatcher already; passing calls on to it would
  // never end.
  previous_callback_ = previous == DispatchStatus ? nullptr : previous;
  callback_enabled_ = 1;
  return 1;
}

void CQNInternetSession::OnStatusCallback(unsigned __int64 context, DWORD status, void* information,
                                          DWORD informationLength) {
  if (previous_callback_ == nullptr) return;
  previous_callback_(handle_, context, status, information, informationLength);
}
