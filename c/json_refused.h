// SPDX-License-Identifier: MIT
// Strict JSON that is refused, as a failure of the flat C interface.
#ifndef QUARNFC_C_JSON_REFUSED_H_
#define QUARNFC_C_JSON_REFUSED_H_

#include <quarnfc/ext/json_text.h>

#include <string>

#include "c/guarded.h"

namespace quarnfc::c {

inline Failure RefusedText(const ext::JsonTextError& error) {
  const std::string message = "Quarn: line " + std::to_string(error.line) + ", column " +
                              std::to_string(error.column) + ": " + error.Message();
  return Failure(QNC_ERROR_INVALID_DATA, message.c_str());
}

}  // namespace quarnfc::c

#endif  // QUARNFC_C_JSON_REFUSED_H_
