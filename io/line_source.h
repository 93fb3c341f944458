// SPDX-License-Identifier: MIT
// Lines of a text file of any size, cut in place in one buffer.
#ifndef QUARNFC_IO_LINE_SOURCE_H_
#define QUARNFC_IO_LINE_SOURCE_H_

#include <cstddef>
#include <memory>

#include "platform/file.h"

namespace quarnfc::io {

// A line in the buffer, zero-terminated in place of its line feed. It holds no other zero byte. The
// line and its terminator may be written to, and kSlack bytes behind the terminator may be read; it
// is valid until the next line is asked for.
struct Line {
  static constexpr std::size_t kSlack = 16;

  char* text = nullptr;
  std::size_t length = 0;
};

enum class LineStatus { kLine, kEnd, kTooLong, kReadFailed };

class LineSource {
 public:
  // The buffer of every file that does not fit into it with a terminating zero, and so the longest
  // line plus one.
  static constexpr std::size_t kMaxBufferSize = 409600;

  // Opens a file in place of the one before; an error leaves none open. Rewind comes next.
  platform::SystemError Open(const char* path);
  // The same with an open file.
  void Open(platform::File file);
  void Close();
  bool IsOpen() const { return file_.IsOpen(); }

  // Goes to the start of the data, behind the UTF-8 mark if there is one. While a read error leaves
  // that unknown, Next fails, and Rewind looks for the mark again.
  void Rewind();

  // Supplies the next line that is not blank, without its leading blanks. A zero byte ends a line
  // like a line feed; carriage returns are kept. At the end and for a line that does not fit the
  // state is such that the next call goes on from there.
  //
  // The lines in front of a read error are supplied; the one that it cuts off is not, since half a
  // line may look like a whole one. From there on every call fails, until Rewind.
  LineStatus Next(Line& line);

  // Known when Next has succeeded.
  bool IsUtf8() const { return utf8_; }
  std::size_t BufferSize() const { return size_; }

  // Why the file cannot be read, after kReadFailed.
  platform::SystemError ReadError() const { return read_error_; }

 private:
  platform::SystemError GoToData();
  platform::SystemError LookForMark();
  void SkipBlanks();
  std::size_t FindLineEnd();
  std::size_t IndexOf(char byte, std::size_t end) const;
  bool IsCutOff(std::size_t line_end) const;
  bool Refill();

  platform::File file_;
  bool mark_known_ = false;
  bool utf8_ = false;
  std::unique_ptr<char[]> buffer_;  // with the slack of a line behind it
  std::size_t size_ = 0;
  std::size_t position_ = 0;  // of the first unread byte in the buffer
  std::size_t zero_ = 0;      // the next zero byte, if it is not read yet
  std::size_t end_ = 0;       // of the bytes read from the file; zeros follow
  platform::SystemError read_error_ = platform::kNoError;
};

}  // namespace quarnfc::io

#endif  // QUARNFC_IO_LINE_SOURCE_H_
