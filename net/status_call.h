// SPDX-License-Identifier: MIT
// One call of a session's status callback.
#ifndef QUARNFC_NET_STATUS_CALL_H_
#define QUARNFC_NET_STATUS_CALL_H_

#include <thread>

#include "net/handle_registry.h"

namespace quarnfc::net {

// Finds the session that the callbacks of a handle go to. As long as this object lives, Close of
// that session waits on every thread but this one.
class StatusCall {
 public:
  StatusCall(HandleRegistry& registry, HINTERNET handle);
  ~StatusCall();
  StatusCall(const StatusCall&) = delete;
  StatusCall& operator=(const StatusCall&) = delete;

  // Null when nobody waits for callbacks of the handle.
  CQNInternetSession* Session() const { return session_; }

 private:
  friend class HandleRegistry;

  HandleRegistry& registry_;
  CQNInternetSession* session_ = nullptr;
  std::thread::id thread_ = std::this_thread::get_id();
  StatusCall* next_ = nullptr;
};

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_STATUS_CALL_H_
