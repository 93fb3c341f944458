// SPDX-License-Identifier: MIT
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <memory>

#include "net/arguments.h"
#include "net/handle_registry.h"
#include "net/internet_error.h"
#include "net/new_object.h"
#include "platform/internet.h"

using quarnfc::net::InternetError;
using quarnfc::net::OwnedHandle;

const char* const CQNHttpConnection::szHtmlVerbs[7] = {"POST", "GET",    "HEAD",  "PUT",
                                                       "LINK", "DELETE", "UNLINK"};

CQNHttpConnection::CQNHttpConnection(CQNInternetSession* session, const char* server,
                                     unsigned short port, const char* user, const char* password,
                                     unsigned __int64 context)
    : CQNInternetConnection(session, server, port, context) {
  Connect(server, port, user, password, 0);
}

CQNHttpConnection::CQNHttpConnection(CQNInternetSession* session, const char* server, DWORD flags,
                                     unsigned short port, const char* user, const char* password,
                                     unsigned __int64 context)
    : CQNInternetConnection(session, server, port, context) {
  Connect(server, port, user, password, flags);
}

CQNHttpConnection::CQNHttpConnection(CQNInternetSession* session, HINTERNET connection,
                                     const char* server, unsigned __int64 context)
    : CQNInternetConnection(session, server, 0, context) {
  Adopt(connection);
}

void CQNHttpConnection::Connect(const char* server, unsigned short port, const char* user,
                                const char* password, DWORD flags) {
  const HINTERNET session =
      session_ != nullptr ? quarnfc::net::Live(session_->handle_, session_) : nullptr;
  OwnedHandle connection(InternetConnectA(session, server, port, user, password,
                                          INTERNET_SERVICE_HTTP, flags, context_));
  if (connection == nullptr) InternetError::ThrowLast(context_);
  quarnfc::net::Registry().Add(connection.get(), this, session, session_);
  handle_ = connection.release();
}

void CQNHttpConnection::Adopt(HINTERNET connection) {
  DWORD type = 0;
  DWORD length = sizeof(type);
  if (connection == nullptr ||
      !InternetQueryOptionA(connection, INTERNET_OPTION_HANDLE_TYPE, &type, &length) ||
      type != INTERNET_HANDLE_TYPE_CONNECT_HTTP) {
    InternetError::Throw(ERROR_INVALID_HANDLE, context_);
  }
  quarnfc::net::Registry().Add(connection, this, nullptr, session_);
  handle_ = connection;
}

CQNHttpFile* CQNHttpConnection::OpenRequest(const char* verb, const char* object,
                                            const char* referer, unsigned __int64 context,
                                            const char** acceptTypes, const char* version,
                                            DWORD flags) {
  context = quarnfc::net::ResolveContext(context, context_);
  return quarnfc::net::NullWithoutMemory([&] {
    const bool clean = quarnfc::net::IsOneLine(verb, object, referer, version) &&
                       quarnfc::net::AreOneLine(acceptTypes);
    OwnedHandle request(clean ? HttpOpenRequestA(quarnfc::net::Live(handle_, this), verb, object,
                                                 version != nullptr ? version : "HTTP/1.0", referer,
                                                 acceptTypes, flags, context)
                              : nullptr);
    const DWORD error = clean ? GetLastError() : ERROR_INVALID_PARAMETER;
    std::unique_ptr<CQNHttpFile> file(new CQNHttpFile(request.get(), verb, object, this));
    file->context_ = context;
    if (request.release() == nullptr) SetLastError(error);
    return file.release();
  });
}

CQNHttpFile* CQNHttpConnection::OpenRequest(int verb, const char* object, const char* referer,
                                            unsigned __int64 context, const char** acceptTypes,
                                            const char* version, DWORD flags) {
  constexpr unsigned int kVerbs = sizeof(szHtmlVerbs) / sizeof(szHtmlVerbs[0]);
  const auto index = static_cast<unsigned int>(verb);
  return OpenRequest(index < kVerbs ? szHtmlVerbs[index] : "", object, referer, context,
                     acceptTypes, version, flags);
}
