// SPDX-License-Identifier: MIT
// Handles of the internet functions: sessions, connections to servers, requests.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_HANDLE_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_HANDLE_H_

#include <quarnfc/internet_api.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <new>
#include <string>

#include "platform/posix/internet/transport.h"

namespace quarnfc::internet {

// What options set; a new handle takes those of the one above it.
struct Settings {
  DWORD connect_timeout = 60'000;  // milliseconds; 0 waits for ever
  DWORD send_timeout = 30'000;
  DWORD receive_timeout = 30'000;
  DWORD security_flags = 0;
  std::string user;
  std::string password;
  std::string proxy_user;
  std::string proxy_password;
};

class Handle {
 public:
  Handle(DWORD handle_type, std::shared_ptr<Handle> above, unsigned __int64 context_value);
  virtual ~Handle() = default;
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  // Calls the status callback, if there is one. Nothing is locked meanwhile.
  void Report(DWORD status, void* information = nullptr, DWORD length = 0) const;
  void Report(DWORD status, const std::string& text) const;

  // Ends the call that is under way on another thread.
  virtual void Cancel() {}

  const DWORD type;
  const std::shared_ptr<Handle> parent;
  HINTERNET number = nullptr;
  unsigned __int64 context;
  std::atomic<INTERNET_STATUS_CALLBACK> callback{nullptr};
  Settings settings;
};

class Session : public Handle {
 public:
  static constexpr DWORD kType = INTERNET_HANDLE_TYPE_INTERNET;

  Session(std::string agent_text, Proxy proxy_settings);

  const std::string agent;
  const Proxy proxy;
  const std::unique_ptr<Transport> transport;
};

class Connection : public Handle {
 public:
  static constexpr DWORD kType = INTERNET_HANDLE_TYPE_CONNECT_HTTP;

  Connection(const std::shared_ptr<Session>& session, std::string server_name,
             unsigned short server_port, unsigned __int64 context_value)
      : Handle(kType, session, context_value), server(std::move(server_name)), port(server_port) {}

  Session& OwnSession() const { return static_cast<Session&>(*parent); }

  const std::string server;
  const unsigned short port;  // 0 for the one of the scheme
};

// --- the table of open handles ----------------------------------------------------------------

// Gives a handle its number, which is never given again. Reports its creation.
HINTERNET Enter(const std::shared_ptr<Handle>& handle);

// The handle with a number; null, and the last error 6, when there is none.
std::shared_ptr<Handle> FindHandle(HINTERNET number);

// The same for one kind of handle; the last error is 12018 for another kind.
template <class Kind>
std::shared_ptr<Kind> Find(HINTERNET number) {
  std::shared_ptr<Handle> handle = FindHandle(number);
  if (handle == nullptr) return nullptr;
  if (handle->type != Kind::kType) {
    SetLastError(ERROR_INTERNET_INCORRECT_HANDLE_TYPE);
    return nullptr;
  }
  return std::static_pointer_cast<Kind>(std::move(handle));
}

// Handles by their numbers: what is below another has the greater one.
using Handles = std::map<std::uintptr_t, std::shared_ptr<Handle>>;

// Takes a handle and those below it out of the table. Closing must not fail: it takes no memory.
Handles Remove(const Handle& handle);

// 1 when error is 0; otherwise it becomes the last error and the result is 0.
int Answer(DWORD error);

// The result of work; failed, and the last error 8, when memory is exhausted: functions that have
// to do with handles throw nothing, as on Windows. Those that only look at URLs throw
// std::bad_alloc.
template <class Result, class Work>
Result Answering(Result failed, const Work& work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return failed;
  }
}

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_HANDLE_H_
