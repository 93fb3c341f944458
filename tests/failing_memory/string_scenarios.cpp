// SPDX-License-Identifier: MIT
// Every operation of CQNString on every representation of a text. A string is as it was when an
// operation on it fails, and so is one that shares its buffer.
#include <cstdio>
#include <cstring>
#include <utility>

#include "core/memory/memory.h"
#include "platform/system_string.h"
#include "tests/failing_memory/scenario.h"

namespace failing {
namespace {

struct Texts {
  CQNString text;
  CQNString other;  // shares the buffer, where the representation is a shared one
};

struct Representation {
  const char* name;
  void (*make)(Texts& texts);
};

const std::string kLong(600, 'x');
const std::string kPattern = "ab cd,ab;";

std::string Patterned(std::size_t length) {
  std::string text;
  while (text.size() < length) text += kPattern;
  text.resize(length);
  return text;
}

void Assign(Texts& texts, std::size_t length) { texts.text = Patterned(length).c_str(); }

void Share(Texts& texts, std::size_t length) {
  Assign(texts, length);
  texts.other = texts.text;
}

const Representation kRepresentations[] = {
    {"empty", [](Texts&) {}},
    {"one byte", [](Texts& texts) { texts.text = 'a'; }},
    {"short", [](Texts& texts) { Assign(texts, 20); }},
    {"short, shared", [](Texts& texts) { Share(texts, 20); }},
    {"short, locked",
     [](Texts& texts) {
       Assign(texts, 20);
       texts.text.LockBuffer();
     }},
    {"short, in a large buffer",
     [](Texts& texts) {
       Assign(texts, 20);
       texts.text.GetBuffer(700);
     }},
    {"a full block", [](Texts& texts) { Assign(texts, 64); }},
    {"a full block, shared", [](Texts& texts) { Share(texts, 512); }},
    {"on the heap", [](Texts& texts) { Assign(texts, 600); }},
    {"on the heap, shared", [](Texts& texts) { Share(texts, 600); }},
    {"on the heap, locked",
     [](Texts& texts) {
       Assign(texts, 600);
       texts.text.LockBuffer();
     }},
    {"double-byte", [](Texts& texts) { texts.text = " \xD6\xD0\xB9\xFA a\xA3\xC1 "; }},
    {"with a zero byte", [](Texts& texts) { texts.text = CQNString("ab\0cd", 5); }},
};

struct Operation {
  const char* name;
  void (*run)(CQNString& text);
};

const Operation kOperations[] = {
    {"= text", [](CQNString& text) { text = "another"; }},
    {"= long text", [](CQNString& text) { text = kLong.c_str(); }},
    {"= null", [](CQNString& text) { text = static_cast<const char*>(nullptr); }},
    {"= char", [](CQNString& text) { text = 'c'; }},
    {"= part of itself",
     [](CQNString& text) { text = static_cast<const char*>(text) + text.GetLength() / 2; }},
    {"= copy", [](CQNString& text) { text = CQNString(text); }},
    {"= its copy that is changed",
     [](CQNString& text) {
       CQNString copy(text);
       copy += "x";
       text = copy;
     }},
    {"+= text", [](CQNString& text) { text += "tail"; }},
    {"+= long text", [](CQNString& text) { text += kLong.c_str(); }},
    {"+= up to a full block",
     [](CQNString& text) { text += kLong.c_str() + kLong.size() - 512 + text.GetLength() % 512; }},
    {"+= itself", [](CQNString& text) { text += text; }},
    {"+= char", [](CQNString& text) { text += 'c'; }},
    {"text + string", [](CQNString& text) { text = "head" + text; }},
    {"string + text", [](CQNString& text) { text = text + kLong.c_str(); }},
    {"string + string", [](CQNString& text) { text = text + text; }},
    {"string + char", [](CQNString& text) { text = text + 'c'; }},
    {"char + string", [](CQNString& text) { text = 'c' + text; }},
    {"char, count", [](CQNString& text) { text = CQNString('c', 100); }},
    {"bytes, length", [](CQNString& text) { text = CQNString(kLong.data(), 300); }},
    {"a view", [](CQNString& text) { text = CQNString(std::string_view(kLong)); }},
    {"moved from", [](CQNString& text) { text = CQNString(std::move(text)); }},
    {"GetBuffer",
     [](CQNString& text) {
       text.GetBuffer(100);
       text.ReleaseBuffer(text.GetLength());
     }},
    {"GetBuffer, long",
     [](CQNString& text) {
       text.GetBuffer(2000);
       text.ReleaseBuffer(text.GetLength());
     }},
    {"GetBufferSetLength",
     [](CQNString& text) { std::memset(text.GetBufferSetLength(90), 's', 90); }},
    {"FreeExtra", [](CQNString& text) { text.FreeExtra(); }},
    {"LockBuffer", [](CQNString& text) { text.LockBuffer(); }},
    {"lock and unlock",
     [](CQNString& text) {
       text.LockBuffer();
       text.UnlockBuffer();
     }},
    {"Empty", [](CQNString& text) { text.Empty(); }},
    {"Mid", [](CQNString& text) { text = text.Mid(1, 3); }},
    {"Mid to the end", [](CQNString& text) { text = text.Mid(1); }},
    {"Left", [](CQNString& text) { text = text.Left(2); }},
    {"Right", [](CQNString& text) { text = text.Right(2); }},
    {"SpanIncluding", [](CQNString& text) { text = text.SpanIncluding("ab "); }},
    {"SpanExcluding", [](CQNString& text) { text = text.SpanExcluding(";"); }},
    {"Insert char", [](CQNString& text) { text.Insert(1, 'i'); }},
    {"Insert text", [](CQNString& text) { text.Insert(1, "inserted"); }},
    {"Insert long text", [](CQNString& text) { text.Insert(2, kLong.c_str()); }},
    {"Insert itself", [](CQNString& text) { text.Insert(1, text); }},
    {"Delete", [](CQNString& text) { text.Delete(0, 2); }},
    {"Replace char", [](CQNString& text) { text.Replace('a', 'z'); }},
    {"Replace by the same length", [](CQNString& text) { text.Replace("ab", "yz"); }},
    {"Replace by more", [](CQNString& text) { text.Replace("ab", "a long replacement"); }},
    {"Replace by less", [](CQNString& text) { text.Replace("ab", ""); }},
    {"Replace by itself", [](CQNString& text) { text.Replace("b", text); }},
    {"Remove", [](CQNString& text) { text.Remove('a'); }},
    {"SetAt", [](CQNString& text) { text.SetAt(0, 'q'); }},
    {"TrimLeft", [](CQNString& text) { text.TrimLeft(); }},
    {"TrimLeft char", [](CQNString& text) { text.TrimLeft('a'); }},
    {"TrimLeft set", [](CQNString& text) { text.TrimLeft(" ab"); }},
    {"TrimRight", [](CQNString& text) { text.TrimRight(); }},
    {"TrimRight char", [](CQNString& text) { text.TrimRight(';'); }},
    {"TrimRight set", [](CQNString& text) { text.TrimRight("; ,abx"); }},
    {"Trim", [](CQNString& text) { text.Trim(); }},
    {"MakeUpper", [](CQNString& text) { text.MakeUpper(); }},
    {"MakeLower", [](CQNString& text) { text.MakeLower(); }},
    {"MakeReverse", [](CQNString& text) { text.MakeReverse(); }},
    {"CharToOemA", [](CQNString& text) { text.CharToOemA(); }},
    {"OemToCharA", [](CQNString& text) { text.OemToCharA(); }},
    {"Format", [](CQNString& text) { text.Format("%d %s %5.2f", 7, "text", 2.5); }},
    {"Format of itself",
     [](CQNString& text) { text.Format("<%s>", static_cast<const char*>(text)); }},
    {"Format, wide text", [](CQNString& text) { text.Format("%ls", L"\x4E2D wide"); }},
    {"Format, a large width", [](CQNString& text) { text.Format("%1000d|%-700.300f", 5, 1.5); }},
    {"Collate", [](CQNString& text) { static_cast<void>(text.Collate("ab")); }},
    {"CollateNoCase", [](CQNString& text) { static_cast<void>(text.CollateNoCase("AB")); }},
    {"CompareNoCase", [](CQNString& text) { static_cast<void>(text.CompareNoCase("AB")); }},
    {"AllocANSIString", [](CQNString& text) { qnFreeMem(text.AllocANSIString()); }},
    {"AllocSysString",
     [](CQNString& text) { quarnfc::platform::FreeSystemString(text.AllocSysString()); }},
};

std::unique_ptr<Texts> MakeTexts(const Representation& representation) {
  auto texts = std::make_unique<Texts>();
  representation.make(*texts);
  return texts;
}

std::string Describe(const Texts& texts) { return Bytes(texts.text) + "|" + Bytes(texts.other); }

// The old system string stays when the new one cannot be had, and is the caller's as before.
Scenario SetSysStringScenario(const Representation& representation) {
  return {std::string("SetSysString of ") + representation.name, [&](Attempt& attempt) {
            const auto texts = MakeTexts(representation);
            BSTR string = CQNString("old").AllocSysString();
            const bool completed = attempt.Run([&] { texts->text.SetSysString(&string); });
            if (!completed && !ConverterWasRefused())
              attempt.Check(quarnfc::WideLength(string) == 3, "the old string is gone");
            quarnfc::platform::FreeSystemString(string);
          }};
}

// Where the converter of the system fails the text may be empty: that is no failure of the string.
Scenario WideScenario(const Representation& representation, bool with_length) {
  const std::string name = with_length ? "wide text and length to " : "wide text to ";
  return {name + representation.name, [&, with_length](Attempt& attempt) {
            const auto texts = MakeTexts(representation);
            const std::string before = Describe(*texts);
            const bool completed = attempt.Run([&] {
              with_length ? texts->text = CQNString(L"\x4E2D\x56FD", 2)
                          : texts->text = L"\x4E2D\x56FD";
            });
            if (!completed) attempt.Check(Describe(*texts) == before, "changed by a failure");
            if (completed) {
              const bool is_empty = texts->text.IsEmpty() != 0 && ConverterWasRefused();
              attempt.Check(is_empty || Bytes(texts->text) == "\xD6\xD0\xB9\xFA", "another text");
            }
          }};
}

}  // namespace

Scenarios StringScenarios() {
  Scenarios scenarios;
  for (const Representation& representation : kRepresentations) {
    for (const Operation& operation : kOperations) {
      scenarios.push_back(Edit(
          std::string(operation.name) + " of " + representation.name,
          [&] { return MakeTexts(representation); },
          [&](Texts& texts) {
            operation.run(texts.text);
            return std::string();
          },
          Describe));
    }
    scenarios.push_back(SetSysStringScenario(representation));
    scenarios.push_back(WideScenario(representation, false));
    scenarios.push_back(WideScenario(representation, true));
  }
  return scenarios;
}

}  // namespace failing
