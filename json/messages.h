// SPDX-License-Identifier: MIT
// The texts of the JSON subsystem. The Chinese ones are bytes of code page 936, whatever compiler
// builds them.
#ifndef QUARNFC_JSON_MESSAGES_H_
#define QUARNFC_JSON_MESSAGES_H_

namespace quarnfc::json {

// --- reader; all but the first are followed by a snippet of the text ---------------------------

inline constexpr char kNoOpeningBrace[] = "Can't find { ";
inline constexpr char kInvalidKey[] = "Invalid key: ";
inline constexpr char kNoColon[] = "Can't find ':' : ";
inline constexpr char kInvalidString[] = "Invalid string : ";
inline constexpr char kInvalidNumber[] = "Invalid number : ";
inline constexpr char kNoClosingBrace[] = "Can't find '}' : ";

// --- CMyJsonValue::Load ------------------------------------------------------------------------

// "json字符串为NULL": the JSON text is NULL
inline constexpr char kTextIsNull[] = "json\xD7\xD6\xB7\xFB\xB4\xAE\xCE\xAANULL";

// "无效的字符串": invalid string
inline constexpr char kInvalidTopString[] = "\xCE\xDE\xD0\xA7\xB5\xC4\xD7\xD6\xB7\xFB\xB4\xAE";

// "无效的json字符串": invalid JSON text
inline constexpr char kInvalidText[] = "\xCE\xDE\xD0\xA7\xB5\xC4json\xD7\xD6\xB7\xFB\xB4\xAE";

// --- files; the first two take the path and the system's error ---------------------------------

inline constexpr char kCannotOpen[] = "Quarn: Can't open %s, error: 0x%X";
inline constexpr char kCannotSave[] = "Quarn: Can't save %s, error: 0x%X";
inline constexpr char kInvalidLength[] = "Quarn: %s file length is invalid";

// "无效的json，": invalid JSON, (with a full-width comma)
inline constexpr char kInvalidJsonPrefix[] = "\xCE\xDE\xD0\xA7\xB5\xC4json\xA3\xAC";

// --- error documents ---------------------------------------------------------------------------

// "未定义错误": undefined error
inline constexpr char kUndefinedError[] = "\xCE\xB4\xB6\xA8\xD2\xE5\xB4\xED\xCE\xF3";

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_MESSAGES_H_
