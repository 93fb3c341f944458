// SPDX-License-Identifier: MIT
#include "json/text_reader.h"

#include <quarnfc/json_object.h>

#include "json/doomed_tree.h"
#include "json/messages.h"
#include "json/packed_numbers.h"
#include "json/value_content.h"

namespace quarnfc::json {

// Room for small documents from the start.
TextReader::TextReader(CQNString& error) : error_(error) {
  open_.reserve(8);
  values_.reserve(24);
  keys_.reserve(24);
}

TextReader::~TextReader() {
  DoomedTree doomed;
  doomed.AddAll(values_.data(), values_.data() + values_.size());
}

std::unique_ptr<CMyJsonValue> TextReader::Read(const char* open) {
  at_ = open;
  bool read = OpenContainer();
  while (read && !open_.empty()) read = InObject() ? ReadMember() : ReadElement();
  if (!read) {
    SetClosingFailure();
    return nullptr;
  }
  std::unique_ptr<CMyJsonValue> result(values_.back());
  values_.pop_back();
  return result;
}

bool TextReader::ReadMember() {
  switch (*at_) {
    case '}':
      CloseObject();
      return true;
    case '"':
      return ReadKey() && ReadMemberValue();
    default:
      return false;
  }
}

bool TextReader::ReadElement() {
  switch (*at_) {
    case ']':
      CloseArray();
      return true;
    case '\0':
    case '}':  // would be read as an empty number for ever
      return false;
    default:
      return ReadValue();
  }
}

bool TextReader::ReadKey() {
  RawString key;
  const char* at = at_ + 1;
  if (!ReadString(at, key)) return Fail(kInvalidKey, at);
  at = SkipWhitespace(at);
  if (*at != ':') return Fail(kNoColon, at);
  at_ = SkipWhitespace(at + 1);
  keys_.push_back(key_cache_.Decode(key));
  return true;
}

// A member may have no value at all; that is null, like the word. (Array elements know neither.)
bool TextReader::ReadMemberValue() {
  switch (*at_) {
    case ',':
    case '}':
      return AddScalar();
    case 'n':
      return ReadNull(at_) ? AddScalar() : ReadNumberValue();
    default:
      return ReadValue();
  }
}

bool TextReader::ReadValue() {
  switch (*at_) {
    case '{':
    case '[':
      return OpenContainer();
    case '"':
      return ReadStringValue();
    case 't':
    case 'f':
      return ReadBoolValue();
    default:
      return ReadNumberValue();
  }
}

bool TextReader::ReadStringValue() {
  RawString raw;
  const char* at = at_ + 1;
  if (!ReadString(at, raw)) return Fail(kInvalidString, at_);
  at_ = at;
  CMyJsonValueImp& record = AddValue();
  record.string = DecodeString(raw);
  record.type = CMyJsonValue::eStr;
  EndItem();
  return true;
}

bool TextReader::ReadBoolValue() {
  bool flag = false;
  return ReadBool(at_, flag) ? AddScalar(flag) : ReadNumberValue();
}

bool TextReader::ReadNumberValue() {
  double number = 0;
  if (!ReadNumber(at_, number)) return Fail(kInvalidNumber, at_);
  return AddScalar(number);
}

bool TextReader::ReadNumbers() {
  numbers_.clear();
  const char* at = at_;
  while (*at == '-' || IsDigit(*at)) {
    double number = 0;
    if (!ReadNumber(at, number)) return Fail(kInvalidNumber, at);
    numbers_.push_back(SlotOf(number));
    at = SkipSeparator(at);
  }
  at_ = at;
  if (*at_ == ']' && !numbers_.empty()) {
    CloseNumbers();
  } else {
    for (CMyJsonValue* const slot : numbers_) SetContent(AddValue(), NumberIn(slot));
  }
  return true;
}

bool TextReader::OpenContainer() {
  open_.push_back({at_, values_.size()});
  at_ = SkipWhitespace(at_ + 1);
  return InObject() || ReadNumbers();
}

void TextReader::CloseObject() {
  const auto first = values_.begin() + static_cast<std::ptrdiff_t>(open_.back().first_value);
  const auto first_key = keys_.end() - (values_.end() - first);
  std::unique_ptr<CMyJsonValue> value = NewObjectValue();
  CMyJsonObjImp& record = JsonAccess::Record(*JsonAccess::Record(*value).object);
  record.values = {first, values_.end()};
  values_.erase(first, values_.end());
  record.keys = key_cache_.ListOf(std::to_address(first_key), std::to_address(keys_.end()));
  keys_.erase(first_key, keys_.end());
  EndContainer(std::move(value));
}

void TextReader::CloseArray() {
  const auto first = values_.begin() + static_cast<std::ptrdiff_t>(open_.back().first_value);
  std::unique_ptr<CMyJsonValue> value = NewValue();
  CMyJsonValueImp& record = JsonAccess::Record(*value);
  record.type = CMyJsonValue::eArr;
  record.array = {first, values_.end()};
  values_.erase(first, values_.end());
  EndContainer(std::move(value));
}

void TextReader::CloseNumbers() {
  std::unique_ptr<CMyJsonValue> value = NewValue();
  CMyJsonValueImp& record = JsonAccess::Record(*value);
  record.type = CMyJsonValue::eArr;
  record.array = {numbers_.begin(), numbers_.end()};
  record.packed = true;
  EndContainer(std::move(value));
}

void TextReader::EndContainer(std::unique_ptr<CMyJsonValue> value) {
  values_.push_back(value.get());
  static_cast<void>(value.release());
  open_.pop_back();
  ++at_;
  if (!open_.empty()) EndItem();
}

void TextReader::EndItem() { at_ = SkipSeparator(at_); }

CMyJsonValueImp& TextReader::AddValue() {
  values_.push_back(nullptr);
  values_.back() = JsonAccess::NewValue();
  return JsonAccess::Record(*values_.back());
}

template <class... Content>
bool TextReader::AddScalar(Content... content) {
  SetContent(AddValue(), content...);
  EndItem();
  return true;
}

bool TextReader::Fail(const char* message, const char* at) {
  error_ = message + Snippet(at);
  return false;
}

// Every open object fails in turn, the innermost first, and gives a reason if there is none yet.
// The snippet starts one byte before the first member, deliberately: at the bracket or at the white
// space before the member.
void TextReader::SetClosingFailure() {
  for (auto open = open_.rbegin(); open != open_.rend() && error_.IsEmpty() != 0; ++open) {
    if (*open->bracket == '{') {
      Fail(kNoClosingBrace, SkipWhitespace(open->bracket + 1) - 1);
    }
  }
}

}  // namespace quarnfc::json
