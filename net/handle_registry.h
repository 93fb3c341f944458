// SPDX-License-Identifier: MIT
// The process-wide register of internet handles: which object closes a handle, which handle it was
// made below and which session its status callbacks go to. It exists from the loading of the module
// to its unloading.
#ifndef QUARNFC_NET_HANDLE_REGISTRY_H_
#define QUARNFC_NET_HANDLE_REGISTRY_H_

#include <quarnfc/platform_types.h>

#include <condition_variable>
#include <map>
#include <mutex>
#include <vector>

class CQNInternetSession;

namespace quarnfc::net {

class StatusCall;

// The platform may give the number of a closed handle to somebody else at once. Therefore an entry
// says which object its handle belongs to, and only that object may close it; an entry goes
// together with those of the handles below it, because the platform closes them as well.
//
// Every member holds the one lock and calls nothing outside while it does.
class HandleRegistry {
 public:
  HandleRegistry() = default;
  HandleRegistry(const HandleRegistry&) = delete;
  HandleRegistry& operator=(const HandleRegistry&) = delete;

  // Enters a handle that owner has made below parent (null for none); session receives its status
  // callbacks and may be null. A null handle is ignored. Throws std::bad_alloc.
  void Add(HINTERNET handle, const void* owner, HINTERNET parent, CQNInternetSession* session);

  // Lets the status callbacks of a handle go to session.
  void SetSession(HINTERNET handle, CQNInternetSession* session);

  // Makes copy an owner beside owner, provided the handle is owner's. Throws std::bad_alloc.
  void Share(HINTERNET handle, const void* owner, const void* copy);

  // The session of handle; null when there is none.
  CQNInternetSession* Find(HINTERNET handle);

  // Whether handle is still the one that owner entered.
  bool Owns(HINTERNET handle, const void* owner);

  // Removes the entry of a handle that is still owner's, and all entries below it.
  void Remove(HINTERNET handle, const void* owner);

  // Removes every entry whose callbacks go to session, and waits until none is running on another
  // thread: none starts afterwards.
  void RemoveSession(const CQNInternetSession* session);

 private:
  friend class StatusCall;

  using Id = unsigned __int64;
  struct Entry {
    Id id;           // never used again, unlike the handle
    Id parent;       // the entry of the handle above; 0 for none
    Id grandparent;  // that of a request's session: handles are three deep at most
    std::vector<const void*> owners;
    CQNInternetSession* session;
  };
  using Entries = std::map<unsigned __int64, Entry>;

  Entry* EntryOf(HINTERNET handle);
  Entry* EntryOwnedBy(HINTERNET handle, const void* owner);
  bool RunsElsewhere(const CQNInternetSession* session) const;

  std::mutex mutex_;
  std::condition_variable call_ended_;
  Entries entries_;
  Id last_id_ = 0;
  StatusCall* calls_ = nullptr;  // those that are running, a list
};

HandleRegistry& Registry();

// The handle as long as it is still owner's, and null afterwards, which every function of the
// platform refuses: its number may be somebody else's by then.
inline HINTERNET Live(HINTERNET handle, const void* owner) {
  return Registry().Owns(handle, owner) ? handle : nullptr;
}

// Closes handle, provided it is still owner's, and takes it and what is below it out of the
// registry. The variable is null before the platform is asked, so that a callback that closes the
// same object again changes nothing.
void CloseRegisteredHandle(HINTERNET& handle, const void* owner);

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_HANDLE_REGISTRY_H_
