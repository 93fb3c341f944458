// SPDX-License-Identifier: MIT
// Load of CMyJsonObj and CMyJsonValue.

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <memory>
#include <string_view>

#include "json/doomed_tree.h"
#include "json/messages.h"
#include "json/records.h"
#include "json/text_reader.h"
#include "json/text_rules.h"
#include "json/tree_copy.h"

namespace {

using quarnfc::json::JsonAccess;

bool LoadContainer(const char* text, CMyJsonValueImp& target, CQNString& error) {
  const auto loaded = quarnfc::json::TextReader(error).Read(text);
  if (loaded != nullptr) quarnfc::json::TakeContent(target, JsonAccess::Record(*loaded));
  return loaded != nullptr;
}

bool LoadString(const char* text, CMyJsonValueImp& target, CQNString& error) {
  quarnfc::json::RawString raw;
  const bool read = quarnfc::json::ReadString(++text, raw);
  target.string = quarnfc::json::DecodeString(raw);
  if (!read) {
    error = quarnfc::json::kInvalidTopString;
    return false;
  }
  target.type = CMyJsonValue::eStr;
  return true;
}

bool LoadScalar(const char* text, CMyJsonValueImp& target, CQNString& error) {
  if (quarnfc::json::ReadBool(text, target.boolean)) {
    target.type = CMyJsonValue::eBool;
  } else if (quarnfc::json::ReadNumber(text, target.number)) {
    target.type = CMyJsonValue::eNumber;
  } else {
    error = quarnfc::json::kInvalidText;
    return false;
  }
  return true;
}

bool LoadContent(const char* text, CMyJsonValueImp& target, CQNString& error) {
  if (text == nullptr) {
    error = quarnfc::json::kTextIsNull;
    return false;
  }
  text = quarnfc::json::SkipWhitespace(text);
  switch (*text) {
    case '{':
    case '[':
      return LoadContainer(text, target, error);
    case '"':
      return LoadString(text, target, error);
    default:
      return LoadScalar(text, target, error);
  }
}

// Reads the object in text, or returns null and says why.
std::unique_ptr<CMyJsonValue> ReadObject(const char* text, CQNString& error) {
  text = text != nullptr ? quarnfc::json::SkipWhitespace(text) : "";
  if (*text == '{') return quarnfc::json::TextReader(error).Read(text);
  error = quarnfc::json::kNoOpeningBrace;
  return nullptr;
}

}  // namespace

// The old content is destroyed only after reading: the text may be part of it.

bool CMyJsonValue::Load(const char* text, CQNString& error) {
  CMyJsonValueImp old;
  quarnfc::json::DoomedTree doomed;
  const auto exchange = [&] {
    quarnfc::json::SwapContainers(*imp_, old);
    std::swap(imp_->type, old.type);
  };
  exchange();
  try {
    const bool loaded = LoadContent(text, *imp_, error);
    doomed.AddBelow(old);
    return loaded;
  } catch (...) {
    exchange();
    throw;
  }
}

bool CMyJsonObj::Load(const char* text) {
  CQNString error;
  const std::unique_ptr<CMyJsonValue> loaded = ReadObject(text, error);
  quarnfc::json::SharedText message(
      std::string_view(error, static_cast<std::size_t>(error.GetLength())));
  CMyJsonObj old;
  quarnfc::json::SwapMembers(*imp_, *old.imp_);
  if (loaded != nullptr) quarnfc::json::SwapMembers(*imp_, *loaded->ValueObj()->imp_);
  imp_->error = std::move(message);
  return loaded != nullptr;
}
