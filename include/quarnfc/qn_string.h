// SPDX-License-Identifier: MIT
// CQNString: the library's 8-bit string.
//
// Text is in the process ANSI code page, double-byte characters included. Searching, trimming,
// comparing and changing case step by characters of that code page, so that the second byte of a
// double-byte character is never mistaken for a character; lengths, positions and counts are in
// bytes. Copies share one reference-counted buffer until one of them is changed.
//
// Ownership: a string owns its text. Pointers it hands out (operator const char*, GetBuffer,
// LockBuffer) stay its own and are valid until it is changed or destroyed. What the Alloc members
// return belongs to the caller, who releases it as stated there.
//
// Threads: strings that share a buffer may be used on different threads; one CQNString object must
// not be used by two threads at once.
//
// Errors: std::bad_alloc when memory is exhausted or a text would exceed 2 GiB; the string is then
// as it was. Indexes are not checked unless a member says so.
//
// Misuse to avoid: passing a CQNString itself to Format or another "..." function (cast it to
// const char*); keeping a pointer into a string beyond its next change; writing through GetBuffer
// without ReleaseBuffer; writing beyond the length that GetBuffer was asked for.
//
// Implemented in core/text/string*.cpp; the rules of the buffer in core/text/string_buffer.h.
//
// Example:
//   CQNString name("station");
//   name += ".json";
//   name.GetLength();                 // == 12
//   name.Find('.');                   // == 7
//   name.Left(7);                     // == "station"
//   name.Replace(".json", ".wkt");    // == 1
//   const CQNString copy(name);       // shares the buffer until one of them is changed
//   name.MakeUpper();
//   name;                             // == "STATION.WKT"
//   copy;                             // == "station.wkt"
#ifndef QUARNFC_QN_STRING_H_
#define QUARNFC_QN_STRING_H_

#include <quarnfc/export.h>
#include <quarnfc/overloads.h>
#include <quarnfc/platform_types.h>

#include <cstdarg>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

class QN_API CQNString {
 public:
  // --- construction -------------------------------------------------------------------------

  // The empty string. Empty strings share one static buffer: none is allocated.
  CQNString();

  // Shares the buffer of other; a locked buffer (LockBuffer) is copied instead.
  CQNString(const CQNString& other);

  // count copies of ch; empty when count is below 1.
  CQNString(char ch, int count);

  // A copy of a zero-terminated text; null gives the empty string.
  CQNString(const char* text);

  // The same for text kept in unsigned bytes, as the multibyte functions of the run-time take it.
  CQNString(const unsigned char* text);

  // A copy of exactly length bytes, embedded zeros included; empty when length is below 1 or text
  // is null.
  CQNString(const char* text, int length);

  // Conversion of zero-terminated UTF-16 text to the ANSI code page; null gives the empty string.
  // Characters that the code page lacks become its default character, "?" in code page 936.
  CQNString(const wchar_t* text);

  // Conversion of exactly length UTF-16 units; empty when length is below 1 or text is null.
  CQNString(const wchar_t* text, int length);

  // A copy of the bytes of a std::string or std::string_view, embedded zeros included. Explicit, so
  // that no call of a host becomes ambiguous. std::bad_alloc from 2 GiB.
  template <class View, quarnfc::overloads::IfView<View> = 0>
  explicit CQNString(const View& text)
      : CQNString(std::string_view(text).data(),
                  quarnfc::overloads::CheckedLength(std::string_view(text).size())) {}

  // Takes the buffer of other, also a locked one; other is empty afterwards. Allocates nothing, so
  // that arrays of strings grow without a copy; the few bytes that every string has are allocated
  // when other is used again.
  CQNString(CQNString&& other) noexcept : cell_(std::exchange(other.cell_, nullptr)) {}

  // Releases the buffer; the last string that shares it frees it. Pointers into it end here.
  ~CQNString();

  // --- observers ----------------------------------------------------------------------------

  // Length of the text in bytes, without the terminator. A double-byte character counts 2; zero
  // bytes inside the text count, too.
  int GetLength() const;

  // Bytes the buffer holds without being replaced, without the terminator: 0 for the empty string
  // that was never written to, 64, 128, 256 or 512 for short texts, the exact length above.
  int GetAllocLength() const;

  // Nonzero when the length is 0.
  int IsEmpty() const;

  // The zero-terminated text; never null. Borrowed: it ends with the next change of this string or
  // with the string itself, so do not keep the pointer of a temporary.
  operator const char*() const;

  // The text with its length, embedded zeros included, as a std::string_view: valid until the
  // string changes. A template, so that the module exports nothing made of the standard library's
  // types.
  template <class Traits = std::char_traits<char>>
  std::basic_string_view<char, Traits> View() const {
    return {static_cast<const char*>(*this), static_cast<std::size_t>(GetLength())};
  }

  // The same as a std::string of its own.
  template <class Traits = std::char_traits<char>>
  std::basic_string<char, Traits> ToStdString() const {
    return std::basic_string<char, Traits>(View<Traits>());
  }

  // The byte at index, unchecked: valid from 0 to GetLength(), where the terminator stands. It may
  // be half of a double-byte character.
  char operator[](int index) const;

  // --- assignment ---------------------------------------------------------------------------

  // Shares the buffer of other unless either buffer is locked; an empty string counts as locked,
  // so assigning it copies and this string keeps its buffer.
  const CQNString& operator=(const CQNString& other);

  // The same, without throwing: when memory is exhausted the two strings change places instead.
  CQNString& operator=(CQNString&& other) noexcept {
    try {
      *this = static_cast<const CQNString&>(other);
    } catch (...) {
      std::swap(cell_, other.cell_);
    }
    return *this;
  }

  // Copies a zero-terminated text, which may be part of this string; null gives the empty text. A
  // buffer that is not shared and large enough is used again, so the capacity stays.
  const CQNString& operator=(const char* text);

  // Makes ch the whole text. The zero character gives a text of one zero byte.
  const CQNString& operator=(char ch);

  // Converts zero-terminated UTF-16 text to the ANSI code page, as the constructor does.
  const CQNString& operator=(const wchar_t* text);

  // --- concatenation ------------------------------------------------------------------------

  // Appends; null adds nothing. The text appended may be part of this string. Above 512 bytes
  // every append reallocates to the exact new length: no growth factor is applied. To build a long
  // text byte by byte, ask GetBuffer for the whole length first.
  const CQNString& operator+=(const char* text);

  // Appends one byte. Two of them make a double-byte character.
  const CQNString& operator+=(char ch);

  // Appends all bytes of other, embedded zeros included.
  const CQNString& operator+=(const CQNString& other);

  // A new string with both texts, left first; a null text counts as empty. The operands stay as
  // they are. A chain of + allocates once per operator: use += for many parts.
  friend QN_API CQNString operator+(const CQNString& left, const CQNString& right);
  friend QN_API CQNString operator+(const CQNString& left, const char* right);
  friend QN_API CQNString operator+(const char* left, const CQNString& right);
  friend QN_API CQNString operator+(const CQNString& left, char right);
  friend QN_API CQNString operator+(char left, const CQNString& right);

  // --- comparison ---------------------------------------------------------------------------

  //
  // Each gives a negative number, 0 or a positive number when this string stands before, equals or
  // stands behind text. Each looks at the texts up to their first zero byte; null compares like the
  // empty text. The operators ==, !=, <, >, <= and >= below the class are Compare.

  // By the numbers of the characters in the code page.
  int Compare(const char* text) const;

  // The same in lower case. In code page 936 full-width Latin, Greek and Cyrillic letters have case
  // as well as ASCII ones.
  int CompareNoCase(const char* text) const;

  // By the collation of the locale: the order in which a user expects a list.
  int Collate(const char* text) const;

  // The same regardless of case.
  int CollateNoCase(const char* text) const;

  // --- buffer access ------------------------------------------------------------------------

  // Example:
  //   CQNString text;
  //   std::snprintf(text.GetBuffer(32), 33, "%d items", 12);
  //   text.ReleaseBuffer();
  //   text;                // == "12 items"
  //   text.GetLength();    // == 8

  // A writable buffer of at least minLength bytes and a terminator that holds the current text;
  // a minLength below the current length keeps the text whole. No other string shares it.
  //
  // Call ReleaseBuffer after writing and before any other member: until then the length is the old
  // one. The pointer ends with that call's next change; the bytes behind the old text are
  // uninitialised. With minLength 0 on an empty string it is the static text of all empty strings,
  // which must not be written to.
  char* GetBuffer(int minLength);

  // Ends writing: sets the length to newLength, or to the length of the zero-terminated text when
  // newLength is below 0, and writes the terminator. The length is kept within the buffer. Pass the
  // length when the text may hold zero bytes or was not terminated.
  void ReleaseBuffer(int newLength = -1);

  // A writable buffer of exactly length bytes (a negative length counts as 0) with the terminator
  // in place; bytes beyond the old text are uninitialised. The length is set at once: ReleaseBuffer
  // is only needed when fewer bytes are written.
  char* GetBufferSetLength(int length);

  // Gives up spare capacity: moves the text into a fresh buffer of the class its length asks for.
  // Pointers into the old one end, and a lock (LockBuffer) does, too.
  void FreeExtra();

  // Makes the buffer one that is never shared, so that copies of this string are independent at
  // once and a pointer into it stays usable for writing, and returns it. Members that need a larger
  // buffer still replace it, and the lock goes with it. The empty string cannot be locked.
  char* LockBuffer();

  // Ends the lock: copies share the buffer again. Does nothing on a buffer that is not locked.
  void UnlockBuffer();

  // Makes the string empty. A locked buffer is kept; any other is released.
  void Empty();

  // --- copies for the caller ----------------------------------------------------------------

  // Example:
  //   char* copy = CQNString("text").AllocANSIString();
  //   copy;    // == "text"
  //   qnFreeMem(copy);

  // A new zero-terminated copy of the text, embedded zeros included, released with qnFreeMem.
  char* AllocANSIString() const;

  // A new system string with the text as UTF-16, released with SysFreeString. Throws the text
  // "Alloc failed!" as a char* when the system is out of memory; the text is static and is not
  // released.
  BSTR AllocSysString() const;

  // Replaces *target (a system string, or null) by the text as UTF-16 and returns the new system
  // string, which is *target and released once. Throws "ReAlloc failed!" as a char* (static, not
  // released) when the system is out of memory or target is null; *target is then as it was.
  BSTR SetSysString(BSTR* target) const;

  // --- search: the byte index of the hit, or -1. A negative start counts as 0 ---------------
  //
  // start must be the beginning of a character: from the middle of a double-byte one the search
  // reads the text differently. A search ends at the first zero byte.

  // The first character that is the single byte ch, never half of a double-byte one.
  int Find(char ch) const;

  // The same from start; -1 when start is not below the length.
  int Find(char ch, int start) const;

  // The first place where text begins with a character of this string. An empty text is found at 0,
  // also in an empty string; null is never found.
  int Find(const char* text) const;

  // The same from start. -1 when start is above the length; start equal to the length is allowed,
  // deliberately unlike the character form.
  int Find(const char* text, int start) const;

  // The last character that is the single byte ch.
  int ReverseFind(char ch) const;

  // The first character that is in set, a text of characters; an empty or null set has none.
  int FindOneOf(const char* set) const;

  // --- extraction: byte-based, so a double-byte character can be cut ------------------------

  //
  // Each gives a string of its own; this one stays as it is. Counts and indexes are clamped to the
  // text. The whole string as a result shares its buffer.

  // count bytes from first. Beyond the text the result is empty.
  CQNString Mid(int first, int count) const;

  // All bytes from first.
  CQNString Mid(int first) const;

  // The first count bytes.
  CQNString Left(int count) const;

  // The last count bytes.
  CQNString Right(int count) const;

  // The leading run of characters that are in set; empty for an empty or null set.
  CQNString SpanIncluding(const char* set) const;

  // The leading run of characters that are not in set; everything for an empty or null set, up to
  // the first zero byte.
  CQNString SpanExcluding(const char* set) const;

  // --- editing ------------------------------------------------------------------------------

  // Example:
  //   CQNString list("b,c");
  //   list.Insert(0, "a,");     // == 5
  //   list.Delete(3, 2);        // == 5
  //   list;                     // == "a,b"
  //   list.Replace(',', ';');   // == 1
  //   list;                     // == "a;b"

  // Inserts the byte ch before index, which is clamped to the text; returns the new length.
  int Insert(int index, char ch);

  // The same with a text, which may be part of this string. A null or empty one changes nothing.
  int Insert(int index, const char* text);

  // Removes count bytes from index (negative counts as 0; what lies beyond the text is ignored).
  // Returns the length before the deletion, deliberately.
  int Delete(int index, int count);

  // Replaces every character whose first byte is oldChar by writing newChar over that byte;
  // returns how many there were.
  int Replace(char oldChar, char newChar);

  // Replaces every occurrence of oldText, left to right without overlap; returns how many there
  // were. A null newText counts as "". Either text may be part of this string.
  int Replace(const char* oldText, const char* newText);

  // Removes the characters whose first byte is ch and returns the number of bytes removed.
  // Deliberately kept: a kept character contributes only its first byte, and the destination then
  // moves on by one character as judged at the destination, so double-byte text after a removal
  // keeps the second bytes that stood at the destination.
  int Remove(char ch);

  // Writes the byte ch at index, 0 to GetLength() - 1. An index outside the text is ignored.
  void SetAt(int index, char ch);

  // --- trimming: white space, a character, or the characters of a set -----------------------
  //
  // The text goes from character to character, so that no half of a double-byte one is cut off. The
  // capacity stays.
  //
  // Example:
  //   CQNString text("  [12]  ");
  //   text.Trim();
  //   text;    // == "[12]"
  //   text.TrimLeft("[{(");
  //   text.TrimRight(']');
  //   text;    // == "12"

  // Removes leading white space: blank, TAB, LF, vertical tab, form feed and CR. The double-byte
  // blank of code page 936 is none.
  void TrimLeft();

  // Removes the leading characters whose first byte is ch.
  void TrimLeft(char ch);

  // Removes the leading characters that are in set; a null or empty set removes nothing.
  void TrimLeft(const char* set);

  // Removes trailing white space, as TrimLeft() does in front.
  void TrimRight();

  // Removes the trailing characters whose first byte is ch.
  void TrimRight(char ch);

  // Removes the trailing characters that are in set; a null or empty set removes nothing.
  void TrimRight(const char* set);

  // TrimLeft(), then TrimRight().
  void Trim();

  // --- case, order of characters, code page -------------------------------------------------
  //
  // All of these work in place and keep the length.

  // Makes every letter of the code page that has case an upper-case one, full-width Latin, Greek
  // and Cyrillic letters of code page 936 included.
  void MakeUpper();

  // The same in lower case.
  void MakeLower();

  // Reverses the order of the characters; the two bytes of a double-byte one keep theirs.
  void MakeReverse();

  // Conversion from the ANSI to the OEM code page. The length is not recomputed.
  void CharToOemA();

  // Conversion from the OEM to the ANSI code page. The length is not recomputed.
  void OemToCharA();

  // --- formatting ---------------------------------------------------------------------------

  // Replaces the text by formatted text. Conversions: c C s S d i u x X o p e E f g G n and %%,
  // with the flags - + 0 # blank, width and precision (also *), and the prefixes h l ll I64 F L N.
  // "hs" and "S" with "h" take 8-bit text, "ls" and "S" wide text; a null text prints "(null)".
  // F, L and N have no effect ("%Lf" takes a double). "%n" takes its argument and writes nothing.
  // Any other character behind "%" stands for itself and takes no argument. The text is the same on
  // every target and never overruns; the arguments may include this string's own text. A null
  // format gives the empty string.
  //
  // Hazard: nothing checks the arguments against the format. Each must have the type that its
  // conversion takes: int for "%d", 64 bits for "%I64d" and "%lld", double for "%f", const char*
  // for "%s". A CQNString must be cast to const char*. Never pass a text from outside as the
  // format: use "%s".
  //
  // Example:
  //   const CQNString name("Changsha");
  //   CQNString line;
  //   line.Format("%-10s|%6.2f|%03d", static_cast<const char*>(name), 112.938, 7);
  //   line;    // == "Changsha  |112.94|007"
  void Format(const char* format, ...) QN_FORMAT(2, 3);

  // An object of a class as an argument would arrive as something else than its text: pass
  // static_cast<const char*>(string), or c_str() of a standard string.
  template <class... Arguments, quarnfc::overloads::IfAnyClass<Arguments...> = 0>
  void Format(const char* format, Arguments&&... arguments) = delete;

  // The same with a list of arguments, which it leaves as va_arg leaves it: not to be used again.
  void FormatV(const char* format, va_list args);

 private:
  char*& Text() const {
    if (cell_ == nullptr) MakeCell();
    return *cell_;
  }
  void MakeCell() const;

  // The cell that holds the pointer to the characters; null behind a move. Keeping it apart keeps
  // the object one pointer wide whatever the buffer does.
  mutable char** cell_;
};

// Comparison operators, by Compare, in the forms string-string, string-text and text-string.
#define QN_STRING_COMPARISON(op)                                           \
  inline bool operator op(const CQNString& left, const CQNString& right) { \
    return left.Compare(right) op 0;                                       \
  }                                                                        \
  inline bool operator op(const CQNString& left, const char* right) {      \
    return left.Compare(right) op 0;                                       \
  }                                                                        \
  inline bool operator op(const char* left, const CQNString& right) {      \
    return 0 op right.Compare(left);                                       \
  }
QN_STRING_COMPARISON(==)
QN_STRING_COMPARISON(!=)
QN_STRING_COMPARISON(<)
QN_STRING_COMPARISON(>)
QN_STRING_COMPARISON(<=)
QN_STRING_COMPARISON(>=)
#undef QN_STRING_COMPARISON

namespace std {
// For unordered containers: equal strings have equal hashes. Like Compare it ends at the first zero
// byte, and it leaves out half a character of code page 936 at the end of the text.
template <>
struct hash<CQNString> {
  std::size_t operator()(const CQNString& key) const noexcept {
    unsigned long long sum = 14695981039346656037ull;  // FNV-1a
    const auto add = [&sum](char byte) {
      sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211ull;
    };
    for (const char* text = key; *text != 0; ++text) {
      const unsigned char first = static_cast<unsigned char>(*text);
      if (first >= 0x81 && first <= 0xFE) {
        if (text[1] == 0) break;
        add(*text++);
      }
      add(*text);
    }
    return static_cast<std::size_t>(sum);
  }
};
}  // namespace std

#endif  // QUARNFC_QN_STRING_H_
