#include "net/handle_registry.h"

#include <cstdint>
#include <utility>

#include "platform/internet.h"

namespace quarnfc::net {
namespace {

HandleRegistry g_registry;

std::uintptr_t KeyOf(HINTERNET handle) { return reinterpret_cast<std::uintptr_t>(handle); }

}  // namespace

void HandleRegistry::Add(HINTERNET handle, CQNInternetSession* session) {
  if (handle == nullptr || session == nullptr) return;
  platform::LockGuard guard(lock_);
  sessions_[KeyOf(handle)] = session;
}

CQNInternetSession* HandleRegistry::Find(HINTERNET handle) {
  platform::LockGuard guard(lock_);
  const auto entry = sessions_.find(KeyOf(handle));
  return entry == sessions_.end() ? nullptr : entry->second;
}

void HandleRegistry::Remove(HINTERNET handle, const CQNInternetSession* session) {
  platform::LockGuard guard(lock_);
  const auto entry = sessions_.find(KeyOf(handle));
  if (entry != sessions_.end() && entry->second == session) sessions_.erase(entry);
}

void HandleRegistry::RemoveSession(const CQNInternetSession* session) {
  platform::LockGuard guard(lock_);
  std::erase_if(sessions_, [session](const auto& entry) { return entry.second == session; });
}

HandleRegistry& Registry() { return g_registry; }

void CloseRegisteredHandle(HINTERNET& handle) {
  const HINTERNET closing = std::exchange(handle, nullptr);
  if (closing == nullptr) return;
  const CQNInternetSession* session = g_registry.Find(closing);
  InternetCloseHandle(closing);
  g_registry.Remove(closing, session);
}

}  // namespace quarnfc::net
