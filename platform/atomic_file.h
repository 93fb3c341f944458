// SPDX-License-Identifier: MIT
// Replacing what a file holds in one step.
//
// Any number of threads may do it at once; nothing throws.
#ifndef QUARNFC_PLATFORM_ATOMIC_FILE_H_
#define QUARNFC_PLATFORM_ATOMIC_FILE_H_

#include <cstddef>

#include "platform/system_error.h"

namespace quarnfc::platform {

// Writes a temporary file beside path, flushes it to the disk and renames it to path. On failure
// the temporary file is gone, path is as it was, and the result is the system's error. No path
// (null) is kInvalidParameter, a folder or what is no regular file kAccessDenied.
//
// The narrow path is as platform/file.h has it; the wide one is UTF-8 off Windows.
SystemError ReplaceFileContents(const char* path, const void* bytes, std::size_t count);
SystemError ReplaceFileContents(const wchar_t* path, const void* bytes, std::size_t count);

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_ATOMIC_FILE_H_
