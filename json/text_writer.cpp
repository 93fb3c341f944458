// SPDX-License-Identifier: MIT
#include "json/text_writer.h"

#include <quarnfc/json_object.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#include "core/text/byte_search.h"
#include "json/number_text.h"
#include "json/packed_numbers.h"

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

// The high bits of bytes that may be escaped, exact up to the first; 0 when none of the eight is.
// Subtracting from a byte sets its highest bit when it is smaller. Every control character below 14
// counts, which does no harm.
std::uint64_t MarkEscapes(const char* at) {
  const std::uint64_t word = LoadWord(at);
  const std::uint64_t controls = (word - 14 * kEveryByte) & ~word & kHighBits;
  return controls | MarkByte(at, '"') | MarkByte(at, '\\');
}

// How many of eight bytes stand in front of the first that may be escaped.
int CountPlain(const char* at) { return std::countr_zero(MarkEscapes(at)) / 8; }

// Whether a byte of the text may be escaped.
bool MayHaveEscapes(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  if (text.size() < 8) return std::any_of(at, end, [](char byte) { return EscapeOf(byte) != 0; });
  for (; end - at > 8; at += 8) {
    if (MarkEscapes(at) != 0) return true;
  }
  return MarkEscapes(end - 8) != 0;
}

std::size_t CountEscapes(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  std::size_t count = 0;
  while (end - at >= 8) {
    const int plain = CountPlain(at);
    if (plain < 8 && EscapeOf(at[plain]) != 0) ++count;
    at += std::min(plain + 1, 8);
  }
  return count + static_cast<std::size_t>(
                     std::count_if(at, end, [](char byte) { return EscapeOf(byte) != 0; }));
}

char* EscapeByte(char byte, char* target) {
  const char escape = EscapeOf(byte);
  if (escape != 0) *target++ = '\\';
  *target++ = escape != 0 ? escape : byte;
  return target;
}

// Eight bytes are copied at once, of which those stay that need no escape.
char* Escape(std::string_view text, char* target) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (end - at >= 8) {
    std::memcpy(target, at, 8);
    const int plain = CountPlain(at);
    at += plain;
    target += plain;
    if (plain < 8) target = EscapeByte(*at++, target);
  }
  for (; at != end; ++at) target = EscapeByte(*at, target);
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

PieceList TextWriter::Write(const CMyJsonObj& object) {
  OpenObject(object);
  WriteOpen();
  return std::move(text_);
}

PieceList TextWriter::WriteMemberValue(const CMyJsonValueImp& value) {
  outer_levels_ = 1;
  WriteValue(value);
  WriteOpen();
  return std::move(text_);
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
      return value.packed ? WriteNumbers(value.array) : OpenArray(value);
    case CMyJsonValue::eObj:
      return OpenObject(*value.object);
    default:
      return;
  }
}

void TextWriter::WriteString(std::string_view text) {
  const bool escaped = MayHaveEscapes(text);
  char* room = text_.Extend(text.size() + (escaped ? CountEscapes(text) : 0) + 2);
  *room++ = '"';
  room = escaped ? Escape(text, room) : room + text.copy(room, text.size());
  *room = '"';
}

void TextWriter::WriteNumber(double number) {
  text_.Finish(FormatNumber(number, text_.Room(kNumberTextCapacity)));
}

// A packed array as a whole.
void TextWriter::WriteNumbers(const ValueList& packed) {
  char separator = '[';
  for (CMyJsonValue* const slot : packed) {
    char* const room = text_.Room(kNumberTextCapacity + 1);
    *room = std::exchange(separator, ',');
    text_.Finish(FormatNumber(NumberIn(slot), room + 1));
  }
  text_.Append(']');
  if (!open_.empty()) EndItem(true);
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
