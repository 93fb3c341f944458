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
// Errors: std::bad_alloc when memory is exhausted or a text would exceed 2 GiB. Indexes are not
// checked unless a member says so.
#ifndef QUARNFC_QN_STRING_H_
#define QUARNFC_QN_STRING_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

#include <cstdarg>

class QN_API CQNString {
 public:
  // --- construction -------------------------------------------------------------------------

  CQNString();

  // Shares the buffer of other; a locked buffer (LockBuffer) is copied instead.
  CQNString(const CQNString& other);

  // count copies of ch; empty when count is below 1.
  CQNString(char ch, int count);

  // A copy of a zero-terminated text; null gives the empty string.
  CQNString(const char* text);
  CQNString(const unsigned char* text);

  // A copy of exactly length bytes, embedded zeros included; empty when length is below 1 or text
  // is null.
  CQNString(const char* text, int length);

  // Conversion of zero-terminated UTF-16 text to the ANSI code page; null gives the empty string.
  CQNString(const wchar_t* text);

  // Conversion of exactly length UTF-16 units; empty when length is below 1 or text is null.
  CQNString(const wchar_t* text, int length);

  ~CQNString();

  // --- observers ----------------------------------------------------------------------------

  // Length of the text in bytes, without the terminator.
  int GetLength() const;

  // Bytes the buffer holds without being replaced, without the terminator.
  int GetAllocLength() const;

  // Nonzero when the length is 0.
  int IsEmpty() const;

  // The zero-terminated text; never null.
  operator const char*() const;

  // The byte at index, unchecked.
  char operator[](int index) const;

  // --- assignment ---------------------------------------------------------------------------

  // Shares the buffer of other unless either buffer is locked; an empty string counts as locked,
  // so assigning it copies and this string keeps its buffer.
  const CQNString& operator=(const CQNString& other);
  const CQNString& operator=(const char* text);
  const CQNString& operator=(char ch);
  const CQNString& operator=(const wchar_t* text);

  // --- concatenation ------------------------------------------------------------------------

  // Appends; null adds nothing. The text appended may be part of this string. Above 512 bytes
  // every append reallocates to the exact new length: no growth factor is applied.
  const CQNString& operator+=(const char* text);
  const CQNString& operator+=(char ch);
  const CQNString& operator+=(const CQNString& other);

  friend QN_API CQNString operator+(const CQNString& left, const CQNString& right);
  friend QN_API CQNString operator+(const CQNString& left, const char* right);
  friend QN_API CQNString operator+(const char* left, const CQNString& right);
  friend QN_API CQNString operator+(const CQNString& left, char right);
  friend QN_API CQNString operator+(char left, const CQNString& right);

  // --- comparison ---------------------------------------------------------------------------

  // Negative, 0 or positive, by characters of the code page: as they are, ignoring case, and by
  // the collation of the locale with and without case. Each looks at the text up to its first
  // zero byte; null compares like the empty text.
  int Compare(const char* text) const;
  int CompareNoCase(const char* text) const;
  int Collate(const char* text) const;
  int CollateNoCase(const char* text) const;

  // --- buffer access ------------------------------------------------------------------------

  // A writable buffer of at least minLength bytes and a terminator that holds the current text.
  // Call ReleaseBuffer after writing. The buffer may be shared only when it is locked.
  char* GetBuffer(int minLength);

  // Ends writing: sets the length to newLength, or to the length of the zero-terminated text when
  // newLength is -1, and writes the terminator. The length is kept within the buffer.
  void ReleaseBuffer(int newLength = -1);

  // A writable buffer of exactly length bytes with the terminator in place; bytes beyond the old
  // text are uninitialised.
  char* GetBufferSetLength(int length);

  // Gives up spare capacity: moves the text into a fresh buffer of the class its length asks for.
  void FreeExtra();

  // Makes the buffer one that is never shared and returns it; UnlockBuffer ends that, and does
  // nothing on a buffer that is not locked.
  char* LockBuffer();
  void UnlockBuffer();

  // Makes the string empty. A locked buffer is kept; any other is released.
  void Empty();

  // --- copies for the caller ----------------------------------------------------------------

  // A new zero-terminated copy of the text, released with qnFreeMem.
  char* AllocANSIString() const;

  // A new system string with the text as UTF-16, released with SysFreeString. Throws the text
  // "Alloc failed!" as a char* when the system is out of memory; the text is static and is not
  // released.
  BSTR AllocSysString() const;

  // Replaces *target (a system string, or null) by the text as UTF-16 and returns the new system
  // string. Throws "ReAlloc failed!" as a char* when the system is out of memory.
  BSTR SetSysString(BSTR* target) const;

  // --- search: the byte index of the hit, or -1. A negative start counts as 0 ---------------

  int Find(char ch) const;

  // -1 when start is not below the length.
  int Find(char ch, int start) const;

  // An empty text is found at 0, also in an empty string; null is never found.
  int Find(const char* text) const;

  // -1 when start is above the length; start equal to the length is allowed, deliberately unlike
  // the character form.
  int Find(const char* text, int start) const;

  // The last occurrence of ch.
  int ReverseFind(char ch) const;

  // The first character that is in set.
  int FindOneOf(const char* set) const;

  // --- extraction: byte-based, so a double-byte character can be cut ------------------------

  // count bytes from first, both clamped to the text. The whole string shares its buffer.
  CQNString Mid(int first, int count) const;
  CQNString Mid(int first) const;
  CQNString Left(int count) const;
  CQNString Right(int count) const;

  // The leading run of characters that are in set, or that are not in set.
  CQNString SpanIncluding(const char* set) const;
  CQNString SpanExcluding(const char* set) const;

  // --- editing ------------------------------------------------------------------------------

  // Inserts before index, which is clamped to the text; returns the new length. A null or empty
  // text changes nothing. The text inserted may be part of this string.
  int Insert(int index, char ch);
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

  // Writes ch at index. An index outside the text is ignored.
  void SetAt(int index, char ch);

  // --- trimming: white space, a character, or the characters of a set -----------------------

  void TrimLeft();
  void TrimLeft(char ch);
  void TrimLeft(const char* set);
  void TrimRight();
  void TrimRight(char ch);
  void TrimRight(const char* set);
  void Trim();

  // --- case, order of characters, code page -------------------------------------------------

  void MakeUpper();
  void MakeLower();
  void MakeReverse();

  // Conversion between the ANSI and the OEM code page in place. The length is not recomputed.
  void CharToOemA();
  void OemToCharA();

  // --- formatting ---------------------------------------------------------------------------

  // Replaces the text by formatted text. Conversions: c C s S d i u x X o p e E f g G n and %%,
  // with the flags - + 0 # blank, width and precision (also *), and the prefixes h l ll I64 F L N.
  // "hs" and "S" with "h" take 8-bit text, "ls" and "S" wide text; a null text prints "(null)".
  // F, L and N have no effect ("%Lf" takes a double). "%n" takes its argument and writes nothing.
  // Any other character behind "%" stands for itself and takes no argument. The text is the same on
  // every target and never overruns; the arguments may include this string's own text.
  void Format(const char* format, ...);
  void FormatV(const char* format, va_list args);

 private:
  char*& Text() const { return *cell_; }

  // The cell that holds the pointer to the characters. Keeping it apart keeps the object one
  // pointer wide whatever the buffer does.
  char** cell_;
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

#endif  // QUARNFC_QN_STRING_H_
