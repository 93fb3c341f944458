// SPDX-License-Identifier: MIT
// The file names of crash dumps.
#ifndef QUARNFC_CORE_DIAGNOSTICS_CRASH_DUMP_NAME_H_
#define QUARNFC_CORE_DIAGNOSTICS_CRASH_DUMP_NAME_H_

#include <cstddef>
#include <ctime>

namespace quarnfc {

// Writes the name of a dump, without folder, to name: prefix, local time and the low half of the
// address info; "error.dmp" when time is null. False when it does not fit into capacity bytes.
//
// The name stays in its folder whatever the prefix is: "_" takes the place of control characters
// and of what could lead elsewhere (slash, backslash, colon).
bool FormatDumpName(const std::tm* time, const char* prefix, const void* info, char* name,
                    std::size_t capacity);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_DIAGNOSTICS_CRASH_DUMP_NAME_H_
