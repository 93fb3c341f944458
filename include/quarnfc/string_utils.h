// String utilities: code-page conversion, splitting, wildcard matching, path joining, and
// length-prefixed string records in binary files.
//
// 8-bit text is in the process ANSI code page unless a name says UTF8; wide text is UTF-16.
// Threads: every function may be called from any thread; what it is given is the caller's.
#ifndef QUARNFC_STRING_UTILS_H_
#define QUARNFC_STRING_UTILS_H_

#include <quarnfc/export.h>
#include <quarnfc/qn_string.h>

#include <cstdio>
#include <vector>

namespace QNStringUtils {

// Cuts text at each separator byte into new zero-terminated copies, stored in pieces; returns
// their number. pieces is emptied first without deleting what it held. The scan is by bytes, not
// by characters, deliberately: a separator byte inside a double-byte character splits it.
// "a,,b," gives "a", "", "b", ""; an empty or null text gives no pieces. Release with FreeStrArr.
QN_API int SplitStr(const char* text, char separator, std::vector<char*>& pieces);

// Deletes every element and empties the array.
QN_API void FreeStrArr(std::vector<char*>& pieces);

// Whether text matches pattern, where "*" stands for any run of characters, the empty one
// included, and "?" for any one character. Null matches nothing. The time is at most proportional
// to the product of the two lengths, whatever the pattern.
QN_API bool StrIsMatching(const char* pattern, const char* text, bool caseSensitive);

// Cleans an array such as SplitStr gives: trimBlanks removes blanks (the character ' ' only) at
// both ends of every element, dropEmpty then deletes and removes the elements that are empty.
QN_API void AdjustStrArr(std::vector<char*>& pieces, bool trimBlanks, bool dropEmpty);

// Conversions of zero-terminated text, all with one convention. capacity counts elements of the
// destination.
//  - A null destination with capacity 0 asks for the needed count, terminator included.
//  - A destination with capacity 0 gives 0 and converts nothing.
//  - Otherwise the text is converted and the count written, terminator included, is returned.
//  - When the text cannot be converted, for example because capacity is too small, the result is
//    capacity + 1 and a terminator is written at index capacity: one element BEYOND the stated
//    capacity. This is deliberate: reserve one element more than the capacity you pass.
// A null source, a negative capacity, or a null destination with another capacity gives 0.
QN_API int Ansi2Unicode(const char* source, wchar_t* destination, int capacity);
QN_API int Unicode2Ansi(const wchar_t* source, char* destination, int capacity);
QN_API int UTF82Unicode(const char* source, wchar_t* destination, int capacity);
QN_API int Unicode2UTF8(const wchar_t* source, char* destination, int capacity);

// Appends a string record to a binary file: the count of bytes with the terminator as 32 bits,
// little-endian, then the text up to its first zero byte and a terminator. Nothing is reported.
QN_API void WriteString(FILE* file, const CQNString& text);

// Reads a string record. False, with text unchanged, when the file ends early or the count lies
// outside 1 to 10240. The position is left after what was read in every case.
QN_API bool ReadString(FILE* file, CQNString& text);

}  // namespace QNStringUtils

// Joins a base folder and a path. Slashes become backslashes; leading ".\" and "..\" parts of the
// path are resolved against the base. A path that starts with two backslashes, or holds a ":"
// after its first character, is absolute and stays as it is. On true, path is the joined path. On
// false (a climb above the base's last backslash, or a start such as "..name") path keeps what was
// not yet consumed.
QN_PLAIN_API bool qnUnionPathEx(CQNString& base, CQNString& path);

// The same for plain text: a new joined path, released with qnFreeMem, or null when an argument is
// null or the path cannot be joined.
QN_PLAIN_API char* qnUnionPath(const char* base, const char* path);

// QNStringUtils::SplitStr and FreeStrArr under plain names.
QN_PLAIN_API int qnSplitStr(const char* text, char separator, std::vector<char*>& pieces);
QN_PLAIN_API void qnFreeStrArr(std::vector<char*>& pieces);

#endif  // QUARNFC_STRING_UTILS_H_
