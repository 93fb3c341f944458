// SPDX-License-Identifier: MIT
// JSON documents from strict text and to it.
#include <quarnfc/ext/json_load.h>
#include <quarnfc/ext/json_write.h>

#include <cstddef>
#include <memory>
#include <string_view>

#include "c/guarded.h"
#include "c/json_handle.h"
#include "c/json_refused.h"
#include "c/text.h"

namespace {

using quarnfc::c::Failure;
using quarnfc::c::Given;
using quarnfc::c::GuardedNew;
using quarnfc::c::HandleOf;
using quarnfc::c::NewText;
using quarnfc::c::RefusedText;
using quarnfc::c::ValueOf;

QncJson* Load(std::string_view text, size_t* offset) {
  quarnfc::ext::JsonTextError error;
  std::unique_ptr<CMyJsonValue> value = quarnfc::ext::LoadJsonUtf8(text, &error);
  if (value != nullptr) return HandleOf(value.release());
  if (offset != nullptr) *offset = error.offset;
  throw RefusedText(error);
}

char* Write(const CMyJsonValue& value, std::size_t indent) {
  if (const auto text = quarnfc::ext::WriteJson(value, {indent, "\n"})) return NewText(*text);
  throw Failure(QNC_ERROR_INVALID_DATA, "Quarn: a value cannot be written as JSON");
}

}  // namespace

QncJson* qncJsonLoadStrict(const char* text, size_t size, size_t* offset, CQNObject** error) {
  return GuardedNew(error, [=] { return Load({Given(text), size}, offset); });
}

char* qncJsonWriteStrict(const QncJson* value, int indent, CQNObject** error) {
  return GuardedNew(error, [=] { return Write(*ValueOf(Given(value)), indent != 0 ? 2 : 0); });
}
