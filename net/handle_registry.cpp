// SPDX-License-Identifier: MIT
#include "net/handle_registry.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "net/status_call.h"
#include "platform/internet.h"
#include "platform/module.h"

namespace quarnfc::net {
namespace {

// As the pools it stays at the end of the process: other threads may go on.
union RegistryPlace {
  RegistryPlace() : registry() {}
  RegistryPlace(const RegistryPlace&) = delete;
  RegistryPlace& operator=(const RegistryPlace&) = delete;
  ~RegistryPlace() {
    if (platform::ModuleIsUnloading()) registry.~HandleRegistry();
  }

  HandleRegistry registry;
};

RegistryPlace g_place;
HandleRegistry& g_registry = g_place.registry;

unsigned __int64 KeyOf(HINTERNET handle) { return reinterpret_cast<std::uintptr_t>(handle); }

}  // namespace

HandleRegistry::Entry* HandleRegistry::EntryOf(HINTERNET handle) {
  const auto entry = entries_.find(KeyOf(handle));
  return entry == entries_.end() ? nullptr : &entry->second;
}

HandleRegistry::Entry* HandleRegistry::EntryOwnedBy(HINTERNET handle, const void* owner) {
  Entry* entry = EntryOf(handle);
  if (entry == nullptr) return nullptr;
  const auto& owners = entry->owners;
  return std::find(owners.begin(), owners.end(), owner) == owners.end() ? nullptr : entry;
}

void HandleRegistry::Add(HINTERNET handle, const void* owner, HINTERNET parent,
                         CQNInternetSession* session) {
  if (handle == nullptr) return;
  const std::lock_guard lock(mutex_);
  const Entry* above = EntryOf(parent);
  const Id parent_id = above != nullptr ? above->id : 0;
  const Id grandparent_id = above != nullptr ? above->parent : 0;
  // An entry that is there already is of a handle that the platform has closed meanwhile.
  entries_.insert_or_assign(KeyOf(handle),
                            Entry{++last_id_, parent_id, grandparent_id, {owner}, session});
}

void HandleRegistry::SetSession(HINTERNET handle, CQNInternetSession* session) {
  const std::lock_guard lock(mutex_);
  if (Entry* entry = EntryOf(handle)) entry->session = session;
}

void HandleRegistry::Share(HINTERNET handle, const void* owner, const void* copy) {
  const std::lock_guard lock(mutex_);
  if (Entry* entry = EntryOwnedBy(handle, owner)) entry->owners.push_back(copy);
}

CQNInternetSession* HandleRegistry::Find(HINTERNET handle) {
  const std::lock_guard lock(mutex_);
  const Entry* entry = EntryOf(handle);
  return entry != nullptr ? entry->session : nullptr;
}

bool HandleRegistry::Owns(HINTERNET handle, const void* owner) {
  const std::lock_guard lock(mutex_);
  return EntryOwnedBy(handle, owner) != nullptr;
}

void HandleRegistry::Remove(HINTERNET handle, const void* owner) {
  const std::lock_guard lock(mutex_);
  const Entry* entry = EntryOwnedBy(handle, owner);
  if (entry == nullptr) return;
  const Id id = entry->id;
  std::erase_if(entries_, [id](const auto& any) {
    return any.second.id == id || any.second.parent == id || any.second.grandparent == id;
  });
}

void HandleRegistry::RemoveSession(const CQNInternetSession* session) {
  std::unique_lock lock(mutex_);
  std::erase_if(entries_, [session](const auto& entry) { return entry.second.session == session; });
  call_ended_.wait(lock, [&] { return !RunsElsewhere(session); });
}

bool HandleRegistry::RunsElsewhere(const CQNInternetSession* session) const {
  for (const StatusCall* call = calls_; call != nullptr; call = call->next_) {
    if (call->session_ == session && call->thread_ != std::this_thread::get_id()) return true;
  }
  return false;
}

StatusCall::StatusCall(HandleRegistry& registry, HINTERNET handle) : registry_(registry) {
  const std::lock_guard lock(registry_.mutex_);
  const HandleRegistry::Entry* entry = registry_.EntryOf(handle);
  if (entry == nullptr || entry->session == nullptr) return;
  session_ = entry->session;
  next_ = std::exchange(registry_.calls_, this);
}

StatusCall::~StatusCall() {
  if (session_ == nullptr) return;
  const std::lock_guard lock(registry_.mutex_);
  StatusCall** link = &registry_.calls_;
  while (*link != this) link = &(*link)->next_;
  *link = next_;
  registry_.call_ended_.notify_all();
}

HandleRegistry& Registry() { return g_registry; }

void CloseRegisteredHandle(HINTERNET& handle, const void* owner) {
  const HINTERNET closing = std::exchange(handle, nullptr);
  if (closing == nullptr || !g_registry.Owns(closing, owner)) return;
  InternetCloseHandle(closing);
  g_registry.Remove(closing, owner);
}

}  // namespace quarnfc::net
