// SPDX-License-Identifier: MIT
// Text of a document piece by piece, whatever its encoding and its size.
#ifndef QN_TEXT_TEXT_STREAM_H_
#define QN_TEXT_TEXT_STREAM_H_

#include <optional>
#include <string>

#include "qn/input_stream.h"
#include "qn/text/encoding.h"

namespace qn {

class TextStream {
 public:
  // A file, or standard input when path is "-". Throws Failure.
  explicit TextStream(const std::string& path, std::optional<Encoding> encoding = std::nullopt);

  // The next piece in UTF-8; "" at the end. Throws Failure when the bytes are no text.
  std::string Next();

  // As far as it is known by what has been read.
  Encoding Found() const { return decoder_.Found(); }

 private:
  InputStream input_;
  TextDecoder decoder_;
  bool ended_ = false;
};

}  // namespace qn

#endif  // QN_TEXT_TEXT_STREAM_H_
