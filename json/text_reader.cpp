// SPDX-License-Identifier: MIT
#include "json/text_reader.h"

#include <quarnfc/json_object.h>

#include <iterator>

#include "json/doomed_tree.h"
#include "json/messages.h"
#include "json/value_content.h"

namespace quarnfc::json {

TextReader::~TextReader() {
  DoomedTree doomed;
  doomed.AddAll(values_);
}

std::unique_ptr<CMyJsonValue> TextReader::Read(const char* open) {
  at_ = open;
  OpenContainer();
  while (!open_.empty()) {
    const bool read = InObject() ? ReadMember() : ReadElement();
    if (!read) {
      SetClosingFailure();
      return nullptr;
    }
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
  const char* start = ++at_;
  if (!ReadString(at_, key)) return Fail(kInvalidKey, start);
  at_ = SkipWhitespace(at_);
  if (*at_ != ':') return Fail(kNoColon, at_);
  at_ = SkipWhitespace(at_ + 1);
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
  bool flag = false;
  switch (*at_) {
    case '{':
    case '[':
      OpenContainer();
      return true;
    case '"':
      return ReadStringValue();
    default:
      return ReadBool(at_, flag) ? AddScalar(flag) : ReadNumberValue();
  }
}

bool TextReader::ReadStringValue() {
  RawString raw;
  const char* quote = at_++;
  if (!ReadString(at_, raw)) return Fail(kInvalidString, quote);
  CMyJsonValueImp& record = AddValue();
  record.string = DecodeString(raw);
  record.type = CMyJsonValue::eStr;
  EndItem();
  return true;
}

bool TextReader::ReadNumberValue() {
  double number = 0;
  if (!ReadNumber(at_, number)) return Fail(kInvalidNumber, at_);
  return AddScalar(number);
}

void TextReader::OpenContainer() {
  open_.push_back({at_, values_.size()});
  at_ = SkipWhitespace(at_ + 1);
}

void TextReader::CloseObject() {
  const auto first = values_.begin() + static_cast<std::ptrdiff_t>(open_.back().first_value);
  const auto first_key = keys_.end() - (values_.end() - first);
  std::unique_ptr<CMyJsonValue> value = NewObjectValue();
  CMyJsonObjImp& record = JsonAccess::Record(*value->ValueObj());
  record.keys = {std::make_move_iterator(first_key), std::make_move_iterator(keys_.end())};
  record.values = {first, values_.end()};
  values_.shrink(first);
  keys_.erase(first_key, keys_.end());
  EndContainer(std::move(value));
}

void TextReader::CloseArray() {
  const auto first = values_.begin() + static_cast<std::ptrdiff_t>(open_.back().first_value);
  std::unique_ptr<CMyJsonValue> value = NewValue();
  CMyJsonValueImp& record = JsonAccess::Record(*value);
  record.type = CMyJsonValue::eArr;
  record.array = {first, values_.end()};
  values_.shrink(first);
  EndContainer(std::move(value));
}

void TextReader::EndContainer(std::unique_ptr<CMyJsonValue> value) {
  values_.push_back(value.get());
  static_cast<void>(value.release());
  open_.pop_back();
  ++at_;
  if (!open_.empty()) EndItem();
}

void TextReader::EndItem() {
  at_ = SkipWhitespace(at_);
  if (*at_ == ',') at_ = SkipWhitespace(at_ + 1);
}

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
