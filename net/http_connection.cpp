#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include "net/handle_registry.h"
#include "net/inherited_context.h"
#include "net/internet_error.h"
#include "platform/internet.h"

using quarnfc::net::InternetError;

const char* const CQNHttpConnection::szHtmlVerbs[7] = {"POST", "GET",    "HEAD",  "PUT",
                                                       "LINK", "DELETE", "UNLINK"};

CQNHttpConnection::CQNHttpConnection(CQNInternetSession* session, const char* server,
                                     unsigned short port, const char* user, const char* password,
                                     unsigned __int64 context)
    : CQNInternetConnection(session, server, port, context) {
  Connect(server, port, user, password, 0);
}

CQNHttpConnection::CQNHttpConnection(CQNInternetSession* session, const char* server,
                                     unsigned long flags, unsigned short port, const char* user,
                                     const char* password, unsigned __int64 context)
    : CQNInternetConnection(session, server, port, context) {
  Connect(server, port, user, password, flags);
}

CQNHttpConnection::CQNHttpConnection(CQNInternetSession* session, HINTERNET connection,
                                     const char* server, unsigned __int64 context)
    : CQNInternetConnection(session, server, 0, context) {
  Adopt(connection);
}

void CQNHttpConnection::Connect(const char* server, unsigned short port, const char* user,
                                const char* password, unsigned long flags) {
  const HINTERNET session = session_ != nullptr ? session_->handle_ : nullptr;
  handle_ = InternetConnectA(session, server, port, user, password, INTERNET_SERVICE_HTTP, flags,
                             context_);
  if (handle_ == nullptr) InternetError::ThrowLast(context_);
  quarnfc::net::Registry().Add(handle_, session_);
}

void CQNHttpConnection::Adopt(HINTERNET connection) {
  DWORD type = 0;
  DWORD length = sizeof(type);
  if (connection == nullptr ||
      !InternetQueryOptionA(connection, INTERNET_OPTION_HANDLE_TYPE, &type, &length) ||
      type != INTERNET_HANDLE_TYPE_CONNECT_HTTP) {
    InternetError::Throw(ERROR_INVALID_HANDLE, context_);
  }
  handle_ = connection;
  quarnfc::net::Registry().Add(handle_, session_);
}

CQNHttpFile* CQNHttpConnection::OpenRequest(const char* verb, const char* object,
                                            const char* referer, unsigned __int64 context,
                                            const char** acceptTypes, const char* version,
                                            unsigned long flags) {
  context = quarnfc::net::ResolveContext(context, context_);
  HINTERNET request =
      HttpOpenRequestA(handle_, verb, object, version != nullptr ? version : "HTTP/1.0", referer,
                       acceptTypes, flags, context);
  auto* file = new (std::nothrow) CQNHttpFile(request, verb, object, this);
  if (file == nullptr) {
    InternetCloseHandle(request);
    return nullptr;
  }
  file->context_ = context;
  return file;
}

CQNHttpFile* CQNHttpConnection::OpenRequest(int verb, const char* object, const char* referer,
                                            unsigned __int64 context, const char** acceptTypes,
                                            const char* version, unsigned long flags) {
  constexpr unsigned int kVerbs = sizeof(szHtmlVerbs) / sizeof(szHtmlVerbs[0]);
  const auto index = static_cast<unsigned int>(verb);
  return OpenRequest(index < kVerbs ? szHtmlVerbs[index] : "", object, referer, context,
                     acceptTypes, version, flags);
}
