// SPDX-License-Identifier: MIT
#include <quarnfc/error.h>
#include <quarnfc/file_utils.h>
#include <quarnfc/qn_string.h>

#include "core/text/transcode.h"
#include "io/messages.h"
#include "platform/atomic_file.h"

namespace {

using quarnfc::platform::SystemError;

// True without an error, which is otherwise reported.
bool Report(SystemError system_error, const char* path, unsigned __int64* error) {
  if (system_error == quarnfc::platform::kNoError) return true;
  if (error == nullptr) return false;
  const bool missing = system_error == quarnfc::platform::kFileNotFound ||
                       system_error == quarnfc::platform::kPathNotFound;
  CQNString message;
  message.Format(quarnfc::io::kCannotSave, path == nullptr ? "" : path, system_error);
  *error =
      QNErrorUtils::CreateError(missing ? CQNObject::eErrNotFound : CQNObject::eErrFileIO, message);
  return false;
}

}  // namespace

bool QNFileUtils::WriteFileAtomicA(const char* path, const void* data, std::size_t size,
                                   unsigned __int64* error) {
  const std::size_t count = data == nullptr ? 0 : size;
  return Report(quarnfc::platform::ReplaceFileContents(path, data, count), path, error);
}

bool QNFileUtils::WriteFileAtomicW(const wchar_t* path, const void* data, std::size_t size,
                                   unsigned __int64* error) {
  const std::size_t count = data == nullptr ? 0 : size;
  const SystemError system_error = quarnfc::platform::ReplaceFileContents(path, data, count);
  return Report(system_error, quarnfc::FromWide(quarnfc::Encoding::kAnsi, path).get(), error);
}
