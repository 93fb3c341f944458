#include <quarnfc/error.h>
#include <quarnfc/json_files.h>
#include <quarnfc/string_utils.h>

#include <cstdio>
#include <cstring>
#include <memory>

#include "core/memory/memory.h"
#include "json/messages.h"
#include "platform/crt.h"
#include "platform/platform.h"

namespace {

using EErrorStatus = CQNObject::EErrorStatus;

constexpr long long kSmallestFile = 11;
constexpr long long kLargestFile = 52428800;  // 50 MiB

constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";
constexpr std::size_t kUtf8MarkLength = 3;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

using OwnedFile = std::unique_ptr<std::FILE, CloseFile>;
using FileText = std::unique_ptr<char[]>;

OwnedFile OpenFile(const char* path, const char* mode) {
  if (path == nullptr) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  return OwnedFile(_fsopen(path, mode, _SH_DENYNO));
}

void StoreError(unsigned __int64* error, EErrorStatus code, const char* message) {
  if (error != nullptr) *error = QNErrorUtils::CreateError(code, message);
}

// For failures around the file itself, which are also shown in a debugger.
void ReportError(unsigned __int64* error, EErrorStatus code, const CQNString& message) {
  OutputDebugStringA(message);
  StoreError(error, code, message);
}

void ReportCannotOpen(const char* path, unsigned __int64* error) {
  const unsigned int system_error = GetLastError();
  const bool missing = system_error == ERROR_FILE_NOT_FOUND || system_error == ERROR_PATH_NOT_FOUND;
  CQNString message;
  message.Format(quarnfc::json::kCannotOpen, path, system_error);
  ReportError(error, missing ? CQNObject::eErrNotFound : CQNObject::eErrFileIO, message);
}

void ReportCannotSave(const char* path, unsigned __int64* error) {
  const unsigned int system_error = GetLastError();
  CQNString message;
  message.Format(quarnfc::json::kCannotSave, path, system_error);
  ReportError(error, CQNObject::eErrFileIO, message);
}

void ReportInvalidLength(const char* path, unsigned __int64* error) {
  CQNString message;
  message.Format(quarnfc::json::kInvalidLength, path);
  ReportError(error, CQNObject::eErrInvalidData, message);
}

long long LengthOf(std::FILE* file) {
  return _fseeki64(file, 0, SEEK_END) == 0 ? _ftelli64(file) : -1;
}

// The file with a terminating zero. What cannot be read stays zero.
FileText ReadAll(std::FILE* file, std::size_t length) {
  auto text = std::make_unique<char[]>(length + 1);
  _fseeki64(file, 0, SEEK_SET);
  // However little arrives, the buffer holds a terminated text.
  [[maybe_unused]] const std::size_t read = std::fread(text.get(), 1, length, file);
  return text;
}

// UTF-8 to the ANSI code page; characters it lacks become its default character. A text that the
// platform cannot convert becomes empty.
FileText FromUtf8(const char* utf8) {
  using namespace QNStringUtils;
  const int wide_count = UTF82Unicode(utf8, nullptr, 0);
  if (wide_count < 1) return std::make_unique<char[]>(1);
  // One element more than the capacity: there a failed conversion writes its terminator.
  const auto wide = std::make_unique<wchar_t[]>(static_cast<std::size_t>(wide_count) + 1);
  UTF82Unicode(utf8, wide.get(), wide_count);
  const int count = Unicode2Ansi(wide.get(), nullptr, 0);
  if (count < 1) return std::make_unique<char[]>(1);
  auto text = std::make_unique<char[]>(static_cast<std::size_t>(count) + 1);
  Unicode2Ansi(wide.get(), text.get(), count);
  return text;
}

// The text of a JSON file in the ANSI code page; null, with the error reported, when the file
// cannot be opened or its length is refused.
FileText ReadText(const char* path, unsigned __int64* error) {
  const OwnedFile file = OpenFile(path, "rb");
  if (file == nullptr) {
    ReportCannotOpen(path, error);
    return nullptr;
  }
  const long long length = LengthOf(file.get());
  if (length < kSmallestFile || length > kLargestFile) {
    ReportInvalidLength(path, error);
    return nullptr;
  }
  FileText text = ReadAll(file.get(), static_cast<std::size_t>(length));
  const bool utf8 = std::memcmp(text.get(), kUtf8Mark, kUtf8MarkLength) == 0;
  return utf8 ? FromUtf8(text.get() + kUtf8MarkLength) : std::move(text);
}

// A failure to write is not reported.
void WriteText(std::FILE* file, const char* text, std::size_t length) {
  [[maybe_unused]] const std::size_t written = std::fwrite(text, 1, length, file);
}

void WriteAnsi(std::FILE* file, const CQNString& text) {
  WriteText(file, text, static_cast<std::size_t>(text.GetLength()));
}

void WriteUtf8(std::FILE* file, const CMyJsonValue& value) {
  const quarnfc::OwnedText text(value.CreateUTF8Json(true));
  WriteText(file, kUtf8Mark, kUtf8MarkLength);
  WriteText(file, text.get(), std::strlen(text.get()));
}

}  // namespace

bool QNJsonUtils::ReadJsonFile(const char* path, CMyJsonObj& obj, unsigned __int64* error) {
  const FileText text = ReadText(path, error);
  if (text == nullptr) return false;
  const bool loaded = obj.Load(text.get());
  if (!loaded) StoreError(error, CQNObject::eErrInvalidData, obj.GetErrMsg());
  return loaded;
}

bool QNJsonUtils::ReadJsonFileEx(const char* path, CMyJsonValue& value, unsigned __int64* error) {
  const FileText text = ReadText(path, error);
  if (text == nullptr) return false;
  CQNString reason;
  const bool loaded = value.Load(text.get(), reason);
  if (!loaded) {
    StoreError(error, CQNObject::eErrInvalidData, quarnfc::json::kInvalidJsonPrefix + reason);
  }
  return loaded;
}

bool QNJsonUtils::SaveJsonFile(const char* path, const CMyJsonObj& obj, unsigned __int64* error) {
  // Before the file is opened, and so truncated.
  const CQNString text = obj.CreateJson(true);
  const OwnedFile file = OpenFile(path, "wb");
  if (file == nullptr) {
    ReportCannotSave(path, error);
    return false;
  }
  WriteAnsi(file.get(), text);
  return true;
}

bool QNJsonUtils::SaveJsonFileEx(const char* path, const CMyJsonValue& value, bool utf8,
                                 unsigned __int64* error) {
  const OwnedFile file = OpenFile(path, "wb");
  if (file == nullptr) {
    ReportCannotSave(path, error);
    return false;
  }
  if (utf8) {
    WriteUtf8(file.get(), value);
  } else {
    WriteAnsi(file.get(), value.CreateJson(true));
  }
  return true;
}
