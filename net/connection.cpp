#include <quarnfc/internet.h>

#include "net/handle_registry.h"
#include "net/inherited_context.h"
#include "platform/internet.h"

CQNInternetConnection::CQNInternetConnection(CQNInternetSession* session, const char* server,
                                             unsigned short port, unsigned __int64 context)
    : handle_(nullptr),
      context_(
          quarnfc::net::ResolveContext(context, session != nullptr ? session->context_ : context)),
      session_(session),
      server_(server),
      port_(port) {}

CQNInternetConnection::~CQNInternetConnection() { CQNInternetConnection::Close(); }

void CQNInternetConnection::Close() { quarnfc::net::CloseRegisteredHandle(handle_); }

CQNInternetConnection::operator HINTERNET() const { return handle_; }

CQNString CQNInternetConnection::GetServerName() const { return server_; }

CQNInternetSession* CQNInternetConnection::GetSession() const { return session_; }

int CQNInternetConnection::SetOption(unsigned long option, void* buffer, unsigned long length,
                                     unsigned long flags) {
  return InternetSetOptionExA(handle_, option, buffer, length, flags);
}

int CQNInternetConnection::SetOption(unsigned long option, unsigned long value,
                                     unsigned long flags) {
  return SetOption(option, &value, sizeof(value), flags);
}

int CQNInternetConnection::QueryOption(unsigned long option, void* buffer,
                                       unsigned long* length) const {
  return InternetQueryOptionA(handle_, option, buffer, length);
}

int CQNInternetConnection::QueryOption(unsigned long option, unsigned long& value) const {
  DWORD length = sizeof(value);
  return QueryOption(option, &value, &length);
}
