// SPDX-License-Identifier: MIT
#include <quarnfc/c/files.h>
#include <quarnfc/ext/text_conversion.h>
#include <quarnfc/file_utils.h>

#include "c/guarded.h"

namespace {

using quarnfc::c::Failure;
using quarnfc::c::Given;
using quarnfc::c::TakeFailure;

// A path in UTF-16 names every file on every system.
int Write(const char* path, const void* data, size_t size) {
  const auto wide = quarnfc::ext::StrictUtf16FromUtf8(Given(path));
  if (!wide) throw Failure(QNC_ERROR_INVALID_DATA, "Quarn: the path is not UTF-8");
  unsigned __int64 error = 0;
  if (QNFileUtils::WriteFileAtomicW(quarnfc::ext::WideChars(*wide), data, size, &error)) return 1;
  throw TakeFailure(error);
}

}  // namespace

int qncWriteFile(const char* path, const void* data, size_t size, CQNObject** error) {
  return quarnfc::c::Guarded(error, 0, [=] { return Write(path, data, size); });
}
