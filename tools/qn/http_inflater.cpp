// SPDX-License-Identifier: MIT
#include "qn/http_inflater.h"

#include <zlib.h>

#include <new>
#include <string>
#include <vector>

#include "qn/errors.h"

namespace qn {

struct HttpInflater::Stream {
  // A gzip stream may be followed by another one.
  enum class State { kStart, kInside, kEnd };

  explicit Stream(bool is_gzip) : gzip(is_gzip) {}
  ~Stream() {
    if (state != State::kStart) inflateEnd(&zlib);
  }

  // What servers call deflate is a zlib stream, or the bare one, which starts differently.
  void Begin(char first) {
    const bool bare = !gzip && (static_cast<unsigned char>(first) & 0x0F) != Z_DEFLATED;
    constexpr int kGzip = 16;
    const int bits = bare ? -MAX_WBITS : gzip ? MAX_WBITS + kGzip : MAX_WBITS;
    if (inflateInit2(&zlib, bits) != Z_OK) throw std::bad_alloc();
    state = State::kInside;
  }

  std::string_view Unpack();

  const bool gzip;
  State state = State::kStart;
  z_stream zlib = {};
  std::vector<char> block = std::vector<char>(64 * 1024);
};

const char* HttpInflater::AcceptEncoding() { return "Accept-Encoding: gzip, deflate"; }

HttpInflater::HttpInflater(std::string_view coding) {
  if (coding.empty() || coding == "identity") return;
  const bool gzip = coding == "gzip" || coding == "x-gzip";
  if (!gzip && coding != "deflate") {
    throw Failure("the server compresses with '" + std::string(coding) +
                  "', which was not asked for");
  }
  stream_ = std::make_unique<Stream>(gzip);
}

HttpInflater::~HttpInflater() = default;

// Unpacks until the block is full or the input is used up; the bytes unpacked.
std::string_view HttpInflater::Stream::Unpack() {
  zlib.next_out = reinterpret_cast<Bytef*>(block.data());
  zlib.avail_out = static_cast<uInt>(block.size());
  const int result = inflate(&zlib, Z_NO_FLUSH);
  if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) {
    throw Failure("the compressed body is broken");
  }
  if (result == Z_STREAM_END) state = State::kEnd;
  return {block.data(), block.size() - zlib.avail_out};
}

void HttpInflater::Write(std::string_view piece, const Sink& sink) {
  if (stream_ == nullptr) return sink(piece);
  if (piece.empty()) return;
  Stream& stream = *stream_;
  if (stream.state == Stream::State::kStart) stream.Begin(piece[0]);
  stream.zlib.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(piece.data()));
  stream.zlib.avail_in = static_cast<uInt>(piece.size());
  for (bool more = true; more;) {
    if (stream.state == Stream::State::kEnd) {
      // What follows the end of any other stream is nobody's.
      if (stream.zlib.avail_in == 0 || !stream.gzip) return;
      inflateReset(&stream.zlib);
      stream.state = Stream::State::kInside;
    }
    sink(stream.Unpack());
    more = stream.zlib.avail_in != 0 || stream.zlib.avail_out == 0;
  }
}

void HttpInflater::Finish() const {
  if (stream_ != nullptr && stream_->state == Stream::State::kInside) {
    throw Failure("the compressed body ends too early");
  }
}

}  // namespace qn
