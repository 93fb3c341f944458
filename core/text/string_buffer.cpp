// SPDX-License-Identifier: MIT
#include "core/text/string_buffer.h"

#include <quarnfc/fixed_alloc.h>

#include <algorithm>
#include <climits>
#include <new>

#include "platform/threads.h"

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

// What lies in front of the characters of a buffer from the heap: room tells how large a capacity
// the block has space for. Beyond the capacity that hosts see, a string grows where it lies.
struct HeapBlock {
  int room;
  StringHeader header;
};

HeapBlock* HeapBlockOf(char* text) { return reinterpret_cast<HeapBlock*>(text) - 1; }

// A heap buffer of exactly this length with room for more; both are above kLargestPooled.
char* AllocHeapBuffer(int length, int room) {
  if (length > kMaxLength) throw std::bad_alloc();
  void* const place = ::operator new[](sizeof(HeapBlock) + static_cast<std::size_t>(room) + 1);
  char* const text = reinterpret_cast<char*>(new (place) HeapBlock{room, {1, length, length}} + 1);
  text[length] = '\0';
  return text;
}

// A buffer of exactly this length to which a text of old_length goes over. Room for twice the text
// lets one that is appended to piece by piece be copied a few times only.
char* AllocGrownBuffer(int length, int old_length) {
  if (length <= kLargestPooled) return AllocStringBuffer(length);
  const int twice = old_length > kMaxLength / 2 ? kMaxLength : 2 * old_length;
  return AllocHeapBuffer(length, std::max(length, twice));
}

// Gives an unshared heap buffer a larger capacity if its block has the room.
bool Widen(char* text, int capacity) {
  StringHeader* header = HeaderOf(text);
  const bool is_own = References(text) == 1 && header->capacity > kLargestPooled;
  if (!is_own || capacity > HeapBlockOf(text)->room) return false;
  header->capacity = capacity;
  return true;
}

// Whether length bytes may be written into the buffer, which is widened if it takes that.
bool HasRoom(char* text, int length) { return FitsInPlace(text, length) || Widen(text, length); }

// Takes one reference away; returns how many there were.
int TakeReference(int& references) {
  if (platform::HasOneThread()) return references--;
  return std::atomic_ref<int>(references).fetch_sub(1, std::memory_order_acq_rel);
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
  const int capacity = CapacityFor(length);
  CQNFixedAlloc* const pool = PoolOf(capacity);
  if (pool == nullptr) return AllocHeapBuffer(length, length);
  auto* header = new (pool->Alloc()) StringHeader{1, length, capacity};
  char* text = reinterpret_cast<char*>(header + 1);
  text[length] = '\0';
  return text;
}

char* NewStringBuffer(const char* source, int length) {
  char* const text = AllocStringBuffer(length);
  if (length > 0) std::memcpy(text, source, static_cast<std::size_t>(length));
  return text;
}

void ShareStringBuffer(char* text) {
  int& references = HeaderOf(text)->references;
  if (platform::HasOneThread()) {
    ++references;
  } else {
    std::atomic_ref<int>(references).fetch_add(1, std::memory_order_relaxed);
  }
}

void ReleaseStringBuffer(char* text) {
  if (text == EmptyBuffer()) return;
  StringHeader* header = HeaderOf(text);
  // Nobody else can share a buffer whose only string is being released: its count need not change.
  if (IsShared(text) && TakeReference(header->references) > 1) return;
  if (CQNFixedAlloc* pool = PoolOf(header->capacity)) {
    pool->Free(header);
  } else {
    ::operator delete[](HeapBlockOf(text));
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
  ReplaceBuffer(text, NewStringBuffer(source, length));
}

void AppendBytes(char*& text, const char* source, int length) {
  if (length == 0) return;
  const int old_length = HeaderOf(text)->length;
  const int new_length = JoinedLength(old_length, length);
  if (HasRoom(text, new_length)) {
    CopyBytes(text + old_length, source, length);
    SetStringLength(text, new_length);
    return;
  }
  char* buffer = AllocGrownBuffer(new_length, old_length);
  CopyBytes(buffer, text, old_length);
  CopyBytes(buffer + old_length, source, length);
  ReplaceBuffer(text, buffer);
}

void AppendByte(char*& text, char byte) {
  // A store of a byte may change any pointer for all that the compiler knows: one is kept.
  char* const bytes = text;
  const int length = HeaderOf(bytes)->length;
  if (length == kMaxLength || !HasRoom(bytes, length + 1)) {
    const char source = byte;
    return AppendBytes(text, &source, 1);
  }
  HeaderOf(bytes)->length = length + 1;
  bytes[length] = byte;
  bytes[length + 1] = '\0';
}

void Unshare(char*& text) {
  if (!IsShared(text)) return;
  ReplaceBuffer(text, NewStringBuffer(text, HeaderOf(text)->length));
}

void Reserve(char*& text, int capacity) {
  if (HasRoom(text, capacity)) return;
  const int length = HeaderOf(text)->length;
  char* buffer = capacity > length ? AllocGrownBuffer(capacity, length) : AllocStringBuffer(length);
  CopyBytes(buffer, text, length);
  SetStringLength(buffer, length);
  ReplaceBuffer(text, buffer);
}

void ReserveAnew(char*& text, int capacity) {
  if (!FitsInPlace(text, capacity)) ReplaceBuffer(text, AllocStringBuffer(capacity));
}

}  // namespace quarnfc
