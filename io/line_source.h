// Lines of a text file of any size, cut in place in one buffer.
#ifndef QUARNFC_IO_LINE_SOURCE_H_
#define QUARNFC_IO_LINE_SOURCE_H_

#include <cstddef>
#include <cstdio>
#include <memory>

namespace quarnfc::io {

// A line in the buffer, zero-terminated in place of its line feed. It holds no other zero byte and
// may be written to; it is valid until the next line is asked for.
struct Line {
  char* text = nullptr;
  std::size_t length = 0;
};

enum class LineStatus { kLine, kEnd, kTooLong };

class LineSource {
 public:
  // The buffer of every file that does not fit into it with a terminating zero, and so the longest
  // line plus one.
  static constexpr int kMaxBufferSize = 409600;

  // Opens a file in place of the one before; false leaves none open, with the platform's last
  // error set. Rewind comes next.
  bool Open(const char* path);
  void Close();
  bool IsOpen() const { return file_ != nullptr; }

  // Goes to the start of the data, behind the UTF-8 mark if there is one.
  void Rewind();

  // Supplies the next line that is not blank, without its leading blanks. A zero byte ends a line
  // like a line feed; carriage returns are kept. At the end and for a line that does not fit the
  // state is such that the next call goes on from there.
  LineStatus Next(Line& line);

  bool IsUtf8() const { return utf8_; }
  int BufferSize() const { return size_; }

 private:
  struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  using File = std::unique_ptr<std::FILE, FileCloser>;

  void SkipBlanks();
  int FindLineEnd() const;
  bool Refill();

  File file_;
  bool utf8_ = false;
  std::unique_ptr<char[]> buffer_;
  int size_ = 0;
  int position_ = 0;  // of the first unread byte in the buffer
};

}  // namespace quarnfc::io

#endif  // QUARNFC_IO_LINE_SOURCE_H_
