// SPDX-License-Identifier: MIT
#include <quarnfc/error.h>
#include <quarnfc/json_files.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <utility>

#include "core/memory/memory.h"
#include "core/text/transcode.h"
#include "core/text/utf8_mark.h"
#include "json/messages.h"
#include "platform/debug_output.h"
#include "platform/file.h"

namespace {

using quarnfc::kUtf8Mark;
using quarnfc::platform::File;
using quarnfc::platform::FileMode;
using quarnfc::platform::SystemError;
using EErrorStatus = CQNObject::EErrorStatus;

constexpr std::int64_t kSmallestFile = 11;
constexpr std::int64_t kLargestFile = 52428800;  // 50 MiB

using FileText = quarnfc::OwnedText;

void StoreError(unsigned __int64* error, EErrorStatus code, const char* message) {
  if (error != nullptr) *error = QNErrorUtils::CreateError(code, message);
}

// For failures around the file itself, which are also shown in a debugger.
void ReportError(unsigned __int64* error, EErrorStatus code, const CQNString& message) {
  quarnfc::platform::WriteDebugOutput(message);
  StoreError(error, code, message);
}

void ReportCannotOpen(const char* path, SystemError system_error, unsigned __int64* error) {
  const bool missing = system_error == quarnfc::platform::kFileNotFound ||
                       system_error == quarnfc::platform::kPathNotFound;
  CQNString message;
  message.Format(quarnfc::json::kCannotOpen, path, system_error);
  ReportError(error, missing ? CQNObject::eErrNotFound : CQNObject::eErrFileIO, message);
}

void ReportCannotSave(const char* path, SystemError system_error, unsigned __int64* error) {
  CQNString message;
  message.Format(quarnfc::json::kCannotSave, path, system_error);
  ReportError(error, CQNObject::eErrFileIO, message);
}

void ReportInvalidLength(const char* path, unsigned __int64* error) {
  CQNString message;
  message.Format(quarnfc::json::kInvalidLength, path);
  ReportError(error, CQNObject::eErrInvalidData, message);
}

// The file with a terminating zero. What cannot be read stays zero: however little arrives, the
// buffer holds a terminated text.
FileText ReadAll(File& file, std::size_t length) {
  FileText text(quarnfc::AllocChars(length + 1));
  std::memset(text.get(), 0, length + 1);
  file.Read(text.get(), length);
  return text;
}

// Characters that the ANSI code page lacks become its default character.
FileText FromUtf8(const char* utf8) {
  const quarnfc::WideScratch wide(quarnfc::Encoding::kUtf8, utf8);
  return quarnfc::FromWide(quarnfc::Encoding::kAnsi, wide.Text());
}

// The text of a JSON file in the ANSI code page; null, with the error reported, when the file
// cannot be opened or its length is refused.
FileText ReadText(const char* path, unsigned __int64* error) {
  File file;
  if (const SystemError system_error = file.Open(path, FileMode::kRead)) {
    ReportCannotOpen(path, system_error, error);
    return nullptr;
  }
  const std::int64_t length = file.Size();
  if (length < kSmallestFile || length > kLargestFile) {
    ReportInvalidLength(path, error);
    return nullptr;
  }
  const auto size = static_cast<std::size_t>(length);
  FileText text = ReadAll(file, size);
  const bool utf8 = std::string_view(text.get(), size).starts_with(kUtf8Mark);
  return utf8 ? FromUtf8(text.get() + kUtf8Mark.size()) : std::move(text);
}

// Replaces the file by the pieces, in order; a failure to write them is not reported.
bool WriteFile(const char* path, std::initializer_list<std::string_view> pieces,
               unsigned __int64* error) {
  File file;
  if (const SystemError system_error = file.Open(path, FileMode::kReplace)) {
    ReportCannotSave(path, system_error, error);
    return false;
  }
  for (const std::string_view piece : pieces) file.Write(piece.data(), piece.size());
  return true;
}

bool WriteAnsi(const char* path, const CQNString& text, unsigned __int64* error) {
  const auto length = static_cast<std::size_t>(text.GetLength());
  return WriteFile(path, {std::string_view(text, length)}, error);
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

// Both savers have the whole text before they open the file and so empty it: memory that runs out
// leaves the old file as it was.

bool QNJsonUtils::SaveJsonFile(const char* path, const CMyJsonObj& obj, unsigned __int64* error) {
  return WriteAnsi(path, obj.CreateJson(true), error);
}

bool QNJsonUtils::SaveJsonFileEx(const char* path, const CMyJsonValue& value, bool utf8,
                                 unsigned __int64* error) {
  if (!utf8) return WriteAnsi(path, value.CreateJson(true), error);
  const quarnfc::OwnedText text(value.CreateUTF8Json(true));
  return WriteFile(path, {kUtf8Mark, text.get()}, error);
}
