// SPDX-License-Identifier: MIT
// Encodings as callers of the flat C interface name them.
#ifndef QUARNFC_C_ENCODING_H_
#define QUARNFC_C_ENCODING_H_

#include <quarnfc/ext/encoded_text.h>

#include <optional>

namespace quarnfc::c {

// What a QNC_ENCODING_ constant names; nothing for QNC_ENCODING_ANY. Throws Failure when it is
// none.
std::optional<ext::TextEncoding> NamedEncoding(int encoding);

}  // namespace quarnfc::c

#endif  // QUARNFC_C_ENCODING_H_
