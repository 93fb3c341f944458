// SPDX-License-Identifier: MIT
#include "platform/file.h"

#include "platform/c_stream.h"

namespace quarnfc::platform {

SystemError File::Open(const char* path, FileMode mode) {
  stream_.reset();
  if (path == nullptr) return kInvalidParameter;
  SystemError error = kNoError;
  stream_.reset(OpenStream(path, mode, error));
  return error;
}

SystemError File::Close() {
  if (stream_ == nullptr) return kNoError;
  return std::fclose(stream_.release()) == 0 ? kNoError : StreamError();
}

std::int64_t File::Size() {
  const bool found = SeekStream(stream_.get(), 0, SEEK_END);
  const std::int64_t size = found ? Tell() : -1;
  SeekStream(stream_.get(), 0, SEEK_SET);
  return size;
}

std::int64_t File::Tell() { return TellStream(stream_.get()); }

SystemError File::Seek(std::int64_t position) {
  return SeekStream(stream_.get(), position, SEEK_SET) ? kNoError : StreamError();
}

Transferred File::Read(void* buffer, std::size_t count) {
  std::clearerr(stream_.get());  // of an error before this one
  const std::size_t read = std::fread(buffer, 1, count, stream_.get());
  const bool failed = read < count && std::ferror(stream_.get()) != 0;
  return {read, failed ? StreamError() : kNoError};
}

Transferred File::Write(const void* bytes, std::size_t count) {
  const std::size_t written = std::fwrite(bytes, 1, count, stream_.get());
  return {written, written < count ? StreamError() : kNoError};
}

}  // namespace quarnfc::platform
