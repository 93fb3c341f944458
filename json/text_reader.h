// SPDX-License-Identifier: MIT
// Reads JSON objects and arrays, nested as deep as memory allows, in constant stack.
//
// The grammar is RFC 8259 made lenient. ws is any run of space, TAB, CR and LF; a zero byte ends
// the text:
//
//   object = "{" ws { member ws [ "," ] ws } "}"
//   member = string ws ":" ws [ value | "null" ]
//   array  = "[" ws { value ws [ "," ] ws } "]"
//   value  = object | array | string | "true" | "false" | number
//   string = '"' { byte | "\" byte } '"'
//   number = any bytes up to the next ws, ",", "]" or "}", which must be there
//
// Deviations, all deliberate: commas are optional, also in front of the closing bracket; a member
// without a value is null, but "null" in an array is a number like any word; a number is what its
// token starts with, and 0 when that is none; "\" makes t, r and n control characters and leaves
// any other byte as it is, "u" included; control characters and any bytes may stand in strings; a
// key may occur twice; what follows the outermost bracket is not looked at.
//
// One pass, byte by byte. Open containers stand on a stack on the heap, not on the call stack: a
// few bytes for each level.
#ifndef QUARNFC_JSON_TEXT_READER_H_
#define QUARNFC_JSON_TEXT_READER_H_

#include <quarnfc/json_value.h>
#include <quarnfc/qn_string.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "core/memory/memory.h"
#include "json/key_cache.h"
#include "json/records.h"
#include "json/text_rules.h"

namespace quarnfc::json {

class TextReader {
 public:
  // error receives the reason of a failure. While it holds text, an object that does not end
  // leaves it as it is, whoever wrote that text.
  explicit TextReader(CQNString& error);

  TextReader(const TextReader&) = delete;
  TextReader& operator=(const TextReader&) = delete;
  ~TextReader();

  // Reads the object or array whose opening bracket stands at open; null when it cannot be read.
  // Nothing behind its closing bracket is looked at. A reader reads one text.
  std::unique_ptr<CMyJsonValue> Read(const char* open);

 private:
  // An object or array that is not closed yet.
  struct Open {
    const char* bracket;      // '{' or '['
    std::size_t first_value;  // where its values start among those that wait
  };

  bool InObject() const { return *open_.back().bracket == '{'; }

  // One rule of the grammar each. False means that the text cannot be read; the innermost reason
  // has then been set, if there is one.
  bool ReadMember();
  bool ReadElement();
  bool ReadKey();
  bool ReadMemberValue();
  bool ReadValue();
  bool ReadStringValue();
  bool ReadBoolValue();
  bool ReadNumberValue();

  // The numbers that an array begins with; with nothing else in it, they stay packed.
  bool ReadNumbers();

  bool OpenContainer();
  void CloseObject();
  void CloseArray();
  void CloseNumbers();
  void EndContainer(std::unique_ptr<CMyJsonValue> value);

  // Ends an item of the innermost container: skips white space and one optional comma.
  void EndItem();

  CMyJsonValueImp& AddValue();
  template <class... Content>
  bool AddScalar(Content... content);

  bool Fail(const char* message, const char* at);
  void SetClosingFailure();

  CQNString& error_;
  const char* at_ = nullptr;

  // What waits for its container to close: the values of all open containers, innermost last, and
  // the keys of the open objects. Containers are then made in one step, exactly as large as needed.
  template <class Item>
  using Stack = std::vector<Item, NodeAllocator<Item>>;

  Stack<Open> open_;
  Stack<CMyJsonValue*> values_;
  Stack<SharedText> keys_;
  Stack<CMyJsonValue*> numbers_;  // packed: of the array that is being read
  KeyCache key_cache_;
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_TEXT_READER_H_
