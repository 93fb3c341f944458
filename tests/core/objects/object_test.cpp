// SPDX-License-Identifier: MIT
// Objects, their messages and reference counts, and the records of their classes.
#include <quarnfc/object.h>
#include <quarnfc/plain.h>

#include <gtest/gtest.h>

#include <new>
#include <string>

#include "tests/core/text/text.h"

namespace {

using text_test::Utf16;

// Tells when it is destroyed.
class Witness : public CQNObject {
 public:
  explicit Witness(bool& destroyed) : destroyed_(destroyed) {}
  ~Witness() override { destroyed_ = true; }

 private:
  bool& destroyed_;
};

TEST(Object, HasNoMessageAtFirst) {
  const CQNObject object;
  EXPECT_EQ(object.GetErrorMsg(), nullptr);
  EXPECT_EQ(object.GetErrorMsgA(), nullptr);
  EXPECT_EQ(object.GetErrorMsgW(), nullptr);
}

TEST(Object, KeepsItsMessageInBothForms) {
  struct {
    const char* bytes;
    const char16_t* wide;
  } const cases[] = {
      {"bad length", u"bad length"},
      {"", u""},
      {"\xCE\xDE\xD0\xA7", u"\u65E0\u6548"},
      {TRAIL_BACKSLASH, u"\u661E"},
  };
  const CQNObject object;
  for (const auto& c : cases) {
    object.SetErrorMsg(c.bytes);
    EXPECT_STREQ(object.GetErrorMsg(), c.bytes);
    EXPECT_EQ(object.GetErrorMsgA(), object.GetErrorMsg());
    EXPECT_EQ(Utf16(object.GetErrorMsgW()), c.wide);
  }
}

TEST(Object, KeepsLongMessages) {
  const CQNObject object;
  for (std::size_t length : {511u, 512u, 1023u, 1024u, 100000u}) {
    object.SetErrorMsg(std::string(length, 'x').c_str());
    EXPECT_EQ(object.GetErrorMsg(), std::string(length, 'x'));
    EXPECT_EQ(Utf16(object.GetErrorMsgW()), std::u16string(length, u'x'));
  }
}

TEST(Object, CopiesTheMessageItIsGiven) {
  char text[] = "abc";
  const CQNObject object;
  object.SetErrorMsg(text);
  text[0] = 'x';
  EXPECT_STREQ(object.GetErrorMsg(), "abc");
}

TEST(Object, ANullMessageLeavesEmptyTexts) {
  const CQNObject object;
  object.SetErrorMsg("abc");
  object.SetErrorMsg(nullptr);
  ASSERT_NE(object.GetErrorMsg(), nullptr);
  ASSERT_NE(object.GetErrorMsgW(), nullptr);
  EXPECT_STREQ(object.GetErrorMsg(), "");
  EXPECT_EQ(Utf16(object.GetErrorMsgW()), u"");
}

TEST(Object, TakesItsOwnMessageAgain) {
  const CQNObject object;
  object.SetErrorMsg("some text");
  object.SetErrorMsg(object.GetErrorMsg() + 5);
  EXPECT_STREQ(object.GetErrorMsg(), "text");
  EXPECT_EQ(Utf16(object.GetErrorMsgW()), u"text");
}

TEST(Object, CarriesAnyCode) {
  const CQNObject object;
  for (int code : {0, 2, 5, 14, 77, -1, 0x7FFFFFFF}) {
    object.SetErrorCode(static_cast<CQNObject::EErrorStatus>(code));
    EXPECT_EQ(static_cast<int>(object.GetErrorCode()), code);
  }
}

TEST(Object, SetErrorStoresCodeAndMessage) {
  const CQNObject object;
  object.SetError(CQNObject::eErrFileIO, "disk");
  EXPECT_EQ(object.GetErrorCode(), CQNObject::eErrFileIO);
  EXPECT_STREQ(object.GetErrorMsg(), "disk");
  object.SetError(CQNObject::eErrNone, nullptr);
  EXPECT_EQ(object.GetErrorCode(), CQNObject::eErrNone);
  EXPECT_STREQ(object.GetErrorMsg(), "");
}

TEST(Object, ErrorCodesHaveTheirValues) {
  EXPECT_EQ(static_cast<int>(CQNObject::eErrNone), 0);
  EXPECT_EQ(static_cast<int>(CQNObject::eErrNotFound), 2);
  EXPECT_EQ(static_cast<int>(CQNObject::eErrInvalidData), 5);
  EXPECT_EQ(static_cast<int>(CQNObject::eErrFileIO), 14);
  EXPECT_EQ(sizeof(CQNObject::EErrorStatus), 4u);
}

// --- reference counts ---------------------------------------------------------------------------

TEST(Object, TheLastReleaseDestroysIt) {
  bool destroyed = false;
  auto* object = new Witness(destroyed);
  object->AddRef();
  object->AddRef();
  object->Release();
  object->Release();
  EXPECT_FALSE(destroyed);
  object->Release();
  EXPECT_TRUE(destroyed);
}

TEST(Object, AFreshObjectHasOneReference) {
  bool destroyed = false;
  (new Witness(destroyed))->Release();
  EXPECT_TRUE(destroyed);
}

TEST(Object, DestructionDoesNotAskForTheReferenceCount) {
  bool destroyed = false;
  auto* object = new Witness(destroyed);
  object->AddRef();
  object->SetErrorMsg("message");
  delete static_cast<CQNObject*>(object);
  EXPECT_TRUE(destroyed);
}

// --- copies -------------------------------------------------------------------------------------

// Deliberately shallow: both share one record, and only one of the two is destroyed.
TEST(Object, CopiesShareTheRecord) {
  auto* object = new CQNObject;
  object->SetError(CQNObject::eErrNotFound, "first");
  alignas(CQNObject) unsigned char storage[sizeof(CQNObject)];
  auto* copy = new (storage) CQNObject(*object);
  EXPECT_EQ(copy->GetErrorMsg(), object->GetErrorMsg());
  copy->SetError(CQNObject::eErrFileIO, "second");
  EXPECT_STREQ(object->GetErrorMsg(), "second");
  EXPECT_EQ(object->GetErrorCode(), CQNObject::eErrFileIO);
  object->Release();  // the count is one reference whatever the number of copies
}

TEST(Object, AssignmentSharesTheRecord) {
  auto* object = new CQNObject;
  object->SetErrorMsg("first");
  // The target's own record goes with a second copy of it.
  auto* own_record = new CQNObject;
  alignas(CQNObject) unsigned char storage[sizeof(CQNObject)];
  auto* target = new (storage) CQNObject(*own_record);
  *target = *object;
  EXPECT_EQ(target->GetErrorMsg(), object->GetErrorMsg());
  own_record->Release();
  EXPECT_STREQ(target->GetErrorMsg(), "first");
  object->Release();
}

// --- class records ------------------------------------------------------------------------------

TEST(ObjectClass, TheRootHasItsNameAndNoBase) {
  CQNObject object;
  EXPECT_EQ(object.GetThisClass(), &CQNObject::m_class);
  EXPECT_STREQ(CQNObject::m_class.m_name, "CQNObject");
  EXPECT_EQ(CQNObject::m_class.m_base, nullptr);
}

TEST(ObjectClass, KeepsACopyOfTheNameAndTheBase) {
  char name[] = "CHostObject";
  CQNObjClass record(name, &CQNObject::m_class);
  name[0] = 'x';
  EXPECT_STREQ(record.m_name, "CHostObject");
  EXPECT_EQ(record.m_base, &CQNObject::m_class);
}

TEST(ObjectClass, ANullNameIsTheEmptyOne) {
  CQNObjClass record(nullptr, nullptr);
  EXPECT_STREQ(record.m_name, "");
}

TEST(ObjectClass, HostsDeriveWithTheirOwnRecords) {
  static CQNObjClass host_class("CHostObject", &CQNObject::m_class);
  class HostObject : public CQNObject {
   public:
    CQNObjClass* GetThisClass() override { return &host_class; }
  };
  HostObject host;
  CQNObject& object = host;
  EXPECT_STREQ(object.GetThisClass()->m_name, "CHostObject");
  EXPECT_STREQ(object.GetThisClass()->m_base->m_name, "CQNObject");
}

// Deliberately shallow: both share one name, and only one of the two is destroyed.
TEST(ObjectClass, AssignmentSharesTheName) {
  CQNObjClass source("source", &CQNObject::m_class);
  alignas(CQNObjClass) unsigned char storage[sizeof(CQNObjClass)];
  auto* target = new (storage) CQNObjClass("target", nullptr);
  char* own_name = target->m_name;
  *target = source;
  EXPECT_EQ(target->m_name, source.m_name);
  EXPECT_EQ(target->m_base, source.m_base);
  qnFreeMem(own_name);
}

}  // namespace
