// SPDX-License-Identifier: MIT
#include "platform/posix/internet/chunk_reader.h"

#include <quarnfc/internet_api.h>

#include <algorithm>
#include <charconv>

namespace quarnfc::internet {
namespace {

constexpr std::size_t kLongestLine = 4096;

}  // namespace

// Moves bytes to line up to a line end; whether it was there.
bool ChunkReader::TakeLine(std::string_view& bytes, std::string& line) {
  const std::size_t end = bytes.find('\n');
  line.append(bytes.substr(0, end));
  bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  if (end == std::string_view::npos) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

bool ChunkReader::TakeSize() {
  const char* end = line_.data() + line_.size();
  const auto [stop, error] = std::from_chars(line_.data(), end, left_, 16);
  return error == std::errc() && (stop == end || *stop == ';' || *stop == ' ');
}

unsigned int ChunkReader::TakeContent(std::string_view& bytes, const Sink& sink) {
  const std::string_view content = bytes.substr(0, left_);
  if (const unsigned int error = sink(content)) return error;
  left_ -= content.size();
  bytes.remove_prefix(content.size());
  if (left_ == 0) state_ = State::kContentEnd;
  return 0;
}

// What a whole line says; false for wrong framing.
bool ChunkReader::EndLine() {
  if (state_ == State::kSize) {
    if (!TakeSize()) return false;
    state_ = left_ == 0 ? State::kTrailer : State::kContent;
  } else if (state_ == State::kContentEnd) {
    if (!line_.empty()) return false;
    state_ = State::kSize;
  } else if (line_.empty()) {
    state_ = State::kEnded;
  }
  line_.clear();
  return true;
}

unsigned int ChunkReader::Take(std::string_view bytes, const Sink& sink) {
  while (!bytes.empty()) {
    if (state_ == State::kEnded || line_.size() > kLongestLine) return ERROR_INVALID_PARAMETER;
    if (state_ == State::kContent) {
      if (const unsigned int error = TakeContent(bytes, sink)) return error;
    } else if (TakeLine(bytes, line_) && !EndLine()) {
      return ERROR_INVALID_PARAMETER;
    }
  }
  return 0;
}

}  // namespace quarnfc::internet
