// SPDX-License-Identifier: MIT
#include "platform/posix/internet/handle.h"

#include <cstdint>
#include <mutex>
#include <utility>

namespace quarnfc::internet {
namespace {

class HandleTable {
 public:
  void Add(const std::shared_ptr<Handle>& handle) {
    const std::lock_guard lock(mutex_);
    // Numbers that are no address of anything, as on Windows.
    last_number_ += 4;
    handle->number = reinterpret_cast<HINTERNET>(last_number_);
    handles_[last_number_] = handle;
  }

  std::shared_ptr<Handle> Find(HINTERNET number) {
    const std::lock_guard lock(mutex_);
    const auto entry = handles_.find(reinterpret_cast<std::uintptr_t>(number));
    return entry == handles_.end() ? nullptr : entry->second;
  }

  Handles Remove(const Handle& handle) {
    const std::lock_guard lock(mutex_);
    Handles removed;
    for (auto entry = handles_.begin(); entry != handles_.end();) {
      const auto current = entry++;
      if (IsBelow(current->second.get(), &handle)) removed.insert(handles_.extract(current));
    }
    return removed;
  }

 private:
  static bool IsBelow(const Handle* handle, const Handle* above) {
    while (handle != nullptr && handle != above) handle = handle->parent.get();
    return handle != nullptr;
  }

  std::mutex mutex_;
  std::uintptr_t last_number_ = 0x00CC0000;
  Handles handles_;
};

// Never destroyed: hosts may close handles while the process ends.
HandleTable& Table() {
  static HandleTable& table = *new HandleTable;
  return table;
}

}  // namespace

Handle::Handle(DWORD handle_type, std::shared_ptr<Handle> above, unsigned __int64 context_value)
    : type(handle_type), parent(std::move(above)), context(context_value) {
  if (parent == nullptr) return;
  callback = parent->callback.load();
  settings = parent->settings;
}

void Handle::Report(DWORD status, void* information, DWORD length) const {
  const INTERNET_STATUS_CALLBACK call = callback;
  if (call != nullptr) call(number, context, status, information, length);
}

void Handle::Report(DWORD status, const std::string& text) const {
  std::string copy(text);  // the host may write to it
  Report(status, copy.data(), static_cast<DWORD>(copy.size() + 1));
}

HINTERNET Enter(const std::shared_ptr<Handle>& handle) {
  Table().Add(handle);
  // Reported through the handle above, which is the one that the host knows so far.
  if (handle->parent != nullptr && handle->callback != nullptr) {
    HINTERNET number = handle->number;
    handle->callback.load()(handle->parent->number, handle->context, INTERNET_STATUS_HANDLE_CREATED,
                            &number, sizeof(number));
  }
  return handle->number;
}

std::shared_ptr<Handle> FindHandle(HINTERNET number) {
  std::shared_ptr<Handle> handle = Table().Find(number);
  if (handle == nullptr) SetLastError(ERROR_INVALID_HANDLE);
  return handle;
}

Handles Remove(const Handle& handle) { return Table().Remove(handle); }

int Answer(DWORD error) {
  if (error == 0) return 1;
  SetLastError(error);
  return 0;
}

}  // namespace quarnfc::internet
