// SPDX-License-Identifier: MIT
// Text gathered as a list of pieces and joined once, in one buffer of the final length. Pieces are
// as long as the blocks they lie in, and every block is twice as long as the one before it, up to a
// limit: no byte is moved before it is joined. What was appended at once lies in one piece.
#ifndef QUARNFC_JSON_PIECE_LIST_H_
#define QUARNFC_JSON_PIECE_LIST_H_

#include <quarnfc/qn_string.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "core/memory/memory.h"

namespace quarnfc::json {

class PieceList {
 public:
  void Append(char byte) { *Extend(1) = byte; }

  void Append(std::string_view text) {
    if (!text.empty()) std::memcpy(Extend(text.size()), text.data(), text.size());
  }

  void Append(std::size_t count, char byte) { std::memset(Extend(count), byte, count); }

  // Appends count bytes for the caller to fill at once.
  char* Extend(std::size_t count) {
    char* room = Room(count);
    next_ += count;
    return room;
  }

  // Room for up to count bytes; what is written there is appended by Finish with its end.
  char* Room(std::size_t count) {
    if (static_cast<std::size_t>(end_ - next_) < count) BeginPiece(count);
    return next_;
  }
  void Finish(char* end) { next_ = end; }

  // What follows throws std::bad_alloc when the text exceeds 2 GiB.

  std::size_t Length();

  // The whole text; nothing is left here.
  CQNString Join();
  OwnedText JoinBuffer();

  // Hands the pieces out in turn, each as bytes that may be written to, and frees each afterwards;
  // nothing is left here.
  template <class Take>
  void Drain(Take take) {
    EndPiece();
    for (Piece& piece : pieces_) {
      take(std::span(piece.bytes.get(), piece.length));
      piece.bytes.reset();
    }
    pieces_.clear();
    length_ = 0;
  }

 private:
  struct Piece {
    OwnedText bytes;
    std::size_t length;
  };

  // Begins a piece of at least this many bytes.
  void BeginPiece(std::size_t count);
  void EndPiece();
  void JoinInto(char* target);

  std::vector<Piece> pieces_;  // the last one is being written
  char* next_ = nullptr;       // null between pieces
  char* end_ = nullptr;
  std::size_t capacity_ = 512;  // of the next piece
  std::size_t length_ = 0;      // of the finished pieces
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_PIECE_LIST_H_
