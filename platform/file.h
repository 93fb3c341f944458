// SPDX-License-Identifier: MIT
// Files by path, read and written as bytes.
//
// Paths are as the host's file functions take them: in the ANSI code page on Windows, the host's
// own bytes elsewhere. Others may read, write and, off Windows, remove a file that is open here.
// Sizes and positions have 64 bits. A failing operation hands back its system error; none throws.
#ifndef QUARNFC_PLATFORM_FILE_H_
#define QUARNFC_PLATFORM_FILE_H_

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>

#include "platform/system_error.h"

namespace quarnfc::platform {

enum class FileMode {
  kRead,     // an existing file
  kReplace,  // a new file, or an existing one that is emptied, for writing
};

// What a read or a write did.
struct Transferred {
  std::size_t count;  // bytes; of a read fewer than asked for at the end of the file
  SystemError error;  // kNoError at the end of the file
};

// An open file, or none; it is closed at the end. One thread at a time may use it.
class File {
 public:
  File() = default;

  // Takes over a stream of the C library.
  explicit File(std::FILE* stream) : stream_(stream) {}

  // Opens the file; with an error none is open. A missing file is kFileNotFound, a folder and what
  // has no contents to seek in (off Windows pipes and devices) kAccessDenied, no path (null)
  // kInvalidParameter.
  SystemError Open(const char* path, FileMode mode);

  // Closes the file, which writes what the C library still holds back. kNoError when none is open.
  SystemError Close();

  bool IsOpen() const { return stream_ != nullptr; }

  // The operations below need an open file.

  // The size in bytes and the current position from the start; -1 when the system cannot tell.
  // Size goes to the start of the file.
  std::int64_t Size();
  std::int64_t Tell();

  // Goes to the position, counted from the start.
  SystemError Seek(std::int64_t position);

  // Reads or writes at the current position and moves it. Bytes that arrive in front of an error
  // are counted.
  Transferred Read(void* buffer, std::size_t count);
  Transferred Write(const void* bytes, std::size_t count);

 private:
  struct Closer {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
  };

  std::unique_ptr<std::FILE, Closer> stream_;
};

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_FILE_H_
