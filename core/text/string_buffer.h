// SPDX-License-Identifier: MIT
// The representation of CQNString: characters preceded, in the same block, by a header of three
// 32-bit words.
#ifndef QUARNFC_CORE_TEXT_STRING_BUFFER_H_
#define QUARNFC_CORE_TEXT_STRING_BUFFER_H_

#include <atomic>
#include <cstddef>
#include <cstring>

namespace quarnfc {

struct StringHeader {
  int references;  // strings that share the buffer; -1: locked, or the shared empty buffer
  int length;      // bytes of text, without the terminator
  int capacity;    // bytes the buffer holds, without the terminator
};
static_assert(sizeof(StringHeader) == 12);

inline StringHeader* HeaderOf(const char* text) {
  return reinterpret_cast<StringHeader*>(const_cast<char*>(text)) - 1;
}

// The number of strings that share the buffer, as last published by their threads.
inline int References(const char* text) {
  return std::atomic_ref<int>(HeaderOf(text)->references).load(std::memory_order_acquire);
}

inline bool IsShared(const char* text) { return References(text) > 1; }
inline bool IsLocked(const char* text) { return References(text) < 0; }

// Whether length bytes may be written into the buffer as it is.
inline bool FitsInPlace(const char* text, int length) {
  return !IsShared(text) && length <= HeaderOf(text)->capacity;
}

// The buffer every empty string points at. It is never written to and never freed.
char* EmptyBuffer();

// A buffer with reference count 1, the given length, a terminator at length and uninitialised
// characters; the shared empty buffer for 0. Throws std::bad_alloc.
char* AllocStringBuffer(int length);

// The same with a copy of length bytes of source.
char* NewStringBuffer(const char* source, int length);

// The capacity of a new buffer for this length.
inline int CapacityFor(int length) {
  if (length <= 64) return length <= 0 ? 0 : 64;
  if (length <= 128) return 128;
  if (length <= 256) return 256;
  if (length <= 512) return 512;
  return length;
}

// Whether the buffer is what AllocStringBuffer gives for this length, but for what is written in
// it.
inline bool IsLikeNew(const char* text, int length) {
  const int new_references = length <= 0 ? -1 : 1;
  return References(text) == new_references && HeaderOf(text)->capacity == CapacityFor(length);
}

// Adds a reference to a buffer that is not locked.
void ShareStringBuffer(char* text);

// Takes a reference away; the last one frees the buffer. The shared empty buffer is left alone.
void ReleaseStringBuffer(char* text);

// Sets the length and the terminator of an unshared buffer that holds at least length bytes.
void SetStringLength(char* text, int length);

// A length as the int it is kept in; std::bad_alloc when it does not fit.
int CheckedLength(std::size_t length);

inline int TextLength(const char* text) {
  return text == nullptr ? 0 : CheckedLength(std::strlen(text));
}

// The two rules by which text enters a string. *text is the string's buffer, replaced where the
// rule asks for it. source may lie inside it.
//
// Copy rule: in place when the buffer is not shared and large enough, so that an unshared or
// locked buffer keeps its capacity; otherwise into a new buffer.
void AssignBytes(char*& text, const char* source, int length);

// Append rule: in place under the same condition; otherwise into a buffer of the exact length. That
// is a new one unless the old one can be lengthened where it lies.
void AppendBytes(char*& text, const char* source, int length);
void AppendByte(char*& text, char byte);

// Makes the buffer unshared before it is written to.
void Unshare(char*& text);

// Makes the buffer unshared and at least capacity bytes long; keeps the text.
void Reserve(char*& text, int capacity);

// The same for text that is about to be replaced as a whole: a new buffer starts without it and is
// of exactly the capacity asked for.
void ReserveAnew(char*& text, int capacity);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_STRING_BUFFER_H_
