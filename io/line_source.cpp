// One buffer slides over the file. A line is ended by a zero byte in place of its line feed; when
// none is left in the buffer, the unread rest moves to the front and the file fills up behind it. A
// line that starts at the front and does not end within the buffer is too long. Every byte is moved
// at most once per refill, so memory is constant and time proportional to the file.
//
// Deliberate: a last line without a line feed that ends exactly with a full buffer is not returned.
// It is the zero bytes behind the end of the file that end a last line, and there are none then.
#include "io/line_source.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "platform/crt.h"

namespace quarnfc::io {
namespace {

constexpr unsigned char kUtf8Mark[3] = {0xEF, 0xBB, 0xBF};

// A whole small file with a terminating zero, or the largest buffer. A size that is not known
// counts as 0.
int BufferSizeFor(std::int64_t file_size) {
  if (file_size > LineSource::kMaxBufferSize) return LineSource::kMaxBufferSize;
  return static_cast<int>(std::max<std::int64_t>(file_size, 0)) + 1;
}

std::int64_t FileSize(std::FILE* file) {
  return _fseeki64(file, 0, SEEK_END) == 0 ? _ftelli64(file) : 0;
}

bool StartsWithUtf8Mark(std::FILE* file) {
  unsigned char start[sizeof(kUtf8Mark)];
  return std::fread(start, 1, sizeof(start), file) == sizeof(start) &&
         std::memcmp(start, kUtf8Mark, sizeof(start)) == 0;
}

}  // namespace

bool LineSource::Open(const char* path) {
  Close();
  File file(_fsopen(path, "rb", _SH_DENYNO));
  if (file == nullptr) return false;
  const int size = BufferSizeFor(FileSize(file.get()));
  buffer_ = std::make_unique<char[]>(size);  // a failure leaves no file open
  size_ = size;
  _fseeki64(file.get(), 0, SEEK_SET);
  utf8_ = StartsWithUtf8Mark(file.get());
  file_ = std::move(file);
  return true;
}

void LineSource::Close() { *this = LineSource(); }

void LineSource::Rewind() {
  _fseeki64(file_.get(), utf8_ ? sizeof(kUtf8Mark) : 0, SEEK_SET);
  std::memset(buffer_.get(), 0, size_);
  position_ = 0;
}

LineStatus LineSource::Next(Line& line) {
  for (;;) {
    SkipBlanks();
    const int end = FindLineEnd();
    if (end < size_) {
      buffer_[end] = '\0';
      line = {buffer_.get() + position_, static_cast<std::size_t>(end - position_)};
      position_ = end + 1;
      return LineStatus::kLine;
    }
    if (position_ == 0) return LineStatus::kTooLong;
    if (!Refill()) return LineStatus::kEnd;
  }
}

// Passes over blank lines and leading blanks; a carriage return is none.
void LineSource::SkipBlanks() {
  const auto is_blank = [](char ch) { return ch == '\n' || ch == '\0' || ch == ' ' || ch == '\t'; };
  while (position_ < size_ && is_blank(buffer_[position_])) ++position_;
}

// The index of the next line feed or zero byte, or the size of the buffer. The search goes window
// by window, so that its time follows the length of the line whichever byte ends it.
int LineSource::FindLineEnd() const {
  constexpr int kWindow = 256;
  for (int from = position_; from < size_; from += kWindow) {
    const char* const window = buffer_.get() + from;
    const int length = std::min(kWindow, size_ - from);
    const auto* const feed = static_cast<const char*>(std::memchr(window, '\n', length));
    const auto before_feed = static_cast<std::size_t>(feed == nullptr ? length : feed - window);
    const auto* const zero = static_cast<const char*>(std::memchr(window, '\0', before_feed));
    const char* const end = zero != nullptr ? zero : feed;
    if (end != nullptr) return static_cast<int>(end - buffer_.get());
  }
  return size_;
}

// Moves the unread bytes to the start of the buffer and fills the rest from the file, with zeros
// behind the end of the file. False when the file delivers nothing.
bool LineSource::Refill() {
  const int kept = size_ - position_;
  std::memmove(buffer_.get(), buffer_.get() + position_, kept);
  position_ = 0;
  char* const rest = buffer_.get() + kept;
  const std::size_t rest_size = size_ - kept;
  const std::size_t count = std::fread(rest, 1, rest_size, file_.get());
  std::memset(rest + count, 0, rest_size - count);
  return count > 0;
}

}  // namespace quarnfc::io
