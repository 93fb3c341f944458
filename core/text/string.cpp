// SPDX-License-Identifier: MIT
#include <quarnfc/qn_string.h>

#include <cstring>
#include <new>
#include <utility>

#include "core/memory/memory.h"
#include "core/text/character.h"
#include "core/text/collation.h"
#include "core/text/multibyte.h"
#include "core/text/string_buffer.h"

using quarnfc::AllocStringBuffer;
using quarnfc::AppendBytes;
using quarnfc::AssignBytes;
using quarnfc::CheckedLength;
using quarnfc::EmptyBuffer;
using quarnfc::HeaderOf;
using quarnfc::IsLocked;
using quarnfc::ReleaseStringBuffer;
using quarnfc::Reserve;
using quarnfc::SetStringLength;
using quarnfc::TextLength;
using quarnfc::Unshare;

namespace {

char** NewCell(char* text) { return new (quarnfc::AllocNode(sizeof(char*))) char*(text); }

CQNString Join(const char* left, int left_length, const char* right, int right_length) {
  CQNString joined;
  char* text = joined.GetBufferSetLength(CheckedLength(static_cast<std::size_t>(left_length) +
                                                       static_cast<std::size_t>(right_length)));
  if (left_length > 0) std::memcpy(text, left, static_cast<std::size_t>(left_length));
  if (right_length > 0) {
    std::memcpy(text + left_length, right, static_cast<std::size_t>(right_length));
  }
  return joined;
}

}  // namespace

// --- construction -------------------------------------------------------------------------------

CQNString::CQNString() : cell_(NewCell(EmptyBuffer())) {}

CQNString::CQNString(const CQNString& other) : CQNString() {
  char* const text = other.Text();
  if (IsLocked(text)) {
    *cell_ = quarnfc::NewStringBuffer(text, HeaderOf(text)->length);
  } else {
    quarnfc::ShareStringBuffer(text);
    *cell_ = text;
  }
}

CQNString::CQNString(char ch, int count) : CQNString() {
  if (count < 1) return;
  *cell_ = AllocStringBuffer(count);
  std::memset(*cell_, static_cast<unsigned char>(ch), static_cast<std::size_t>(count));
}

CQNString::CQNString(const char* text) : CQNString(text, TextLength(text)) {}

CQNString::CQNString(const unsigned char* text) : CQNString(reinterpret_cast<const char*>(text)) {}

CQNString::CQNString(const char* text, int length) : CQNString() {
  if (text != nullptr && length > 0) *cell_ = quarnfc::NewStringBuffer(text, length);
}

CQNString::~CQNString() {
  if (cell_ == nullptr) return;
  ReleaseStringBuffer(*cell_);
  quarnfc::FreeNode(cell_, sizeof(char*));
}

void CQNString::MakeCell() const { cell_ = NewCell(EmptyBuffer()); }

// --- observers ----------------------------------------------------------------------------------

int CQNString::GetLength() const { return HeaderOf(Text())->length; }

int CQNString::GetAllocLength() const { return HeaderOf(Text())->capacity; }

int CQNString::IsEmpty() const { return GetLength() == 0; }

CQNString::operator const char*() const { return Text(); }

char CQNString::operator[](int index) const { return Text()[index]; }

// --- assignment ---------------------------------------------------------------------------------

const CQNString& CQNString::operator=(const CQNString& other) {
  if (Text() == other.Text()) return *this;
  const bool may_share = Text() == EmptyBuffer() || !IsLocked(Text());
  if (may_share && !IsLocked(other.Text())) {
    quarnfc::ShareStringBuffer(other.Text());
    ReleaseStringBuffer(std::exchange(Text(), other.Text()));
  } else {
    AssignBytes(Text(), other.Text(), other.GetLength());
  }
  return *this;
}

const CQNString& CQNString::operator=(const char* text) {
  AssignBytes(Text(), text, TextLength(text));
  return *this;
}

const CQNString& CQNString::operator=(char ch) {
  AssignBytes(Text(), &ch, 1);
  return *this;
}

// --- concatenation ------------------------------------------------------------------------------

const CQNString& CQNString::operator+=(const char* text) {
  AppendBytes(Text(), text, TextLength(text));
  return *this;
}

const CQNString& CQNString::operator+=(char ch) {
  quarnfc::AppendByte(Text(), ch);
  return *this;
}

const CQNString& CQNString::operator+=(const CQNString& other) {
  AppendBytes(Text(), other.Text(), other.GetLength());
  return *this;
}

CQNString operator+(const CQNString& left, const CQNString& right) {
  return Join(left, left.GetLength(), right, right.GetLength());
}

CQNString operator+(const CQNString& left, const char* right) {
  return Join(left, left.GetLength(), right, TextLength(right));
}

CQNString operator+(const char* left, const CQNString& right) {
  return Join(left, TextLength(left), right, right.GetLength());
}

CQNString operator+(const CQNString& left, char right) {
  return Join(left, left.GetLength(), &right, 1);
}

CQNString operator+(char left, const CQNString& right) {
  return Join(&left, 1, right, right.GetLength());
}

// --- comparison ---------------------------------------------------------------------------------

int CQNString::Compare(const char* text) const {
  return quarnfc::MbsCmp(quarnfc::Bytes(Text()), quarnfc::Bytes(text));
}

int CQNString::CompareNoCase(const char* text) const {
  return quarnfc::MbsICmp(quarnfc::Bytes(Text()), quarnfc::Bytes(text));
}

int CQNString::Collate(const char* text) const {
  return quarnfc::Collate(quarnfc::Bytes(Text()), quarnfc::Bytes(text), false);
}

int CQNString::CollateNoCase(const char* text) const {
  return quarnfc::Collate(quarnfc::Bytes(Text()), quarnfc::Bytes(text), true);
}

// --- buffer access ------------------------------------------------------------------------------

char* CQNString::GetBuffer(int minLength) {
  Reserve(Text(), minLength);
  return Text();
}

void CQNString::ReleaseBuffer(int newLength) {
  Unshare(Text());
  const int capacity = GetAllocLength();
  if (newLength < 0) {
    newLength = static_cast<int>(strnlen(Text(), static_cast<std::size_t>(capacity)));
  }
  SetStringLength(Text(), newLength < capacity ? newLength : capacity);
}

char* CQNString::GetBufferSetLength(int length) {
  if (length < 0) length = 0;
  Reserve(Text(), length);
  SetStringLength(Text(), length);
  return Text();
}

void CQNString::FreeExtra() {
  const int length = GetLength();
  if (length == GetAllocLength()) return;
  char* buffer = AllocStringBuffer(length);
  if (length > 0) std::memcpy(buffer, Text(), static_cast<std::size_t>(length));
  ReleaseStringBuffer(std::exchange(Text(), buffer));
}

char* CQNString::LockBuffer() {
  char* text = GetBuffer(0);
  if (text != EmptyBuffer()) HeaderOf(text)->references = -1;
  return text;
}

void CQNString::UnlockBuffer() {
  // A buffer that is not locked may be shared: its count stays.
  if (IsLocked(Text()) && Text() != EmptyBuffer()) HeaderOf(Text())->references = 1;
}

void CQNString::Empty() {
  if (GetLength() == 0) return;
  if (IsLocked(Text())) {
    AssignBytes(Text(), "", 0);
  } else {
    ReleaseStringBuffer(std::exchange(Text(), EmptyBuffer()));
  }
}

char* CQNString::AllocANSIString() const {
  return quarnfc::CopyText(Text(), static_cast<std::size_t>(GetLength()));
}
