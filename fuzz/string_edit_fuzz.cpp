// SPDX-License-Identifier: MIT
// Series of edits on a string and a copy that shares its buffer: text, then for each edit a code,
// a position and two texts.
#include <quarnfc/qn_string.h>

#include <string>

#include "fuzz/input.h"

namespace {

constexpr int kMaxLength = 100000;

void Edit(CQNString& text, fuzz::Input& input) {
  const int code = input.Byte();
  const int place = input.Byte();
  const int position = place < 128 ? place : place - 256;
  const std::string first = input.Text();
  const std::string second = input.Text();
  const char ch = first.empty() ? ' ' : first[0];
  switch (code % 24) {
    case 0:
      text.Insert(position, first.c_str());
      break;
    case 1:
      text.Insert(position, ch);
      break;
    case 2:
      text.Delete(position, static_cast<int>(first.size()));
      break;
    case 3:
      text.Replace(ch, second.empty() ? 'x' : second[0]);
      break;
    case 4:
      text.Replace(first.c_str(), second.c_str());
      break;
    case 5:
      text.Remove(ch);
      break;
    case 6:
      text.SetAt(position, ch);
      break;
    case 7:
      text.TrimLeft(first.c_str());
      break;
    case 8:
      text.TrimRight(first.c_str());
      break;
    case 9:
      text.TrimLeft(ch);
      break;
    case 10:
      text.TrimRight(ch);
      break;
    case 11:
      text.Trim();
      break;
    case 12:
      text.MakeUpper();
      break;
    case 13:
      text.MakeLower();
      break;
    case 14:
      text.MakeReverse();
      break;
    case 15:
      text += first.c_str();
      break;
    case 16:
      text = text.Mid(position, static_cast<int>(first.size()));
      break;
    case 17:
      text = text.SpanIncluding(first.c_str()) + text.SpanExcluding(second.c_str());
      break;
    case 18:
      text.LockBuffer();
      break;
    case 19:
      text.UnlockBuffer();
      break;
    case 20:
      text.FreeExtra();
      break;
    case 21:
      text.GetBuffer(position);
      text.ReleaseBuffer(position);
      break;
    case 22:
      text = text + CQNString(first.c_str(), static_cast<int>(first.size())) + '\0';
      break;
    default:
      fuzz::Expect(text.Find(first.c_str(), position) <= text.GetLength());
      fuzz::Expect(text.Find(ch, position) < text.GetLength() || text.IsEmpty());
      fuzz::Expect(text.ReverseFind(ch) < text.GetLength() || text.IsEmpty());
      fuzz::Expect(text.FindOneOf(first.c_str()) < text.GetLength() || text.IsEmpty());
      text.CharToOemA();
      text.OemToCharA();
      static_cast<void>(text.CompareNoCase(first.c_str()) + text.CollateNoCase(second.c_str()));
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  CQNString text(input.Text().c_str());
  while (!input.IsEmpty() && text.GetLength() < kMaxLength) {
    const CQNString copy(text);
    const std::string before(copy, static_cast<std::size_t>(copy.GetLength()));
    Edit(text, input);
    fuzz::Expect(
        before.compare(0, before.size(), copy, static_cast<std::size_t>(copy.GetLength())) == 0);
    fuzz::Expect(text.GetLength() >= 0 && text.GetLength() <= text.GetAllocLength());
    fuzz::Expect(text[text.GetLength()] == '\0');
  }
  return 0;
}
