// SPDX-License-Identifier: MIT
#include "core/text/string_buffer.h"

#include <quarnfc/fixed_alloc.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <new>

namespace quarnfc {
namespace {

struct EmptyBlock {
  StringHeader header;
  char text[4];
};

// Not const: operator const char* and GetBuffer hand out its address. Nothing here writes to it.
EmptyBlock g_empty = {{-1, 0, 0}, ""};

constexpr int kLargestPooled = 512;
constexpr int kMaxLength = INT_MAX - static_cast<int>(sizeof(StringHeader)) - 1;

// The pool that serves buffers of exactly this capacity; null for the heap.
CQNFixedAlloc* PoolOf(int capacity) {
  switch (capacity) {
    case 64:
      return _TempData64B();
    case 128:
      return _TempData128B();
    case 256:
      return _TempData256B();
    case 512:
      return _TempData512B();
    default:
      return nullptr;
  }
}

int CapacityFor(int length) {
  if (length <= 64) return 64;
  if (length <= 128) return 128;
  if (length <= 256) return 256;
  if (length <= 512) return 512;
  return length;
}

// The bytes of a heap block for this capacity: the next of four sizes between one power of two and
// the next. What is left over is hidden behind the capacity and lets a string grow where it lies,
// so that appending piece by piece copies each byte a few times only.
std::size_t BlockSize(int capacity) {
  const std::size_t bytes = sizeof(StringHeader) + static_cast<std::size_t>(capacity) + 1;
  const std::size_t step = std::bit_floor(bytes) / 4;  // a power of two
  return (bytes + step - 1) & ~(step - 1);
}

// Gives an unshared heap buffer a larger capacity if its block has the room.
bool Widen(char* text, int capacity) {
  StringHeader* header = HeaderOf(text);
  const bool is_own = References(text) == 1 && header->capacity > kLargestPooled;
  if (!is_own || BlockSize(capacity) != BlockSize(header->capacity)) return false;
  header->capacity = capacity;
  return true;
}

int JoinedLength(int left, int right) {
  return CheckedLength(static_cast<std::size_t>(left) + static_cast<std::size_t>(right));
}

void CopyBytes(char* destination, const char* source, int length) {
  if (length > 0) std::memmove(destination, source, static_cast<std::size_t>(length));
}

// Puts a new buffer in the place of the old one.
void ReplaceBuffer(char*& text, char* buffer) {
  ReleaseStringBuffer(text);
  text = buffer;
}

}  // namespace

char* EmptyBuffer() { return g_empty.text; }

char* AllocStringBuffer(int length) {
  if (length <= 0) return EmptyBuffer();
  if (length > kMaxLength) throw std::bad_alloc();

  const int capacity = CapacityFor(length);
  CQNFixedAlloc* pool = PoolOf(capacity);
  void* block = pool != nullptr ? pool->Alloc() : ::operator new[](BlockSize(capacity));
  auto* header = new (block) StringHeader{1, length, capacity};
  char* text = reinterpret_cast<char*>(header + 1);
  text[length] = '\0';
  return text;
}

bool IsLikeNew(const char* text, int length) {
  if (length <= 0) return text == EmptyBuffer();
  return References(text) == 1 && HeaderOf(text)->capacity == CapacityFor(length);
}

void ShareStringBuffer(char* text) {
  std::atomic_ref<int>(HeaderOf(text)->references).fetch_add(1, std::memory_order_relaxed);
}

void ReleaseStringBuffer(char* text) {
  if (text == EmptyBuffer()) return;
  StringHeader* header = HeaderOf(text);
  // Nobody else can share a buffer whose only string is being released: its count need not change.
  const bool was_shared =
      IsShared(text) &&
      std::atomic_ref<int>(header->references).fetch_sub(1, std::memory_order_acq_rel) > 1;
  if (was_shared) return;
  if (CQNFixedAlloc* pool = PoolOf(header->capacity)) {
    pool->Free(header);
  } else {
    ::operator delete[](header);
  }
}

void SetStringLength(char* text, int length) {
  if (text == EmptyBuffer()) return;
  HeaderOf(text)->length = length;
  text[length] = '\0';
}

int CheckedLength(std::size_t length) {
  if (length > static_cast<std::size_t>(kMaxLength)) throw std::bad_alloc();
  return static_cast<int>(length);
}

void AssignBytes(char*& text, const char* source, int length) {
  if (FitsInPlace(text, length)) {
    CopyBytes(text, source, length);
    SetStringLength(text, length);
    return;
  }
  char* buffer = AllocStringBuffer(length);
  CopyBytes(buffer, source, length);
  ReplaceBuffer(text, buffer);
}

void AppendBytes(char*& text, const char* source, int length) {
  if (length == 0) return;
  const int old_length = HeaderOf(text)->length;
  const int new_length = JoinedLength(old_length, length);
  if (FitsInPlace(text, new_length) || Widen(text, new_length)) {
    CopyBytes(text + old_length, source, length);
    SetStringLength(text, new_length);
    return;
  }
  char* buffer = AllocStringBuffer(new_length);
  CopyBytes(buffer, text, old_length);
  CopyBytes(buffer + old_length, source, length);
  ReplaceBuffer(text, buffer);
}

void Unshare(char*& text) {
  if (!IsShared(text)) return;
  const int length = HeaderOf(text)->length;
  char* buffer = AllocStringBuffer(length);
  CopyBytes(buffer, text, length);
  ReplaceBuffer(text, buffer);
}

void Reserve(char*& text, int capacity) {
  if (FitsInPlace(text, capacity) || Widen(text, capacity)) return;
  const int length = HeaderOf(text)->length;
  char* buffer = AllocStringBuffer(std::max(capacity, length));
  CopyBytes(buffer, text, length);
  SetStringLength(buffer, length);
  ReplaceBuffer(text, buffer);
}

void ReserveAnew(char*& text, int capacity) {
  if (!FitsInPlace(text, capacity)) ReplaceBuffer(text, AllocStringBuffer(capacity));
}

}  // namespace quarnfc
