// SPDX-License-Identifier: MIT
#include "json/text_writer.h"

#include <quarnfc/json_object.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "json/number_text.h"

namespace quarnfc::json {
namespace {

// The byte that stands behind the backslash when this byte is escaped; 0 for any other byte.
char EscapeOf(char byte) {
  switch (byte) {
    case '\\':
    case '"':
      return byte;
    case '\t':
      return 't';
    case '\r':
      return 'r';
    case '\n':
      return 'n';
    default:
      return 0;
  }
}

// Without branches, so that compilers test many bytes at a time.
bool IsEscaped(char byte) {
  return (byte == '\\') | (byte == '"') | (byte == '\t') | (byte == '\r') | (byte == '\n');
}

char* Escape(std::string_view text, char* target) {
  for (const char byte : text) {
    const char escape = EscapeOf(byte);
    if (escape != 0) *target++ = '\\';
    *target++ = escape != 0 ? escape : byte;
  }
  return target;
}

bool IsNested(const CMyJsonValueImp& record) {
  return record.type == CMyJsonValue::eArr || record.object != nullptr;
}

// An element that a host left null is written like an eEmpty one.
const CMyJsonValueImp& RecordOf(const CMyJsonValue* value) {
  static const CMyJsonValueImp empty{};
  return value != nullptr ? JsonAccess::Record(*value) : empty;
}

}  // namespace

CQNString TextWriter::Write(const CMyJsonObj& object) {
  OpenObject(object);
  WriteOpen();
  return text_.Join();
}

CQNString TextWriter::WriteMemberValue(const CMyJsonValueImp& value) {
  outer_levels_ = 1;
  WriteValue(value);
  WriteOpen();
  return text_.Join();
}

void TextWriter::OpenObject(const CMyJsonObj& object) {
  const CMyJsonObjImp& record = JsonAccess::Record(object);
  open_.push_back({&record, &record.values, 0});
  text_.Append('{');
  EndLine();
}

void TextWriter::OpenArray(const CMyJsonValueImp& array) {
  open_.push_back({nullptr, &array.array, 0});
  text_.Append('[');
}

void TextWriter::WriteOpen() {
  while (!open_.empty()) {
    if (open_.back().next < open_.back().values->size()) {
      WriteItem();
    } else {
      CloseContainer();
    }
  }
}

void TextWriter::WriteItem() {
  const Open& open = open_.back();
  const CMyJsonValueImp& value = RecordOf((*open.values)[open.next]);
  const bool member = open.object != nullptr;
  if (member) {
    WriteKey(open.object->keys[open.next].View());
  } else {
    PlaceElement(value);
  }
  if (member && value.type == CMyJsonValue::eEmpty) text_.Append("null");
  WriteValue(value);
  if (!IsNested(value)) EndItem(false);
}

void TextWriter::WriteKey(std::string_view key) {
  Indent(1);
  char* room = text_.Extend(key.size() + 3);
  *room++ = '"';
  room += key.copy(room, key.size());
  *room++ = '"';
  *room = ':';
}

// Objects in an array stand on lines of their own; arrays in an array always begin a new line.
void TextWriter::PlaceElement(const CMyJsonValueImp& element) {
  if (!IsNested(element)) return;
  const bool object = element.object != nullptr;
  if (!object || open_.back().next == 0) EndLine();
  Indent(object ? 1 : 0);
}

// Writes a scalar, or opens a container. An eEmpty value writes nothing.
void TextWriter::WriteValue(const CMyJsonValueImp& value) {
  switch (value.type) {
    case CMyJsonValue::eStr:
      return WriteString(value.string.View());
    case CMyJsonValue::eNumber:
      return WriteNumber(value.number);
    case CMyJsonValue::eBool:
      return text_.Append(value.boolean ? "true" : "false");
    case CMyJsonValue::eArr:
      return OpenArray(value);
    case CMyJsonValue::eObj:
      return OpenObject(*value.object);
    default:
      return;
  }
}

void TextWriter::WriteString(std::string_view text) {
  const auto escapes = static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char byte) { return IsEscaped(byte); }));
  char* room = text_.Extend(text.size() + escapes + 2);
  *room++ = '"';
  room = escapes == 0 ? room + text.copy(room, text.size()) : Escape(text, room);
  *room = '"';
}

void TextWriter::WriteNumber(double number) {
  text_.Finish(FormatNumber(number, text_.Room(kNumberTextCapacity)));
}

void TextWriter::CloseContainer() {
  const Open& open = open_.back();
  const bool object = open.object != nullptr;
  const ValueList& values = *open.values;
  if (object || (!values.empty() && IsNested(RecordOf(values.back())))) Indent(0);
  text_.Append(object ? '}' : ']');
  open_.pop_back();
  if (!open_.empty()) EndItem(true);
}

void TextWriter::EndItem(bool container) {
  Open& open = open_.back();
  ++open.next;
  if (open.next < open.values->size()) text_.Append(',');
  if (container || open.object != nullptr) EndLine();
}

void TextWriter::Indent(std::size_t extra) {
  if (indent_) text_.Append(outer_levels_ + open_.size() - 1 + extra, '\t');
}

void TextWriter::EndLine() {
  if (indent_) text_.Append("\r\n");
}

}  // namespace quarnfc::json
