// SPDX-License-Identifier: MIT
// Reading strict JSON text.
#include <quarnfc/ext/json_text.h>

#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "c/guarded.h"
#include "c/json_refused.h"
#include "c/json_text_handle.h"
#include "c/text.h"

namespace {

using quarnfc::c::Find;
using quarnfc::c::Found;
using quarnfc::c::Given;
using quarnfc::c::Guarded;
using quarnfc::c::GuardedNew;
using quarnfc::c::NewText;
using quarnfc::c::RefusedText;
using quarnfc::ext::JsonKind;
using quarnfc::ext::JsonTextError;
using quarnfc::ext::JsonTextNode;

QncJsonText* Parse(std::string_view text, size_t* offset) {
  auto document = std::make_unique<QncJsonText>();
  JsonTextError error;
  if (document->text.Parse(std::string(text), &error)) return document.release();
  if (offset != nullptr) *offset = error.offset;
  throw RefusedText(error);
}

int TypeOf(JsonKind kind) {
  switch (kind) {
    case JsonKind::kNull:
      return QNC_JSON_NULL;
    case JsonKind::kFalse:
    case JsonKind::kTrue:
      return QNC_JSON_BOOL;
    case JsonKind::kNumber:
      return QNC_JSON_NUMBER;
    case JsonKind::kString:
      return QNC_JSON_TEXT;
    case JsonKind::kArray:
      return QNC_JSON_ARRAY;
    case JsonKind::kObject:
      return QNC_JSON_OBJECT;
  }
  return -1;
}

char* NewString(const JsonTextNode& node, size_t* size) {
  if (!node.IsString()) return nullptr;
  const std::string text = node.String();
  if (size != nullptr) *size = text.size();
  return NewText(text);
}

}  // namespace

QncJsonText* qncJsonTextParse(const char* text, size_t size, size_t* offset, CQNObject** error) {
  return GuardedNew(error, [=] { return Parse({Given(text), size}, offset); });
}

void qncJsonTextFree(QncJsonText* document) { delete document; }

char* qncJsonTextWrite(const QncJsonText* document, CQNObject** error) {
  return GuardedNew(error, [=] { return NewText(Given(document)->text.Text()); });
}

int qncJsonTextType(const QncJsonText* document, const char* pointer) {
  return Guarded(nullptr, -1, [=] { return TypeOf(Found(document, pointer).Kind()); });
}

int qncJsonTextCount(const QncJsonText* document, const char* pointer) {
  return Guarded(nullptr, 0, [=] { return static_cast<int>(Found(document, pointer).Count()); });
}

char* qncJsonTextSource(const QncJsonText* document, const char* pointer, CQNObject** error) {
  return GuardedNew(error, [=]() -> char* {
    const auto node = Find(document, pointer);
    return node ? NewText(node->Source()) : nullptr;
  });
}

char* qncJsonTextString(const QncJsonText* document, const char* pointer, size_t* size,
                        CQNObject** error) {
  return GuardedNew(error, [=]() -> char* {
    const auto node = Find(document, pointer);
    return node ? NewString(*node, size) : nullptr;
  });
}

int qncJsonTextNumber(const QncJsonText* document, const char* pointer, double* number) {
  return Guarded(nullptr, 0, [=] {
    double value = 0;
    if (!Found(document, pointer).Number(value)) return 0;
    *Given(number) = value;
    return 1;
  });
}
