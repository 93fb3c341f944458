// SPDX-License-Identifier: MIT
#include <quarnfc/plain.h>
#include <quarnfc/qn_string.h>
#include <quarnfc/string_collection.h>

#include <cstdint>
#include <new>
#include <string>

#include <gtest/gtest.h>

namespace {

// A text in a buffer of the library, as a host gets one to hand over.
char* LibraryText(const char* text) { return CQNString(text).AllocANSIString(); }

std::string Joined(const CQNStringCollection& strings) {
  std::string joined;
  for (int i = 0; i < strings.Count(); ++i) {
    const char* text = strings.GetStr(i);
    joined += text != nullptr ? text : "(null)";
    joined += '|';
  }
  return joined;
}

TEST(StringCollection, AddTakesThePointerItself) {
  CQNStringCollection strings;
  char* text = LibraryText("one");
  EXPECT_EQ(strings.Add(text), 0);
  EXPECT_EQ(strings.GetStr(0), text);
  EXPECT_EQ(strings.Add(nullptr), 1);
  EXPECT_EQ(strings.GetStr(1), nullptr);
}

TEST(StringCollection, CloneAddCopies) {
  CQNStringCollection strings;
  char text[] = "one";
  EXPECT_EQ(strings.CloneAdd(text), 0);
  EXPECT_NE(strings.GetStr(0), text);
  text[0] = 'x';
  EXPECT_STREQ(strings.GetStr(0), "one");
  EXPECT_EQ(strings.CloneAdd(""), 1);
  EXPECT_STREQ(strings.GetStr(1), "");
}

TEST(StringCollection, CloneAddOfNullAddsANullItem) {
  CQNStringCollection strings;
  EXPECT_EQ(strings.CloneAdd(nullptr), 0);
  EXPECT_EQ(strings.Item(0), 0u);
  EXPECT_EQ(strings.GetStr(0), nullptr);
}

TEST(StringCollection, GetStrOutsideTheItemsIsNull) {
  CQNStringCollection strings;
  strings.CloneAdd("a");
  for (const int index : {-1, 1, 1000000}) EXPECT_EQ(strings.GetStr(index), nullptr) << index;
}

TEST(StringCollection, FindComparesCharactersOfTheCodePage) {
  const struct {
    const char* text;
    bool case_sensitive;
    int start;
    int expected;
  } cases[] = {
      {"beta", true, 0, 1},
      {"BETA", true, 0, 3},
      {"BETA", false, 0, 1},
      {"BETA", false, 2, 3},
      {"beta", true, 2, -1},
      {"bet", false, 0, -1},
      {"alpha", true, -5, 0},
      {"alpha", true, 6, -1},
      {"alpha", true, 1000, -1},
      {"", true, 0, 4},
      // A double-byte character whose second byte is a letter has no case: the item is 81 61.
      {"\x81\x61", true, 0, 5},
      {"\x81\x61", false, 0, 5},
      {"\x81\x41", false, 0, -1},
  };
  CQNStringCollection strings;
  for (const char* text : {"alpha", "beta", "gamma", "BETA", "", "\x81\x61"}) {
    strings.CloneAdd(text);
  }
  for (const auto& c : cases) {
    EXPECT_EQ(strings.Find(c.text, c.case_sensitive, c.start), c.expected)
        << c.text << " from " << c.start;
  }
}

TEST(StringCollection, FindPassesNullItemsAndFindsNoNullText) {
  CQNStringCollection strings;
  strings.CloneAdd(nullptr);
  strings.CloneAdd("a");
  EXPECT_EQ(strings.Find("a", true, 0), 1);
  EXPECT_EQ(strings.Find("A", false, 0), 1);
  EXPECT_EQ(strings.Find(nullptr, true, 0), -1);
}

TEST(StringCollection, FindByItemStaysAvailable) {
  CQNStringCollection strings;
  strings.CloneAdd("a");
  strings.CloneAdd("a");
  EXPECT_EQ(strings.Find(reinterpret_cast<std::uintptr_t>(strings.GetStr(1)), 0), 1);
}

TEST(StringCollection, RemoveAtDeletesTheStringAndMovesTheOthersDown) {
  CQNStringCollection strings;
  for (const char* text : {"a", "b", "c"}) strings.CloneAdd(text);
  const char* third = strings.GetStr(2);
  strings.RemoveAt(1);
  EXPECT_EQ(Joined(strings), "a|c|");
  EXPECT_EQ(strings.GetStr(1), third);
}

TEST(StringCollection, RemovesAndShortensWithNullItems) {
  CQNStringCollection strings;
  for (const char* text : {"a", static_cast<const char*>(nullptr), "c"}) strings.CloneAdd(text);
  strings.SetLogicalLength(2);
  EXPECT_EQ(Joined(strings), "a|(null)|");
  strings.SetLogicalLength(3);
  EXPECT_EQ(Joined(strings), "a|(null)|(null)|");
  strings.RemoveAll();
  EXPECT_EQ(strings.Count(), 0);
}

TEST(StringCollection, BaseHookDoesNotCopy) {
  CQNStringCollection strings;
  strings.CloneAdd("a");
  const CQNCollection& base = strings;
  EXPECT_EQ(base.OnCloneItem(strings.Item(0)), strings.Item(0));
  const unsigned __int64 copy = strings.OnCloneItem(strings.Item(0));
  EXPECT_NE(copy, strings.Item(0));
  EXPECT_STREQ(reinterpret_cast<char*>(static_cast<std::uintptr_t>(copy)), "a");
  strings.OnRemoveItem(copy);
}

TEST(StringCollection, AppendListsTheSamePointerTwice) {
  CQNStringCollection strings;
  strings.CloneAdd("a");
  CQNStringCollection other;
  other.CloneAdd("b");
  strings.Append(other);
  ASSERT_EQ(strings.Count(), 2);
  EXPECT_EQ(strings.GetStr(1), strings.GetStr(0));
  strings.Item(1) = 0;  // else the string would be deleted twice
}

TEST(StringCollection, SetPhysicalLengthLeavesDeletedStringsListed) {
  CQNStringCollection strings;
  strings.CloneAdd("a");
  strings.CloneAdd("b");
  strings.SetPhysicalLength(1);
  EXPECT_EQ(strings.Count(), 2);
  EXPECT_NE(strings.Item(1), 0u);
  strings.Item(1) = 0;  // else the string would be deleted twice
}

TEST(StringCollection, CopyFromGivesNullItems) {
  CQNStringCollection strings;
  strings.CloneAdd("a");
  CQNStringCollection other;
  other.CloneAdd("b");
  other.CloneAdd("c");
  strings.CopyFrom(other);
  EXPECT_EQ(Joined(strings), "(null)|(null)|");
}

TEST(StringCollection, ClassRecordNamesTheBase) {
  CQNStringCollection strings;
  const CQNObjClass* record = strings.GetThisClass();
  EXPECT_EQ(record, &CQNStringCollection::m_class);
  EXPECT_STREQ(record->m_name, "CQNStringCollection");
  EXPECT_EQ(record->m_base, &CQNCollection::m_class);
}

// A host's collection that keeps its strings in upper case.
class UpperCaseStrings : public CQNStringCollection {
 public:
  using CQNStringCollection::OnCloneItem;
  unsigned __int64 OnCloneItem(unsigned __int64 item) override {
    CQNString text(reinterpret_cast<const char*>(static_cast<std::uintptr_t>(item)));
    text.MakeUpper();
    return reinterpret_cast<std::uintptr_t>(text.AllocANSIString());
  }
};

TEST(StringCollection, HostClassReplacesTheCopyThatCloneAddMakes) {
  CQNObject* object = new UpperCaseStrings;
  CQNStringCollection* strings = static_cast<CQNStringCollection*>(object);
  strings->CloneAdd("abc");
  EXPECT_STREQ(strings->GetStr(0), "ABC");
  object->Release();
}

TEST(StringCollection, CopyingAndAssigningShareTheTexts) {
  CQNStringCollection original;
  CQNStringCollection other;
  original.CloneAdd("a");
  // Never destroyed: only one of the objects that share a record may be.
  alignas(CQNStringCollection) unsigned char place[2][sizeof(CQNStringCollection)];
  CQNStringCollection* copy = new (place[0]) CQNStringCollection(original);
  CQNStringCollection* assigned = new (place[1]) CQNStringCollection(other);
  *assigned = original;
  EXPECT_EQ(copy->GetStr(0), original.GetStr(0));
  assigned->CloneAdd("b");
  EXPECT_EQ(Joined(original), "a|b|");
  EXPECT_EQ(other.Count(), 0);
}

}  // namespace
