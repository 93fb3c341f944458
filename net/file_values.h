// SPDX-License-Identifier: MIT
// The modes of a file, and positions as the platform reports them.
#ifndef QUARNFC_NET_FILE_VALUES_H_
#define QUARNFC_NET_FILE_VALUES_H_

#include <quarnfc/platform_types.h>

namespace quarnfc::net {

// What a file was opened for. Reading asks for anything but kWriteOnly and writing for anything but
// kReadOnly, which is what lets kReadWrite mean both.
constexpr int kWriteOnly = 0;
constexpr int kReadOnly = 1;
constexpr int kReadWrite = -1;

// The platform's answer when it cannot move.
constexpr unsigned int kNoPosition = 0xFFFFFFFF;

// Deliberately signed: positions of 2 GiB and more come back as negative 64-bit numbers.
constexpr unsigned __int64 SignExtended(unsigned int position) {
  return static_cast<unsigned __int64>(static_cast<__int64>(static_cast<int>(position)));
}

static_assert(SignExtended(0x7FFFFFFF) == 0x7FFFFFFF);
static_assert(SignExtended(0x80000000) == 0xFFFFFFFF80000000);

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_FILE_VALUES_H_
