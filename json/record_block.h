// SPDX-License-Identifier: MIT
// Where the records of values and objects live.
//
// A value or object on the heap (a "shell", one pointer wide) lies in one block with room for its
// record: what the library makes takes one allocation instead of two. A shell that a host builds
// elsewhere, or by a public constructor, has its record in a block of its own.
//
//     heap block:   | record | shell (and the members of a host's derived class) |
//
// Copies of a shell share its record, so that either may outlive the other: the block is freed when
// neither the shell nor the record in it is alive any more.
#ifndef QUARNFC_JSON_RECORD_BLOCK_H_
#define QUARNFC_JSON_RECORD_BLOCK_H_

#include <cstddef>
#include <new>

#include "core/memory/memory.h"

namespace quarnfc::json {

// The part of a record that says where it lies. Blocks are as large as an ordinary shell needs;
// those of derived classes come from the plain heap.
struct RecordPlace {
  enum Kind : unsigned char { kAlone, kInBlock, kInLargeBlock };

  Kind kind : 2 = kAlone;
  bool shell_lives : 1 = false;  // of the block around this record
  bool record_lives : 1 = true;
};

template <class Shell, class Record>
class RecordBlock {
 public:
  // A record in a block of its own.
  static Record* NewAlone() { return new (AllocNode(sizeof(Record))) Record; }

  // Room for a shell of this size, whose block has an unused record. Throws std::bad_alloc.
  static void* AllocShell(std::size_t size) {
    Record* record = size == sizeof(Shell) ? AllocBlock() : AllocLargeBlock(size);
    record->place.record_lives = false;
    return record + 1;
  }

  // A block with room for a shell and a live record: the shell begins where the record ends.
  static Record* NewTogether() { return AllocBlock(); }

  // The record in the block around a shell that lies on the heap.
  static Record* Around(void* shell) { return static_cast<Record*>(shell) - 1; }

  // The shell on the heap is gone.
  static void FreeShell(void* shell) noexcept {
    if (shell == nullptr) return;
    Record* record = Around(shell);
    const RecordPlace place = record->place;
    record->place.shell_lives = false;
    if (place.record_lives) return;
    record->~Record();
    FreeBlock(record, place.kind);
  }

  // The shell on the heap is gone together with its record, which lies in the same block.
  static void DestroyBoth(Record* record) noexcept {
    const RecordPlace::Kind kind = record->place.kind;
    record->~Record();
    FreeBlock(record, kind);
  }

  // The record is not needed any more.
  static void Destroy(Record* record) noexcept {
    const RecordPlace place = record->place;
    record->~Record();
    if (place.kind == RecordPlace::kAlone) return FreeNode(record, sizeof(Record));
    if (!place.shell_lives) return FreeBlock(record, place.kind);
    (new (record) Record)->place = {place.kind, true, false};
  }

 private:
  static constexpr std::size_t kBlockSize = sizeof(Record) + sizeof(Shell);

  // Derived classes may need the alignment of any allocation.
  static constexpr std::size_t kPadding = (16 - sizeof(Record) % 16) % 16;

  static Record* AllocBlock() {
    auto* record = new (AllocNode(kBlockSize)) Record;
    record->place = {RecordPlace::kInBlock, true, true};
    return record;
  }

  static Record* AllocLargeBlock(std::size_t size) {
    auto* start = static_cast<unsigned char*>(AllocBuffer(kPadding + sizeof(Record) + size));
    auto* record = new (start + kPadding) Record;
    record->place = {RecordPlace::kInLargeBlock, true, true};
    return record;
  }

  static void FreeBlock(void* record, RecordPlace::Kind kind) noexcept {
    if (kind == RecordPlace::kInBlock) return FreeNode(record, kBlockSize);
    FreeBuffer(static_cast<unsigned char*>(record) - kPadding);
  }
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_RECORD_BLOCK_H_
