// SPDX-License-Identifier: MIT
#include <quarnfc/internet.h>

#include "net/arguments.h"
#include "net/handle_registry.h"
#include "platform/internet.h"

using quarnfc::net::Live;

CQNInternetConnection::CQNInternetConnection(CQNInternetSession* session, const char* server,
                                             unsigned short port, unsigned __int64 context)
    : handle_(nullptr),
      context_(
          quarnfc::net::ResolveContext(context, session != nullptr ? session->context_ : context)),
      session_(session),
      server_(server),
      port_(port) {}

CQNInternetConnection::CQNInternetConnection(const CQNInternetConnection& other)
    : handle_(other.handle_),
      context_(other.context_),
      session_(other.session_),
      server_(other.server_),
      port_(other.port_) {
  quarnfc::net::Registry().Share(handle_, &other, this);
}

CQNInternetConnection& CQNInternetConnection::operator=(const CQNInternetConnection& other) {
  if (this == &other) return *this;
  quarnfc::net::Registry().Share(other.handle_, &other, this);
  handle_ = other.handle_;
  context_ = other.context_;
  session_ = other.session_;
  server_ = other.server_;
  port_ = other.port_;
  return *this;
}

CQNInternetConnection::~CQNInternetConnection() { CQNInternetConnection::Close(); }

void CQNInternetConnection::Close() { quarnfc::net::CloseRegisteredHandle(handle_, this); }

CQNInternetConnection::operator HINTERNET() const { return handle_; }

CQNString CQNInternetConnection::GetServerName() const { return server_; }

CQNInternetSession* CQNInternetConnection::GetSession() const { return session_; }

int CQNInternetConnection::SetOption(DWORD option, void* buffer, DWORD length, DWORD flags) {
  return InternetSetOptionExA(Live(handle_, this), option, buffer, length, flags);
}

int CQNInternetConnection::SetOption(DWORD option, DWORD value, DWORD flags) {
  return SetOption(option, &value, sizeof(value), flags);
}

int CQNInternetConnection::QueryOption(DWORD option, void* buffer, DWORD* length) const {
  return InternetQueryOptionA(Live(handle_, this), option, buffer, length);
}

int CQNInternetConnection::QueryOption(DWORD option, DWORD& value) const {
  DWORD length = sizeof(value);
  return QueryOption(option, &value, &length);
}
