// SPDX-License-Identifier: MIT
#include "platform/atomic_file.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <string>

#include "platform/code_page.h"
#include "platform/windows/platform.h"

namespace quarnfc::platform {

namespace {

constexpr int kAttempts = 100;  // at names that others left behind

// A new file that goes away unless it takes another's place. Each operation returns false with the
// system's last error set.
class TemporaryFile {
 public:
  TemporaryFile() = default;
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    const DWORD error = GetLastError();
    if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
    if (!name_.empty()) DeleteFileW(name_.c_str());
    SetLastError(error);
  }

  bool Create(const std::wstring& target) {
    static std::atomic<unsigned> number{0};
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      std::wstring name = target + L"." + std::to_wstring(GetCurrentProcessId()) + L"-" +
                          std::to_wstring(number++) + L".tmp";
      file_ = CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                          FILE_ATTRIBUTE_NORMAL, nullptr);
      if (file_ != INVALID_HANDLE_VALUE) {
        name_ = std::move(name);
        return true;
      }
      if (GetLastError() != ERROR_FILE_EXISTS) return false;
    }
    return false;
  }

  bool Write(const void* bytes, std::size_t count) {
    constexpr std::size_t kPiece = std::size_t{1} << 30;
    const char* rest = static_cast<const char*>(bytes);
    while (count > 0) {
      DWORD written = 0;
      const auto piece = static_cast<DWORD>(std::min(count, kPiece));
      if (WriteFile(file_, rest, piece, &written, nullptr) == 0) return false;
      rest += written;
      count -= written;
    }
    return true;
  }

  bool FlushAndClose() {
    if (FlushFileBuffers(file_) == 0) return false;
    const HANDLE file = file_;
    file_ = INVALID_HANDLE_VALUE;
    return CloseHandle(file) != 0;
  }

  bool Rename(const std::wstring& target) {
    constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (MoveFileExW(name_.c_str(), target.c_str(), kFlags) == 0) return false;
    name_.clear();
    return true;
  }

 private:
  HANDLE file_ = INVALID_HANDLE_VALUE;
  std::wstring name_;
};

// Whether there is something that no file takes the place of.
bool IsProtected(const std::wstring& path) {
  constexpr DWORD kProtected =
      FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE | FILE_ATTRIBUTE_READONLY;
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & kProtected) != 0;
}

// The file that a path stands for, symbolic links followed; the path itself where there is none.
std::wstring Resolve(const wchar_t* path) {
  const DWORD attributes = GetFileAttributesW(path);
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return path;
  }
  const HANDLE file = CreateFileW(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return path;
  std::wstring name(GetFinalPathNameByHandleW(file, nullptr, 0, 0), L'\0');
  name.resize(GetFinalPathNameByHandleW(file, name.data(), static_cast<DWORD>(name.size()), 0));
  CloseHandle(file);
  return name.empty() ? path : name;
}

SystemError Replace(const std::wstring& path, const void* bytes, std::size_t count) {
  if (IsProtected(path)) return kAccessDenied;
  TemporaryFile file;
  const bool done =
      file.Create(path) && file.Write(bytes, count) && file.FlushAndClose() && file.Rename(path);
  return done ? kNoError : GetLastError();
}

}  // namespace

SystemError ReplaceFileContents(const wchar_t* path, const void* bytes, std::size_t count) {
  if (path == nullptr) return kInvalidParameter;
  try {
    return Replace(Resolve(path), bytes, count);
  } catch (const std::bad_alloc&) {
    return ERROR_NOT_ENOUGH_MEMORY;
  }
}

SystemError ReplaceFileContents(const char* path, const void* bytes, std::size_t count) {
  if (path == nullptr) return kInvalidParameter;
  try {
    std::wstring wide(
        static_cast<std::size_t>(ToUtf16(Encoding::kAnsi, path, kTerminated, nullptr, 0)), L'\0');
    ToUtf16(Encoding::kAnsi, path, kTerminated, wide.data(), static_cast<int>(wide.size()));
    return ReplaceFileContents(wide.c_str(), bytes, count);
  } catch (const std::bad_alloc&) {
    return ERROR_NOT_ENOUGH_MEMORY;
  }
}

}  // namespace quarnfc::platform
