// SPDX-License-Identifier: MIT
// The door through which every allocation of this program goes, and every request to the platform
// that can fail: the n-th request may be refused.
//
// Allocations arrive from the global operators new, which this program replaces. Nodes and pool
// blocks, which the library otherwise cuts from larger pieces, are blocks of their own here
// (library_heaps.cpp), so that each can be refused and each that is lost is noticed.
#ifndef QUARNFC_TESTS_FAILING_MEMORY_DOOR_H_
#define QUARNFC_TESTS_FAILING_MEMORY_DOOR_H_

#include <cstddef>

namespace failing {

enum class Refusal {
  kOnce,  // the n-th request alone
  kEver,  // the n-th and all after it
};

// Refuses requests of this thread from now on; n counts from 1.
void CloseDoor(long n, Refusal refusal);
void OpenDoor();

// Lets everything through as long as it lives: for what stands in for the platform.
class DoorAjar {
 public:
  DoorAjar();
  ~DoorAjar();
  DoorAjar(const DoorAjar&) = delete;
  DoorAjar& operator=(const DoorAjar&) = delete;

 private:
  const bool was_closed_;
};

// Asked for by each request: whether it is refused.
bool IsRefused();

// The same for a conversion between code page and UTF-16, and whether one was refused: what depends
// on it is stated apart.
bool ConverterIsRefused();
bool ConverterWasRefused();

// Conversions take UTF-8 for the code page as long as it lives, as in a process whose code page it
// is: a character has up to four bytes there, and a unit of UTF-16 up to three.
class Utf8CodePage {
 public:
  Utf8CodePage();
  ~Utf8CodePage();
  Utf8CodePage(const Utf8CodePage&) = delete;
  Utf8CodePage& operator=(const Utf8CodePage&) = delete;
};

// How many requests were refused since the door was closed.
long RefusedCount();

// Blocks that were allocated and not freed, of all threads and kinds.
long LiveBlocks();
void CountBlock(int change);

// A block of the plain heap that passes the door; throws std::bad_alloc.
void* TakeBlock(std::size_t size);
void GiveBlock(void* block) noexcept;

}  // namespace failing

#endif  // QUARNFC_TESTS_FAILING_MEMORY_DOOR_H_
