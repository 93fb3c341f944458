// SPDX-License-Identifier: MIT
// Writes JSON values as text, nested as deep as memory allows, in constant stack: open containers
// stand on a stack on the heap. The text is handed out in the pieces that it is gathered in.
//
// Compact, there is no white space outside strings. Strings escape exactly backslash, quote, TAB,
// CR and LF; all other bytes are written as they are. Deliberately, keys are not escaped, a null
// element of an array leaves only its comma, and numbers have at most 15 decimal places: these do
// not read back as they were.
//
// Indented, a nested container starts on the line of its key or before it, each level is one TAB
// deeper, and lines end with CR LF. Arrays of scalars stay on one line; every object in an array
// stands on lines of its own; arrays in arrays leave an empty line between them, deliberately.
#ifndef QUARNFC_JSON_TEXT_WRITER_H_
#define QUARNFC_JSON_TEXT_WRITER_H_

#include <cstddef>
#include <string_view>
#include <vector>

#include "json/piece_list.h"
#include "json/records.h"

namespace quarnfc::json {

class TextWriter {
 public:
  explicit TextWriter(bool indent) : indent_(indent) {}

  // The text of an object.
  PieceList Write(const CMyJsonObj& object);

  // The text of a string, number, boolean or array as it stands behind the key of a top-level
  // member, so that an array is indented by one level.
  PieceList WriteMemberValue(const CMyJsonValueImp& value);

 private:
  // An object or array that is being written.
  struct Open {
    const CMyJsonObjImp* object;  // null for an array
    const ValueList* values;
    std::size_t next;
  };

  void OpenObject(const CMyJsonObj& object);
  void OpenArray(const CMyJsonValueImp& array);
  void WriteOpen();
  void WriteItem();
  void WriteKey(std::string_view key);
  void PlaceElement(const CMyJsonValueImp& element);
  void WriteValue(const CMyJsonValueImp& value);
  void WriteString(std::string_view text);
  void WriteNumber(double number);
  void WriteNumbers(const ValueList& packed);
  void CloseContainer();
  void EndItem(bool container);

  // Starts a line at the depth of the innermost container and extra levels more.
  void Indent(std::size_t extra);
  void EndLine();

  const bool indent_;
  std::size_t outer_levels_ = 0;  // of indentation, around the outermost container
  std::vector<Open> open_;
  PieceList text_;
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_TEXT_WRITER_H_
