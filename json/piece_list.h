// Text gathered as a list of pieces and joined once, in one buffer of the final length.
#ifndef QUARNFC_JSON_PIECE_LIST_H_
#define QUARNFC_JSON_PIECE_LIST_H_

#include <quarnfc/qn_string.h>

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace quarnfc::json {

class PieceList {
 public:
  void Append(char byte) { current_.push_back(byte); }
  void Append(std::string_view text) { current_.append(text); }
  void Append(std::size_t count, char byte) { current_.append(count, byte); }

  // Appends count bytes for the caller to fill at once.
  char* Extend(std::size_t count);

  // Begins a new piece when the current one has grown long enough.
  void EndItem() {
    if (current_.size() > kPieceLength) EndPiece();
  }

  // Begins a new piece. Throws std::bad_alloc when the text would exceed 2 GiB.
  void EndPiece();

  // The whole text. The pieces are released while they are copied.
  CQNString Join();

 private:
  static constexpr std::size_t kPieceLength = 512;

  std::deque<std::string> pieces_;
  std::string current_;
  std::size_t length_ = 0;  // of the finished pieces
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_PIECE_LIST_H_
