// SPDX-License-Identifier: MIT
// Arrays of texts in a std::vector<char*>: splitting, cleaning, releasing. Part of string_utils.h.
//
// The pieces belong to the library and are released with FreeStrArr (or qnFreeMem each).
//
// Where host and library need not have the same standard library (QN_CONTAINERS_CROSS is 0) these
// functions are compiled into the host, for the host's own vector, whatever its settings; only
// plain arrays cross the module boundary.
//
// Implemented in core/text: string_array.cpp, string_array_vectors.cpp, string_array_exports.cpp.
//
// Example:
//   std::vector<char*> pieces;
//   QNStringUtils::SplitStr("a, b,,c", ',', pieces);       // == 4
//   QNStringUtils::AdjustStrArr(pieces, true, true);       // "a", "b", "c"
//   pieces.size();                                         // == 3u
//   pieces[1];                                             // == "b"
//   QNStringUtils::FreeStrArr(pieces);
#ifndef QUARNFC_STRING_ARRAYS_H_
#define QUARNFC_STRING_ARRAYS_H_

#include <quarnfc/export.h>
#include <quarnfc/plain.h>

#include <cstddef>
#include <vector>

#if QN_CONTAINERS_CROSS
#define QN_ARRAY_API QN_API
#define QN_PLAIN_ARRAY_API QN_PLAIN_API
#else
#define QN_ARRAY_API inline
#define QN_PLAIN_ARRAY_API inline
#endif

namespace QNStringUtils {

// Cuts text at each separator byte into new zero-terminated copies, stored in pieces; returns
// their number. pieces is emptied first without deleting what it held. The scan is by bytes, not
// by characters, deliberately: a separator byte inside a double-byte character splits it.
// "a,,b," gives "a", "", "b", ""; an empty or null text gives no pieces. Release with FreeStrArr.
QN_ARRAY_API int SplitStr(const char* text, char separator, std::vector<char*>& pieces);

// Deletes every element and empties the array. The elements must be the library's own buffers: the
// pieces of SplitStr, or copies of AllocANSIString; null is ignored.
QN_ARRAY_API void FreeStrArr(std::vector<char*>& pieces);

// Cleans an array such as SplitStr gives: trimBlanks removes blanks (the character ' ' only) at
// both ends of every element, dropEmpty then deletes and removes the elements that are empty or
// null. The texts are changed in place; the others keep their order.
QN_ARRAY_API void AdjustStrArr(std::vector<char*>& pieces, bool trimBlanks, bool dropEmpty);

}  // namespace QNStringUtils

// QNStringUtils::SplitStr under a plain name.
QN_PLAIN_ARRAY_API int qnSplitStr(const char* text, char separator, std::vector<char*>& pieces);

// QNStringUtils::FreeStrArr under a plain name.
QN_PLAIN_ARRAY_API void qnFreeStrArr(std::vector<char*>& pieces);

#if !QN_CONTAINERS_CROSS

namespace QNStringUtils {

// What the functions above stand on. append adds a null to the caller's array and returns where it
// stands; what it throws passes through.
QN_API int SplitStrInto(const char* text, char separator, void* pieces,
                        char** (*append)(void* pieces));

// Cleans count elements; returns how many are left, at the front.
QN_API std::size_t AdjustStrs(char** pieces, std::size_t count, bool trimBlanks, bool dropEmpty);

inline int SplitStr(const char* text, char separator, std::vector<char*>& pieces) {
  pieces.clear();
  return SplitStrInto(text, separator, &pieces, [](void* array) {
    auto& elements = *static_cast<std::vector<char*>*>(array);
    elements.push_back(nullptr);
    return &elements.back();
  });
}

inline void FreeStrArr(std::vector<char*>& pieces) {
  for (char* piece : pieces) qnFreeMem(piece);
  pieces.clear();
}

inline void AdjustStrArr(std::vector<char*>& pieces, bool trimBlanks, bool dropEmpty) {
  pieces.resize(AdjustStrs(pieces.data(), pieces.size(), trimBlanks, dropEmpty));
}

}  // namespace QNStringUtils

inline int qnSplitStr(const char* text, char separator, std::vector<char*>& pieces) {
  return QNStringUtils::SplitStr(text, separator, pieces);
}

inline void qnFreeStrArr(std::vector<char*>& pieces) { QNStringUtils::FreeStrArr(pieces); }

#endif  // !QN_CONTAINERS_CROSS

#undef QN_ARRAY_API
#undef QN_PLAIN_ARRAY_API

#endif  // QUARNFC_STRING_ARRAYS_H_
