// SPDX-License-Identifier: MIT
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
#include <string_view>
#include <utility>

#include "core/text/utf8_mark.h"

namespace quarnfc::io {
namespace {

// A whole small file with a terminating zero, or the largest buffer. A size that is not known
// counts as 0.
std::size_t BufferSizeFor(std::int64_t file_size) {
  const auto size = static_cast<std::size_t>(std::max<std::int64_t>(file_size, 0));
  return size > LineSource::kMaxBufferSize ? LineSource::kMaxBufferSize : size + 1;
}

}  // namespace

platform::SystemError LineSource::Open(const char* path) {
  Close();
  platform::File file;
  if (const platform::SystemError error = file.Open(path, platform::FileMode::kRead)) return error;
  Open(std::move(file));
  return platform::kNoError;
}

void LineSource::Open(platform::File file) {
  Close();
  const std::size_t size = BufferSizeFor(file.Size());
  buffer_ = std::make_unique<char[]>(size + Line::kSlack);  // a failure leaves no file open
  size_ = size;
  file_ = std::move(file);
}

void LineSource::Close() { *this = LineSource(); }

void LineSource::Rewind() {
  read_error_ = GoToData();
  position_ = size_;
  end_ = size_;
}

// Behind the mark, which is looked for once. An error that leaves it open whether there is one is
// an error of reading: UTF-8 taken for the code page would look like text.
platform::SystemError LineSource::GoToData() {
  if (!mark_known_) {
    if (const platform::SystemError error = file_.Seek(0)) return error;
    if (const platform::SystemError error = LookForMark()) return error;
  }
  return file_.Seek(utf8_ ? std::int64_t{kUtf8Mark.size()} : 0);
}

platform::SystemError LineSource::LookForMark() {
  char bytes[kUtf8Mark.size()];
  const platform::Transferred read = file_.Read(bytes, sizeof bytes);
  const std::string_view start(bytes, read.count);
  if (read.error != platform::kNoError && kUtf8Mark.starts_with(start)) return read.error;
  mark_known_ = true;
  utf8_ = start == kUtf8Mark;
  return platform::kNoError;
}

LineStatus LineSource::Next(Line& line) {
  for (;;) {
    SkipBlanks();
    const std::size_t end = FindLineEnd();
    if (IsCutOff(end)) return LineStatus::kReadFailed;
    if (end < size_) {
      buffer_[end] = '\0';
      line = {buffer_.get() + position_, end - position_};
      position_ = end + 1;
      return LineStatus::kLine;
    }
    if (position_ == 0) return LineStatus::kTooLong;
    if (!Refill())
      return read_error_ == platform::kNoError ? LineStatus::kEnd : LineStatus::kReadFailed;
  }
}

// Passes over blank lines and leading blanks; a carriage return is none. What lies behind the end
// of the file is blank.
void LineSource::SkipBlanks() {
  const auto is_blank = [](char ch) { return ch == '\n' || ch == '\0' || ch == ' ' || ch == '\t'; };
  while (position_ < end_ && is_blank(buffer_[position_])) ++position_;
  if (position_ >= end_) position_ = size_;
}

// The index of the next line feed or zero byte, or the size of the buffer. Zero bytes are rare: the
// next one is looked for when the one before was passed, and bounds the search for line feeds.
std::size_t LineSource::FindLineEnd() {
  if (zero_ < position_) zero_ = IndexOf('\0', size_);
  return IndexOf('\n', zero_);
}

// The index of the first unread byte of this kind, or end.
std::size_t LineSource::IndexOf(char byte, std::size_t end) const {
  const char* const from = buffer_.get() + position_;
  const void* const found = std::memchr(from, byte, end - position_);
  return found == nullptr
             ? end
             : static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.get());
}

// Whether a read error stands where the line ends.
bool LineSource::IsCutOff(std::size_t line_end) const {
  return read_error_ != platform::kNoError && line_end >= end_;
}

// Moves the unread bytes to the start of the buffer and fills the rest from the file, with zeros
// behind the end of the file. False when the file delivers nothing.
bool LineSource::Refill() {
  const std::size_t kept = size_ - position_;
  std::memmove(buffer_.get(), buffer_.get() + position_, kept);
  position_ = 0;
  char* const rest = buffer_.get() + kept;
  const platform::Transferred read = file_.Read(rest, size_ - kept);
  std::memset(rest + read.count, 0, size_ - kept - read.count);
  end_ = kept + read.count;
  zero_ = IndexOf('\0', size_);
  read_error_ = read.error;
  return read.count > 0;
}

}  // namespace quarnfc::io
