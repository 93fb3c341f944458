// SPDX-License-Identifier: MIT
// Copying text into a caller's buffer.
#ifndef QUARNFC_NET_BOUNDED_TEXT_H_
#define QUARNFC_NET_BOUNDED_TEXT_H_

namespace quarnfc::net {

// Copies as much of source as fits into maximum bytes with its terminator, without splitting a
// double-byte character. A null target or a maximum of 0 takes nothing.
void CopyBounded(char* target, unsigned int maximum, const char* source);

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_BOUNDED_TEXT_H_
