// SPDX-License-Identifier: MIT
#include "qn/text/text_stream.h"

#include "qn/console.h"

namespace qn {

TextStream::TextStream(const std::string& path, std::optional<Encoding> encoding)
    : input_(path), decoder_(path == "-" ? "standard input" : DisplayText(path), encoding) {}

std::string TextStream::Next() {
  constexpr std::size_t kPiece = 256 * 1024;
  std::string text;
  while (text.empty() && !ended_) {
    const std::string bytes = input_.Read(kPiece);
    ended_ = bytes.size() < kPiece;
    text = decoder_.Decode(bytes, ended_);
  }
  return text;
}

}  // namespace qn
