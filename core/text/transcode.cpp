// SPDX-License-Identifier: MIT
#include "core/text/transcode.h"

#include <quarnfc/fixed_alloc.h>

#include <new>

namespace quarnfc {

namespace {

using platform::kTerminated;

// The units of a conversion, which is never empty: the terminator is one of them. The converter may
// fail with either call: what it then leaves in a buffer is no text.
int Checked(int count) {
  if (count < 1) throw std::bad_alloc();
  return count;
}

int WideCount(Encoding from, const char* text) {
  return Checked(platform::ToUtf16(from, text, kTerminated, nullptr, 0));
}

CQNFixedAlloc* PoolFor(int count) {
  if (count <= 64) return _TempData128B();
  if (count <= 128) return _TempData256B();
  if (count <= 256) return _TempData512B();
  return count <= 512 ? _TempData1024B() : nullptr;
}

}  // namespace

WideScratch::WideScratch(Encoding from, const char* text)
    : count_(WideCount(from, text)),
      pool_(PoolFor(count_)),
      units_(pool_ != nullptr ? static_cast<wchar_t*>(pool_->Alloc())
                              : AllocWideChars(static_cast<std::size_t>(count_))) {
  if (platform::ToUtf16(from, text, kTerminated, units_, count_) > 0) return;
  Release();
  throw std::bad_alloc();
}

WideScratch::~WideScratch() { Release(); }

void WideScratch::Release() {
  if (pool_ != nullptr) {
    pool_->Free(units_);
  } else {
    FreeBuffer(units_);
  }
}

OwnedWideText ToWide(Encoding from, const char* text) {
  if (text == nullptr) return nullptr;
  const int count = WideCount(from, text);
  OwnedWideText wide(AllocWideChars(static_cast<std::size_t>(count)));
  Checked(platform::ToUtf16(from, text, kTerminated, wide.get(), count));
  return wide;
}

OwnedText FromWide(Encoding to, const wchar_t* text) {
  if (text == nullptr) return nullptr;
  const int count = Checked(platform::FromUtf16(to, text, kTerminated, nullptr, 0));
  OwnedText bytes(AllocChars(static_cast<std::size_t>(count)));
  Checked(platform::FromUtf16(to, text, kTerminated, bytes.get(), count));
  return bytes;
}

char* AnsiToUtf8(std::string_view text, char* target) {
  wchar_t units[kShortText];
  const int count = Checked(platform::ToUtf16(Encoding::kAnsi, text.data(),
                                              static_cast<int>(text.size()), units, kShortText));
  const auto room = static_cast<int>(text.size() * kMostUtf8Bytes);
  return target + Checked(platform::FromUtf16(Encoding::kUtf8, units, count, target, room));
}

}  // namespace quarnfc
