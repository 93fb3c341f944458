// SPDX-License-Identifier: MIT
#include <quarnfc/internet_file.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr unsigned int kLineBufferSize = 4096;
constexpr unsigned int kPieceLength = 127;
// Longer lines, dropped carriage returns counted, arrive in pieces, so that a server that never
// ends its line can neither exhaust memory nor hold the call for ever.
constexpr unsigned int kLongestLine = 64 * 1024 * 1024;

// Appends with room to grow, so that a long line is not copied once per piece.
void AppendPiece(CQNString& line, const char* piece, int length) {
  const int old_length = line.GetLength();
  const int new_length = old_length + length;
  const bool fits = new_length <= line.GetAllocLength();
  char* text = line.GetBuffer(fits ? new_length : std::max(new_length, 2 * old_length));
  std::memcpy(text + old_length, piece, static_cast<std::size_t>(length));
  line.ReleaseBuffer(new_length);
}

}  // namespace

int CQNInternetFile::ReadString(CQNString& line) {
  line.Empty();
  if (!PrepareLineReading()) return 0;
  unsigned int budget = kLongestLine;
  bool ended = false;
  while (!ended && budget != 0) {
    char piece[kPieceLength];
    const unsigned int length = ReadLinePiece(piece, kPieceLength, budget, ended);
    AppendPiece(line, piece, static_cast<int>(length));
  }
  const int length = line.GetLength();
  if (length == 0) return ended ? 0 : 1;
  if (line[length - 1] == '\n') line.ReleaseBuffer(length - 1);
  return 1;
}

char* CQNInternetFile::ReadString(char* buffer, unsigned int maximum) {
  if (buffer == nullptr || maximum == 0 || !PrepareLineReading()) return nullptr;
  unsigned int budget = kLongestLine;
  bool ended = false;
  const unsigned int length = ReadLinePiece(buffer, maximum - 1, budget, ended);
  buffer[length] = '\0';
  return ended && length == 0 ? nullptr : buffer;
}

// Lines are always read through a read buffer. False when the default one is refused.
bool CQNInternetFile::PrepareLineReading() {
  if (read_buffer_ != nullptr) return true;
  if (!SetReadBufferSize(kLineBufferSize)) return false;
  RefillReadBuffer();
  return true;
}

// Moves up to maximum bytes of the current line to target, without carriage returns and with the
// line feed; returns how many. budget is what may still be taken from the data, and is counted
// down. ended says that the line or the data ended there.
unsigned int CQNInternetFile::ReadLinePiece(char* target, unsigned int maximum,
                                            unsigned int& budget, bool& ended) {
  unsigned int length = 0;
  while (length < maximum && budget != 0) {
    if (read_position_ >= read_bytes_) RefillReadBuffer();
    if (read_bytes_ == 0) {
      ended = true;
      return length;
    }
    const char ch = static_cast<char>(read_buffer_[read_position_++]);
    --budget;
    if (ch == '\r') continue;
    target[length++] = ch;
    if (ch == '\n') {
      ended = true;
      return length;
    }
  }
  return length;
}
