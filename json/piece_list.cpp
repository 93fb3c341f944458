// SPDX-License-Identifier: MIT
#include "json/piece_list.h"

#include <algorithm>
#include <limits>
#include <new>

namespace quarnfc::json {

void PieceList::BeginPiece(std::size_t count) {
  constexpr std::size_t kLongestPiece = 262144;
  EndPiece();
  const std::size_t capacity = std::max(count, capacity_);
  capacity_ = std::min(capacity_ * 2, kLongestPiece);
  pieces_.push_back({OwnedText(AllocChars(capacity)), 0});
  next_ = pieces_.back().bytes.get();
  end_ = next_ + capacity;
}

void PieceList::EndPiece() {
  if (pieces_.empty()) return;
  pieces_.back().length = static_cast<std::size_t>(next_ - pieces_.back().bytes.get());
  length_ += pieces_.back().length;
  if (length_ > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
}

CQNString PieceList::Join() {
  EndPiece();
  CQNString text;
  if (length_ == 0) return text;
  char* target = text.GetBufferSetLength(static_cast<int>(length_));
  for (Piece& piece : pieces_) {
    std::memcpy(target, piece.bytes.get(), piece.length);
    target += piece.length;
    piece.bytes.reset();
  }
  return text;
}

}  // namespace quarnfc::json
