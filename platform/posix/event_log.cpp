// SPDX-License-Identifier: MIT
#include <syslog.h>

#include <memory>
#include <new>

#include "platform/code_page.h"
#include "platform/diagnostics.h"

namespace quarnfc::platform {

namespace {

// The priority for an event type of Windows.
int ToPriority(unsigned short type) {
  switch (type) {
    case 0x01:  // error
      return LOG_ERR;
    case 0x02:  // warning
    case 0x10:  // audit failure
      return LOG_WARNING;
    case 0x00:  // success
    case 0x04:  // information
      return LOG_INFO;
    default:  // audit success and whatever else a host passes
      return LOG_NOTICE;
  }
}

// Units for a conversion: on the stack as a rule, because a crash may have left no usable heap.
template <typename Unit>
class Scratch {
 public:
  // Null when memory is exhausted.
  Unit* Take(int count) {
    if (count <= kOnStack) return units_;
    more_.reset(new (std::nothrow) Unit[static_cast<std::size_t>(count)]);
    return more_.get();
  }

 private:
  static constexpr int kOnStack = 2048;
  Unit units_[kOnStack];
  std::unique_ptr<Unit[]> more_;
};

// A text in UTF-8, which readers of the system log expect; null when it cannot be converted.
class Utf8Text {
 public:
  explicit Utf8Text(const char* text) {
    const int wide_count = ToUtf16(Encoding::kAnsi, text, kTerminated, nullptr, 0);
    wchar_t* wide = wide_.Take(wide_count);
    if (wide == nullptr) return;
    ToUtf16(Encoding::kAnsi, text, kTerminated, wide, wide_count);
    const int count = FromUtf16(Encoding::kUtf8, wide, wide_count, nullptr, 0);
    char* bytes = bytes_.Take(count);
    if (bytes != nullptr && FromUtf16(Encoding::kUtf8, wide, wide_count, bytes, count) > 0) {
      utf8_ = bytes;
    }
  }

  const char* get() const { return utf8_; }

 private:
  Scratch<wchar_t> wide_;
  Scratch<char> bytes_;
  const char* utf8_ = nullptr;
};

}  // namespace

void WriteEventLogEntry(const char* source, unsigned short type, const char* text) {
  // Without openlog: its settings belong to the host.
  const Utf8Text utf8(text);
  if (utf8.get() != nullptr) syslog(LOG_USER | ToPriority(type), "%s: %s", source, utf8.get());
}

}  // namespace quarnfc::platform
