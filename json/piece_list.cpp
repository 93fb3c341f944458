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
  if (next_ == nullptr) return;
  Piece& piece = pieces_.back();
  piece.length = static_cast<std::size_t>(next_ - piece.bytes.get());
  length_ += piece.length;
  next_ = end_ = nullptr;
  if (length_ > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
}

std::size_t PieceList::Length() {
  EndPiece();
  return length_;
}

CQNString PieceList::Join() {
  CQNString text;
  if (Length() > 0) JoinInto(text.GetBufferSetLength(static_cast<int>(length_)));
  return text;
}

OwnedText PieceList::JoinBuffer() {
  OwnedText text(AllocChars(Length()));
  JoinInto(text.get());
  return text;
}

void PieceList::JoinInto(char* target) {
  Drain([&target](std::span<const char> piece) {
    target = std::copy(piece.begin(), piece.end(), target);
  });
}

}  // namespace quarnfc::json
