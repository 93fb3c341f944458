// SPDX-License-Identifier: MIT
// Conversion of strings to system strings, which the platform's own functions measure and free.
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>
#if defined(_WIN32)
#include <windows.h>

#include <oleauto.h>
#endif

#include <string>

#include "platform/system_string.h"
#include "tests/core/text/text.h"

namespace {

std::u16string Units(BSTR text) {
  return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

class SystemString {
 public:
  explicit SystemString(BSTR text) : text_(text) {}
  ~SystemString() { SysFreeString(text_); }
  SystemString(const SystemString&) = delete;
  SystemString& operator=(const SystemString&) = delete;

  std::u16string Units() const { return ::Units(text_); }

 private:
  BSTR text_;
};

TEST(StringSystem, AllocSysStringConvertsTheWholeText) {
  EXPECT_EQ(SystemString(CQNString("a" ZHONG WEN "z").AllocSysString()).Units(), u"a\u4E2D\u6587z");
  EXPECT_EQ(SystemString(CQNString(ZHONG).AllocSysString()).Units(), u"\u4E2D");
  EXPECT_EQ(SystemString(CQNString("a\0b", 3).AllocSysString()).Units(),
            std::u16string(u"a\0b", 3));
  EXPECT_EQ(SystemString(CQNString('x', 700).AllocSysString()).Units(), std::u16string(700, u'x'));
}

TEST(StringSystem, AllocSysStringOfAnEmptyStringHasLengthZero) {
  BSTR text = CQNString().AllocSysString();
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(SysStringLen(text), 0u);
  EXPECT_EQ(text[0], L'\0');
  SysFreeString(text);
}

TEST(StringSystem, SystemStringsAreTerminated) {
  BSTR text = CQNString("abc").AllocSysString();
  EXPECT_EQ(text[3], L'\0');
  SysFreeString(text);
}

TEST(StringSystem, SetSysStringReplacesTheTarget) {
  BSTR target = quarnfc::platform::AllocSystemString(nullptr, 0);
  BSTR result = CQNString("x" ZHONG).SetSysString(&target);
  EXPECT_EQ(result, target);
  EXPECT_EQ(Units(target), u"x\u4E2D");
  CQNString("another and longer text").SetSysString(&target);
  EXPECT_EQ(Units(target), u"another and longer text");
  CQNString().SetSysString(&target);
  EXPECT_EQ(Units(target), u"");
  SysFreeString(target);
}

TEST(StringSystem, SetSysStringFillsAnEmptyTarget) {
  BSTR target = nullptr;
  CQNString("abc").SetSysString(&target);
  EXPECT_EQ(Units(target), u"abc");
  SysFreeString(target);
}

TEST(StringSystem, SetSysStringWithoutATargetThrowsItsText) {
  try {
    CQNString("abc").SetSysString(nullptr);
    FAIL() << "nothing was thrown";
  } catch (char* text) {
    EXPECT_STREQ(text, "ReAlloc failed!");
  }
}

}  // namespace
