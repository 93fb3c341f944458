// The process-wide register of internet handles: which session a handle belongs to. Status
// callbacks find their session here. It exists from the loading of the module to its unloading.
#ifndef QUARNFC_NET_HANDLE_REGISTRY_H_
#define QUARNFC_NET_HANDLE_REGISTRY_H_

#include <quarnfc/platform_types.h>

#include <cstdint>
#include <map>

#include "platform/lock.h"

class CQNInternetSession;

namespace quarnfc::net {

// Every member holds the one lock for its whole duration and calls nothing outside while it does.
class HandleRegistry {
 public:
  HandleRegistry() = default;
  HandleRegistry(const HandleRegistry&) = delete;
  HandleRegistry& operator=(const HandleRegistry&) = delete;

  // A null handle and a null session are ignored.
  void Add(HINTERNET handle, CQNInternetSession* session);

  // The session of handle; null when there is none.
  CQNInternetSession* Find(HINTERNET handle);

  // Removes handle, provided it still belongs to session: the platform may give the value of a
  // closed handle to another thread before the entry of the old one is gone.
  void Remove(HINTERNET handle, const CQNInternetSession* session);

  // Removes every handle of session, so that no callback can reach it any more.
  void RemoveSession(const CQNInternetSession* session);

 private:
  platform::Lock lock_;
  std::map<std::uintptr_t, CQNInternetSession*> sessions_;
};

HandleRegistry& Registry();

// Closes handle, unless it is null, and takes it out of the registry. The variable is null before
// the platform is asked, so that a callback that closes the same object again changes nothing.
void CloseRegisteredHandle(HINTERNET& handle);

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_HANDLE_REGISTRY_H_
