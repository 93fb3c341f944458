// SPDX-License-Identifier: MIT
// Opening and closing of handles.
#include <utility>

#include "platform/posix/internet/handle.h"

namespace {

using quarnfc::internet::Answering;
using quarnfc::internet::Connection;
using quarnfc::internet::Enter;
using quarnfc::internet::Find;
using quarnfc::internet::FindHandle;
using quarnfc::internet::Handles;
using quarnfc::internet::Proxy;
using quarnfc::internet::Remove;
using quarnfc::internet::Session;

thread_local DWORD g_last_error = 0;

std::string TextOf(const char* text) { return text != nullptr ? text : ""; }

}  // namespace

namespace quarnfc::internet {

Session::Session(std::string agent_text, Proxy proxy_settings)
    : Handle(kType, nullptr, 0),
      agent(std::move(agent_text)),
      proxy(std::move(proxy_settings)),
      transport(MakeTransport()) {}

}  // namespace quarnfc::internet

DWORD GetLastError() { return g_last_error; }

void SetLastError(DWORD error) { g_last_error = error; }

HINTERNET InternetOpenA(const char* agent, DWORD accessType, const char* proxy, const char* bypass,
                        DWORD flags) {
  return Answering(HINTERNET(), [&]() -> HINTERNET {
    const bool named = accessType == INTERNET_OPEN_TYPE_PROXY;
    const bool known = named || accessType == INTERNET_OPEN_TYPE_PRECONFIG ||
                       accessType == INTERNET_OPEN_TYPE_DIRECT;
    // flags asks for calls that return at once or for the cache alone: neither exists here.
    if (!known || flags != 0 || (named && TextOf(proxy).empty())) {
      SetLastError(ERROR_INVALID_PARAMETER);
      return nullptr;
    }
    return Enter(
        std::make_shared<Session>(TextOf(agent), Proxy{accessType, TextOf(proxy), TextOf(bypass)}));
  });
}

HINTERNET InternetConnectA(HINTERNET session, const char* server, unsigned short port,
                           const char* user, const char* password, DWORD service, DWORD /*flags*/,
                           unsigned __int64 context) {
  return Answering(HINTERNET(), [&]() -> HINTERNET {
    const auto owner = Find<Session>(session);
    if (owner == nullptr) return nullptr;
    if (service != INTERNET_SERVICE_HTTP || TextOf(server).empty()) {
      SetLastError(service != INTERNET_SERVICE_HTTP ? ERROR_INTERNET_UNRECOGNIZED_SCHEME
                                                    : ERROR_INVALID_PARAMETER);
      return nullptr;
    }
    const auto connection = std::make_shared<Connection>(owner, server, port, context);
    connection->settings.user = TextOf(user);
    connection->settings.password = TextOf(password);
    return Enter(connection);
  });
}

int InternetCloseHandle(HINTERNET handle) {
  const auto closing = FindHandle(handle);
  if (closing == nullptr) return 0;
  const Handles removed = Remove(*closing);
  for (auto gone = removed.rbegin(); gone != removed.rend(); ++gone) {
    gone->second->Cancel();
    HINTERNET number = gone->second->number;
    gone->second->Report(INTERNET_STATUS_HANDLE_CLOSING, &number, sizeof(number));
  }
  return 1;
}

INTERNET_STATUS_CALLBACK InternetSetStatusCallback(HINTERNET handle,
                                                   INTERNET_STATUS_CALLBACK callback) {
  const auto found = FindHandle(handle);
  if (found == nullptr) return INTERNET_INVALID_STATUS_CALLBACK;
  return found->callback.exchange(callback);
}
