#include "json/piece_list.h"

#include <limits>
#include <new>

namespace quarnfc::json {

char* PieceList::Extend(std::size_t count) {
  const std::size_t length = current_.size();
  current_.resize(length + count);
  return current_.data() + length;
}

void PieceList::EndPiece() {
  length_ += current_.size();
  if (length_ > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
  pieces_.push_back(current_);
  current_.clear();
}

CQNString PieceList::Join() {
  EndPiece();
  CQNString text;
  if (length_ == 0) return text;
  char* target = text.GetBufferSetLength(static_cast<int>(length_));
  for (; !pieces_.empty(); pieces_.pop_front()) {
    const std::string& piece = pieces_.front();
    target += piece.copy(target, piece.size());
  }
  return text;
}

}  // namespace quarnfc::json
