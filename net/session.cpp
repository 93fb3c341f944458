#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>
#include <quarnfc/url.h>

#include "net/handle_registry.h"
#include "net/inherited_context.h"
#include "net/internet_error.h"
#include "platform/internet.h"

using quarnfc::net::InternetError;

namespace {

constexpr char kDefaultAgent[] = "Unknow";

// The callback that the platform calls for every handle of a session with callbacks enabled.
void CALLBACK DispatchStatus(HINTERNET handle, DWORD_PTR context, DWORD status, void* information,
                             DWORD informationLength) {
  CQNInternetSession* session = quarnfc::net::Registry().Find(handle);
  if (session == nullptr) return;
  session->OnStatusCallback(context, status, information, informationLength);
}

unsigned long HandleTypeOf(HINTERNET handle) {
  DWORD type = 0;
  DWORD length = sizeof(type);
  const BOOL known = InternetQueryOptionA(handle, INTERNET_OPTION_HANDLE_TYPE, &type, &length);
  return known ? type : static_cast<DWORD>(eServiceUnknown);
}

// Whether a URL's service, or the type of the handle opened for it, is HTTP.
bool IsHttp(unsigned long type) {
  return type == eServiceHttp || type == eServiceHttps || type == INTERNET_HANDLE_TYPE_HTTP_REQUEST;
}

}  // namespace

CQNInternetSession::CQNInternetSession(const char* agent, unsigned __int64 context,
                                       unsigned long accessType, const char* proxy,
                                       const char* bypass, unsigned long flags)
    : context_(context), handle_(nullptr), previous_callback_(nullptr), callback_enabled_(0) {
  handle_ =
      InternetOpenA(agent != nullptr ? agent : kDefaultAgent, accessType, proxy, bypass, flags);
  if (handle_ == nullptr) InternetError::ThrowLast(context_);
  quarnfc::net::Registry().Add(handle_, this);
}

CQNInternetSession::~CQNInternetSession() { CQNInternetSession::Close(); }

void CQNInternetSession::Close() {
  if (handle_ != nullptr && callback_enabled_ != 0) {
    InternetSetStatusCallback(handle_, nullptr);
    callback_enabled_ = 0;
  }
  quarnfc::net::CloseRegisteredHandle(handle_);
  // The platform has closed what was below the session, and the session may be gone soon.
  quarnfc::net::Registry().RemoveSession(this);
}

CQNHttpConnection* CQNInternetSession::GetHttpConnection(const char* server, unsigned short port,
                                                         const char* user, const char* password) {
  return GetHttpConnection(server, 0UL, port, user, password);
}

CQNHttpConnection* CQNInternetSession::GetHttpConnection(const char* server, unsigned long flags,
                                                         unsigned short port, const char* user,
                                                         const char* password) {
  return new (std::nothrow) CQNHttpConnection(this, server, flags, port, user, password, context_);
}

CQNHttpFile* CQNInternetSession::OpenURL(const char* url, unsigned __int64 context,
                                         unsigned long flags, const char* headers,
                                         unsigned long headersLength) {
  context = quarnfc::net::ResolveContext(context, context_);
  unsigned long type = eServiceUnknown;
  CQNString server;
  CQNString object;
  unsigned short port = 0;
  const bool parsed = qnParseURL(url, type, server, object, port) != 0;
  if (parsed && type == eServiceFile) return nullptr;

  HINTERNET resource = InternetOpenUrlA(handle_, url, headers, headersLength, flags, context);
  if (resource == nullptr) InternetError::ThrowLast(context_);
  if (!parsed) type = HandleTypeOf(resource);
  if (!IsHttp(type)) return nullptr;

  auto* file = new (std::nothrow) CQNHttpFile(resource, handle_, object, server, "GET", context);
  if (file == nullptr) {
    InternetCloseHandle(resource);
    return nullptr;
  }
  quarnfc::net::Registry().Add(resource, this);
  return file;
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

void CQNInternetSession::OnStatusCallback(unsigned __int64 context, unsigned long status,
                                          void* information, unsigned long informationLength) {
  if (previous_callback_ == nullptr) return;
  previous_callback_(handle_, context, status, information, informationLength);
}
