// SPDX-License-Identifier: MIT
// JSON text read and written against slow references: tree, message, layout, UTF-8 and the way
// back. A byte that says whether the caller's message holds something already, then the text.
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/plain.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "fuzz/input.h"
#include "fuzz/json_reference.h"
#include "fuzz/json_utf8_reference.h"
#include "fuzz/json_writer_reference.h"
#include "fuzz/reference.h"

namespace {

// The reference recurses.
constexpr int kMaxBrackets = 2000;

constexpr double kMaxWhole = 1e15;

void CheckValue(const std::string& text, const std::string& message, CMyJsonValue& value) {
  fuzz::JsonReference reference(text, message);
  const bool is_read = reference.ReadValueText();
  CQNString error(message.c_str());
  fuzz::Expect(value.Load(text.c_str(), error) == is_read);
  fuzz::Expect(fuzz::Dump(value) == (is_read ? reference.Tree() : "n"));
  fuzz::Expect(fuzz::BytesOf(error) == (is_read ? message : reference.Message()));
}

void CheckObject(const std::string& text) {
  fuzz::JsonReference reference(text, "");
  const bool is_read = reference.ReadObjectText();
  CMyJsonObj object;
  fuzz::Expect(object.Load(text.c_str()) == is_read);
  fuzz::Expect(fuzz::Dump(object) == (is_read ? reference.Tree() : "{}"));
  fuzz::Expect(fuzz::BytesOf(object.GetErrMsg()) == (is_read ? "" : reference.Message()));
}

// Whether a tree is written without loss: numbers have digits enough, keys need no escapes, and
// no array holds an empty value.
bool IsWrittenWhole(const CMyJsonValue& value);

bool IsWrittenWhole(const CMyJsonObj& object) {
  for (int i = 0; i < object.ValueCount(); ++i) {
    CQNString key;
    CMyJsonValue* member = nullptr;
    object.Item(i, key, member);
    if (fuzz::BytesOf(key).find_first_of("\\\"") != std::string::npos) return false;
    if (!member->IsEmpty() && !IsWrittenWhole(*member)) return false;
  }
  return true;
}

bool IsWrittenWhole(const CMyJsonValue& value) {
  const double number = value.IsNumber() ? value.ValueNumber() : 0;
  if (std::fabs(number) > kMaxWhole || number != std::trunc(number)) return false;
  for (int i = 0; value.IsArr() && i < value.ValueArrLength(); ++i) {
    if (!IsWrittenWhole(*value.ValueArrItem(i))) return false;
  }
  return value.IsObj() ? IsWrittenWhole(*value.ValueObj()) : !value.IsEmpty();
}

void CheckUtf8(const CMyJsonValue& value, bool indent) {
  char* const utf8 = value.CreateUTF8Json(indent);
  fuzz::Expect(utf8 == fuzz::JsonTextAsUtf8(fuzz::BytesOf(value.CreateJson(indent))));
  qnFreeMem(utf8);
}

// As part of a text that is long enough to be converted in pieces.
void CheckLongUtf8(const CMyJsonValue& value) {
  const std::string filler(1100, 'x');
  CMyJsonValue* elements[] = {new CMyJsonValue(filler.c_str()), value.Clone()};
  CheckUtf8(CMyJsonValue(elements, 2), false);
}

void CheckWriting(const CMyJsonValue& value, bool indent) {
  CheckUtf8(value, indent);
  const std::string text = fuzz::BytesOf(value.CreateJson(indent));
  fuzz::Expect(text == fuzz::JsonWriterReference(indent).ValueText(value));
  if (!IsWrittenWhole(value)) return;
  CMyJsonValue again;
  CQNString error;
  fuzz::Expect(again.Load((text + " ").c_str(), error));
  fuzz::Expect(fuzz::Dump(again) == fuzz::Dump(value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::string message = (input.Byte() & 1) != 0 ? "before" : "";
  const std::string text = input.Text();
  const auto is_opening = [](char ch) { return ch == '{' || ch == '['; };
  if (std::count_if(text.begin(), text.end(), is_opening) > kMaxBrackets) return 0;
  CMyJsonValue value;
  CheckValue(text, message, value);
  CheckObject(text);
  CheckWriting(value, false);
  CheckWriting(value, true);
  CheckLongUtf8(value);
  return 0;
}
