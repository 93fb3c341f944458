// SPDX-License-Identifier: MIT
// What a handle of strict JSON text stands for.
#ifndef QUARNFC_C_JSON_TEXT_HANDLE_H_
#define QUARNFC_C_JSON_TEXT_HANDLE_H_

#include <quarnfc/c/json_text.h>
#include <quarnfc/ext/json_text.h>

#include <optional>
#include <string_view>

#include "c/guarded.h"

struct QncJsonText {
  quarnfc::ext::JsonText text;
};

namespace quarnfc::c {

inline std::optional<ext::JsonTextNode> Find(const QncJsonText* document, const char* pointer) {
  return Given(document)->text.Root().Find(Given(pointer));
}

inline ext::JsonTextNode Found(const std::optional<ext::JsonTextNode>& node) {
  if (node) return *node;
  throw Failure(QNC_ERROR_NOT_FOUND, "Quarn: there is no value at the pointer");
}

inline ext::JsonTextNode Found(const QncJsonText* document, const char* pointer) {
  return Found(Find(document, pointer));
}

}  // namespace quarnfc::c

#endif  // QUARNFC_C_JSON_TEXT_HANDLE_H_
