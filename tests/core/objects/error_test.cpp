// SPDX-License-Identifier: MIT
// Error handles and the plain functions that read and release them.
#include <quarnfc/error.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/core/text/text.h"

namespace {

using QNErrorUtils::CreateError;
using QNErrorUtils::CreateErrorFromObj;

using Handle = unsigned __int64;

constexpr unsigned kUntouched = 12345;

struct ErrorRead {
  std::string message;
  std::u16string wide;
  unsigned code;
};

ErrorRead Read(Handle handle) {
  ErrorRead read;
  read.message = text_test::TakeText(qnGetErrorA(handle, &read.code));
  unsigned code = kUntouched;
  wchar_t* wide = qnGetErrorW(handle, &code);
  EXPECT_EQ(code, read.code);
  read.wide = text_test::Utf16(wide);
  qnFreeMem(wide);
  return read;
}

TEST(ErrorHandle, CarriesCodeAndMessage) {
  const Handle handle = CreateError(CQNObject::eErrInvalidData, "bad \xCE\xDE");
  ASSERT_NE(handle, 0u);
  const ErrorRead read = Read(handle);
  EXPECT_EQ(read.message, "bad \xCE\xDE");
  EXPECT_EQ(read.wide, u"bad \u65E0");
  EXPECT_EQ(read.code, 5u);
  qnCloseHandle(handle);
}

TEST(ErrorHandle, ANullMessageIsTheEmptyOne) {
  const Handle handle = CreateError(CQNObject::eErrFileIO, nullptr);
  const ErrorRead read = Read(handle);
  EXPECT_EQ(read.message, "");
  EXPECT_EQ(read.wide, u"");
  EXPECT_EQ(read.code, 14u);
  qnCloseHandle(handle);
}

TEST(ErrorHandle, AnObjectThatWasNeverGivenAMessageHasTheEmptyOne) {
  auto* object = new CQNObject;
  const ErrorRead read = Read(reinterpret_cast<Handle>(object));
  EXPECT_EQ(read.message, "");
  EXPECT_EQ(read.wide, u"");
  EXPECT_EQ(read.code, static_cast<unsigned>(object->GetErrorCode()));
  qnCloseHandle(object);
}

TEST(ErrorHandle, ReadingGivesANewCopyEachTime) {
  const Handle handle = CreateError(CQNObject::eErrNotFound, "gone");
  char* first = qnGetErrorA(handle, nullptr);
  char* second = qnGetErrorA(handle, nullptr);
  EXPECT_NE(first, second);
  qnCloseHandle(handle);
  EXPECT_STREQ(first, "gone");
  EXPECT_STREQ(second, "gone");
  qnFreeMem(first);
  qnFreeMem(second);
}

TEST(ErrorHandle, IsTheAddressOfAnObjectWithOneReference) {
  const Handle handle = CreateError(CQNObject::eErrNotFound, "gone");
  auto* object = reinterpret_cast<CQNObject*>(handle);
  EXPECT_EQ(object->GetErrorCode(), CQNObject::eErrNotFound);
  EXPECT_STREQ(object->GetErrorMsg(), "gone");
  object->AddRef();
  qnCloseHandle(handle);
  EXPECT_STREQ(object->GetErrorMsg(), "gone");
  object->Release();
}

TEST(ErrorHandle, HandlesArePassedAsObjectsToo) {
  auto* object = reinterpret_cast<CQNObject*>(CreateError(CQNObject::eErrNotFound, "gone"));
  unsigned code = kUntouched;
  EXPECT_EQ(text_test::TakeText(qnGetErrorA(object, &code)), "gone");
  EXPECT_EQ(code, 2u);
  qnCloseHandle(object);
}

TEST(ErrorHandle, ANullHandleGivesNothingAndLeavesTheCode) {
  unsigned code = kUntouched;
  EXPECT_EQ(qnGetErrorA(0, &code), nullptr);
  EXPECT_EQ(qnGetErrorW(0, &code), nullptr);
  EXPECT_EQ(qnGetErrorA(static_cast<CQNObject*>(nullptr), &code), nullptr);
  EXPECT_EQ(qnGetErrorA(0, nullptr), nullptr);
  EXPECT_EQ(code, kUntouched);
}

TEST(ErrorHandle, ClosingAndFreeingNothingIsHarmless) {
  qnCloseHandle(0);
  qnCloseHandle(Handle{0});
  qnCloseHandle(static_cast<CQNObject*>(nullptr));
  qnFreeMem(nullptr);
}

TEST(ErrorHandle, FromAnObjectPutsOneBlankBehindTheText) {
  CQNObject source;
  source.SetError(CQNObject::eErrInvalidData, "bad length");
  struct {
    const char* text;
    const char* message;
  } const cases[] = {
      {"Reading", "Reading bad length"},
      {"", " bad length"},
      {ZHONG, ZHONG " bad length"},
      {nullptr, "bad length"},
  };
  for (const auto& c : cases) {
    const Handle handle = CreateErrorFromObj(&source, c.text);
    const ErrorRead read = Read(handle);
    EXPECT_EQ(read.message, c.message);
    EXPECT_EQ(read.code, 5u);
    qnCloseHandle(handle);
  }
  EXPECT_STREQ(source.GetErrorMsg(), "bad length");
  EXPECT_EQ(source.GetErrorCode(), CQNObject::eErrInvalidData);
}

TEST(ErrorHandle, FromAnObjectWithoutAMessageIsHarmless) {
  CQNObject source;
  source.SetErrorCode(CQNObject::eErrNotFound);
  const Handle plain = CreateErrorFromObj(&source, nullptr);
  EXPECT_EQ(Read(plain).message, "");
  qnCloseHandle(plain);
  const Handle with_text = CreateErrorFromObj(&source, "Reading");
  EXPECT_EQ(Read(with_text).message, "Reading ");
  qnCloseHandle(with_text);
}

TEST(ErrorHandle, FromNoObjectIsNoError) {
  EXPECT_EQ(CreateErrorFromObj(nullptr, nullptr), 0u);
  EXPECT_EQ(CreateErrorFromObj(nullptr, "Reading"), 0u);
}

TEST(ErrorHandle, AnObjectWithoutAMessageReadsAsTheEmptyText) {
  auto* object = new CQNObject;
  object->SetErrorCode(CQNObject::eErrNotFound);
  unsigned code = kUntouched;
  EXPECT_EQ(text_test::TakeText(qnGetErrorA(object, &code)), "");
  EXPECT_EQ(code, 2u);
  object->Release();
}

}  // namespace
