// SPDX-License-Identifier: MIT
// Opening, sending and reading of requests, under the names hosts call.
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "platform/posix/internet/request.h"

namespace {

using quarnfc::internet::Answer;
using quarnfc::internet::Answering;
using quarnfc::internet::Connection;
using quarnfc::internet::Enter;
using quarnfc::internet::Find;
using quarnfc::internet::MakeTarget;
using quarnfc::internet::ParseTarget;
using quarnfc::internet::Request;
using quarnfc::internet::Session;
using quarnfc::internet::Target;
using quarnfc::internet::TextOf;

constexpr DWORD kUpToTerminator = 0xFFFFFFFF;

std::string_view HeaderText(const char* headers, DWORD length) {
  if (headers == nullptr) return {};
  return {headers, length == kUpToTerminator ? std::strlen(headers) : length};
}

std::string JoinTypes(const char** types) {
  std::string joined;
  for (; types != nullptr && *types != nullptr; ++types) {
    if (!joined.empty()) joined += ", ";
    joined += *types;
  }
  return joined;
}

DWORD SecurityFlags(DWORD request_flags) {
  return request_flags &
         (INTERNET_FLAG_IGNORE_CERT_CN_INVALID | INTERNET_FLAG_IGNORE_CERT_DATE_INVALID);
}

bool HasControl(const char* text) {
  for (; text != nullptr && *text != '\0'; ++text) {
    if (static_cast<unsigned char>(*text) < ' ' || *text == 0x7F) return true;
  }
  return false;
}

bool IsToken(const char* verb) { return std::strpbrk(verb, " \t\"(),/:;<=>?@[\\]{}") == nullptr; }

// Whether these can stand in a head: nothing in them ends a line or a word of the request line.
bool CanBeSent(const std::string& verb, const char* referer, const std::string& types) {
  return IsToken(verb.c_str()) && !HasControl(verb.c_str()) && !HasControl(referer) &&
         !HasControl(types.c_str());
}

bool IsVersion10(const char* version) {
  return version != nullptr && std::strcmp(version, "HTTP/1.0") == 0;
}

void AddGiven(Request& request, const char* referer, const std::string& types) {
  if (referer != nullptr) request.headers.Add("Referer", referer);
  if (!types.empty()) request.headers.Add("Accept", types);
}

DWORD AddHeaders(Request& request, const char* headers, DWORD length) {
  return request.headers.AddLines(HeaderText(headers, length),
                                  HTTP_ADDREQ_FLAG_ADD | HTTP_ADDREQ_FLAG_REPLACE);
}

// A request for a URL. It keeps the connection that nobody sees.
std::shared_ptr<Request> MakeRequest(const std::shared_ptr<Session>& session, const Target& target,
                                     DWORD flags, unsigned __int64 context) {
  const auto connection = std::make_shared<Connection>(session, target.host, target.port, context);
  connection->settings.user = target.user;
  connection->settings.password = target.password;
  const auto request = std::make_shared<Request>(connection, context);
  request->verb = "GET";
  request->flags = flags;
  request->settings.security_flags |= SecurityFlags(flags);
  request->target = target;
  request->url = TextOf(target);
  return request;
}

DWORD Begin(Request& request, const INTERNET_BUFFERSA* in) {
  if (in == nullptr) return request.Begin(0);
  if (in->dwStructSize != sizeof(*in)) return ERROR_INVALID_PARAMETER;
  if (const DWORD error = AddHeaders(request, in->lpcszHeader, in->dwHeadersLength)) return error;
  if (const DWORD error = request.Begin(in->dwBufferTotal)) return error;
  if (in->lpvBuffer == nullptr || in->dwBufferLength == 0) return 0;
  return request.PushBody(static_cast<const char*>(in->lpvBuffer), in->dwBufferLength);
}

}  // namespace

HINTERNET HttpOpenRequestA(HINTERNET connection, const char* verb, const char* object,
                           const char* version, const char* referer, const char** acceptTypes,
                           DWORD flags, unsigned __int64 context) {
  return Answering(HINTERNET(), [&]() -> HINTERNET {
    const auto owner = Find<Connection>(connection);
    if (owner == nullptr) return nullptr;
    const std::string method = verb != nullptr && *verb != '\0' ? verb : "GET";
    const std::string types = JoinTypes(acceptTypes);
    if (!CanBeSent(method, referer, types)) {
      SetLastError(ERROR_INVALID_PARAMETER);
      return nullptr;
    }
    const auto request = std::make_shared<Request>(owner, context);
    request->verb = method;
    request->flags = flags;
    request->http_1_0 = IsVersion10(version);
    request->settings.security_flags |= SecurityFlags(flags);
    request->target = MakeTarget((flags & INTERNET_FLAG_SECURE) != 0, owner->server, owner->port,
                                 object != nullptr ? object : "");
    request->url = TextOf(request->target);
    AddGiven(*request, referer, types);
    return Enter(request);
  });
}

int HttpAddRequestHeadersA(HINTERNET request, const char* headers, DWORD length, DWORD flags) {
  return Answering(0, [&] {
    const auto found = Find<Request>(request);
    if (found == nullptr) return 0;
    const std::string_view text = HeaderText(headers, length);
    if (text.empty()) return Answer(ERROR_INVALID_PARAMETER);
    return Answer(found->headers.AddLines(text, flags));
  });
}

int HttpSendRequestA(HINTERNET request, const char* headers, DWORD headersLength, void* optional,
                     DWORD optionalLength) {
  return Answering(0, [&] {
    const auto found = Find<Request>(request);
    if (found == nullptr) return 0;
    if (optional == nullptr && optionalLength != 0) return Answer(ERROR_INVALID_PARAMETER);
    if (const DWORD error = AddHeaders(*found, headers, headersLength)) return Answer(error);
    return Answer(found->Send(static_cast<const char*>(optional), optionalLength));
  });
}

int HttpSendRequestExA(HINTERNET request, INTERNET_BUFFERSA* in, INTERNET_BUFFERSA* /*out*/,
                       DWORD /*flags*/, unsigned __int64 context) {
  return Answering(0, [&] {
    const auto found = Find<Request>(request);
    if (found == nullptr) return 0;
    if (context != 0) found->context = context;
    return Answer(Begin(*found, in));
  });
}

int HttpEndRequestA(HINTERNET request, INTERNET_BUFFERSA* out, DWORD /*flags*/,
                    unsigned __int64 /*context*/) {
  return Answering(0, [&] {
    const auto found = Find<Request>(request);
    if (found == nullptr) return 0;
    if (out != nullptr) return Answer(ERROR_INVALID_PARAMETER);
    return Answer(found->End());
  });
}

HINTERNET InternetOpenUrlA(HINTERNET session, const char* url, const char* headers,
                           DWORD headersLength, DWORD flags, unsigned __int64 context) {
  HINTERNET number = nullptr;
  const int opened = Answering(0, [&] {
    const auto owner = Find<Session>(session);
    if (owner == nullptr) return 0;
    Target target;
    if (const DWORD error = ParseTarget(url, target)) return Answer(error);
    const auto request = MakeRequest(owner, target, flags, context);
    number = Enter(request);
    if (const DWORD error = AddHeaders(*request, headers, headersLength)) return Answer(error);
    return Answer(request->Send(nullptr, 0));
  });
  if (opened != 0 || number == nullptr) return number;
  const DWORD error = GetLastError();
  InternetCloseHandle(number);
  SetLastError(error);
  return nullptr;
}

int InternetReadFile(HINTERNET request, void* buffer, DWORD count, DWORD* read) {
  return Answering(0, [&] {
    const auto found = Find<Request>(request);
    if (found == nullptr) return 0;
    if (read == nullptr || (buffer == nullptr && count != 0))
      return Answer(ERROR_INVALID_PARAMETER);
    std::size_t received = 0;
    const DWORD error = found->Pull(static_cast<char*>(buffer), count, received);
    *read = static_cast<DWORD>(received);
    return Answer(error);
  });
}

int InternetWriteFile(HINTERNET request, const void* data, DWORD count, DWORD* written) {
  return Answering(0, [&] {
    const auto found = Find<Request>(request);
    if (found == nullptr) return 0;
    if (written == nullptr || (data == nullptr && count != 0))
      return Answer(ERROR_INVALID_PARAMETER);
    const DWORD error = found->PushBody(static_cast<const char*>(data), count);
    *written = error == 0 ? count : 0;
    return Answer(error);
  });
}

int InternetQueryDataAvailable(HINTERNET request, DWORD* available, DWORD flags,
                               unsigned __int64 context) {
  return Answering(0, [&] {
    const auto found = Find<Request>(request);
    if (found == nullptr) return 0;
    if (available == nullptr || flags != 0 || context != 0) return Answer(ERROR_INVALID_PARAMETER);
    std::size_t count = 0;
    const DWORD error = found->Available(count);
    *available = static_cast<DWORD>(count);
    return Answer(error);
  });
}

DWORD InternetSetFilePointer(HINTERNET file, int /*offset*/, void* /*reserved*/, DWORD /*method*/,
                             unsigned __int64 /*context*/) {
  if (Find<Request>(file) != nullptr) SetLastError(ERROR_INTERNET_INVALID_OPERATION);
  return 0xFFFFFFFF;
}

int InternetGetLastResponseInfoA(DWORD* error, char* text, DWORD* length) {
  if (error == nullptr || length == nullptr) return Answer(ERROR_INVALID_PARAMETER);
  *error = 0;
  if (text != nullptr && *length != 0) *text = '\0';
  *length = 0;
  return 1;
}
