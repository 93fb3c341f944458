// SPDX-License-Identifier: MIT
// Where the library's storage comes from. Two kinds pass through here: buffers that leave the
// library for a caller (released with qnFreeMem, or inside the library with FreeBuffer), which come
// from the global operator new, and small nodes (string cells, JSON values and texts, objects),
// which come from the node heap (node_heap.h) up to kLargestNode bytes and from operator new above.
//
// Beside it stand only the block pools (fixed_alloc.cpp), whose chunks are storage of their own
// kind, and the buffers of strings beyond the largest pool (string_buffer.cpp), which never leave
// the string class.
#ifndef QUARNFC_CORE_MEMORY_MEMORY_H_
#define QUARNFC_CORE_MEMORY_MEMORY_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "core/memory/node_heap.h"

namespace quarnfc {

// A buffer of size bytes, uninitialised. Throws std::bad_alloc.
inline void* AllocBuffer(std::size_t size) { return ::operator new(size); }
inline void FreeBuffer(void* buffer) noexcept { ::operator delete(buffer); }

// A buffer that is freed unless it is handed on with release().
struct BufferDeleter {
  void operator()(void* buffer) const noexcept { FreeBuffer(buffer); }
};
using OwnedText = std::unique_ptr<char, BufferDeleter>;
using OwnedWideText = std::unique_ptr<wchar_t, BufferDeleter>;

inline char* AllocChars(std::size_t count) { return static_cast<char*>(AllocBuffer(count)); }

inline wchar_t* AllocWideChars(std::size_t count) {
  return static_cast<wchar_t*>(AllocBuffer(count * sizeof(wchar_t)));
}

// A new buffer with a copy of length characters and a terminator.
inline char* CopyText(const char* text, std::size_t length) {
  char* copy = AllocChars(length + 1);
  std::memcpy(copy, text, length);
  copy[length] = '\0';
  return copy;
}

inline char* CopyText(const char* text) { return CopyText(text, std::strlen(text)); }

// Length of zero-terminated UTF-16 text in units. (Off Windows the C library's wide functions
// expect 32-bit characters.)
inline std::size_t WideLength(const wchar_t* text) {
  std::size_t length = 0;
  while (text[length] != L'\0') ++length;
  return length;
}

inline wchar_t* CopyWideText(const wchar_t* text, std::size_t length) {
  wchar_t* copy = AllocWideChars(length + 1);
  std::memcpy(copy, text, length * sizeof(wchar_t));
  copy[length] = L'\0';
  return copy;
}

inline wchar_t* CopyWideText(const wchar_t* text) { return CopyWideText(text, WideLength(text)); }

// Nodes come from the plain heap where that lets a tool see each of them: under the sanitizers, and
// with the CMake option QUARNFC_PLAIN_HEAP (for valgrind).
#if defined(QUARNFC_PLAIN_HEAP) || defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool kNodesOnPlainHeap = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(memory_sanitizer)
inline constexpr bool kNodesOnPlainHeap = true;
#else
inline constexpr bool kNodesOnPlainHeap = false;
#endif
#else
inline constexpr bool kNodesOnPlainHeap = false;
#endif

// A node from the plain heap. Not inline: a compiler that sees through to the global operator new
// takes a class's operator delete for the wrong one.
void* AllocPlainNode(std::size_t size);

// Storage for a small node; give the same size back. Throws std::bad_alloc.
inline void* AllocNode(std::size_t size) {
  return kNodesOnPlainHeap || size > kLargestNode ? AllocPlainNode(size) : AllocHeapNode(size);
}

inline void FreeNode(void* node, std::size_t size) noexcept {
  if (kNodesOnPlainHeap || size > kLargestNode) return ::operator delete(node);
  if (node != nullptr) FreeHeapNode(node, size);
}

// For standard containers that live for the time of one call: a small one takes its storage from
// the node heap.
template <class Item>
struct NodeAllocator {
  using value_type = Item;
  // NOLINTNEXTLINE(bugprone-sizeof-expression): an item may be a pointer
  static constexpr std::size_t kItemBytes = sizeof(Item);

  NodeAllocator() = default;
  template <class Other>
  NodeAllocator(const NodeAllocator<Other>& /*other*/) {}

  Item* allocate(std::size_t count) {
    if (count > PTRDIFF_MAX / kItemBytes) throw std::bad_alloc();
    return static_cast<Item*>(AllocNode(count * kItemBytes));
  }
  void deallocate(Item* items, std::size_t count) { FreeNode(items, count * kItemBytes); }

  friend bool operator==(const NodeAllocator& /*left*/, const NodeAllocator& /*right*/) {
    return true;
  }
};

}  // namespace quarnfc

#endif  // QUARNFC_CORE_MEMORY_MEMORY_H_
