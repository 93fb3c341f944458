// SPDX-License-Identifier: MIT
// Chunks that a host frames itself (RFC 9112, 7.1):
//
//   body  = { chunk } "0" [ extension ] end { trailer end } end
//   chunk = size in hexadecimal digits [ extension ] end bytes end
//
// where an end is LF or CR LF, and what stands behind the size goes unread. Pieces of any size go
// in; lines are held up to 4,096 bytes, contents are handed on where they lie.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_CHUNK_READER_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_CHUNK_READER_H_

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace quarnfc::internet {

// Takes a body in chunks (RFC 9112, 7.1) apart, in pieces of any size. Extensions and trailers are
// left out.
class ChunkReader {
 public:
  using Sink = std::function<unsigned int(std::string_view)>;  // returns an error; 0 goes on

  // Hands the content of the chunks to sink. Returns sink's error, or 87 for wrong framing.
  unsigned int Take(std::string_view bytes, const Sink& sink);

  // Whether the last chunk, the empty one, has been seen.
  bool Ended() const { return state_ == State::kEnded; }

 private:
  enum class State { kSize, kContent, kContentEnd, kTrailer, kEnded };

  bool TakeLine(std::string_view& bytes, std::string& line);
  bool TakeSize();
  unsigned int TakeContent(std::string_view& bytes, const Sink& sink);
  bool EndLine();

  State state_ = State::kSize;
  std::string line_;
  unsigned long long left_ = 0;
};

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_CHUNK_READER_H_
