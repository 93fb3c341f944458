// SPDX-License-Identifier: MIT
#include <quarnfc/object_collection.h>

#include <cstdint>
#include <new>
#include <string>

#include <gtest/gtest.h>

namespace {

// A host's object that writes its name into a log when it is destroyed.
class Noted : public CQNObject {
 public:
  Noted(std::string* log, char name) : log_(log), name_(name) {}
  ~Noted() override { *log_ += name_; }

 private:
  std::string* log_;
  char name_;
};

TEST(ObjectCollection, AddTakesOverTheCallersReference) {
  std::string log;
  {
    CQNObjectCollection objects;
    CQNObject* object = new Noted(&log, 'a');
    EXPECT_EQ(objects.Add(object), 0);
    EXPECT_EQ(objects.GetObj(0), object);
    EXPECT_EQ(objects.Add(nullptr), 1);
    EXPECT_EQ(objects.GetObj(1), nullptr);
    EXPECT_EQ(log, "");
  }
  EXPECT_EQ(log, "a");
}

TEST(ObjectCollection, ObjectsWithAnotherReferenceLiveOn) {
  std::string log;
  CQNObject* object = new Noted(&log, 'a');
  object->AddRef();
  {
    CQNObjectCollection objects;
    objects.Add(object);
  }
  EXPECT_EQ(log, "");
  object->Release();
  EXPECT_EQ(log, "a");
}

TEST(ObjectCollection, SetLogicalLengthReleasesTheObjectsBeyond) {
  std::string log;
  CQNObjectCollection objects;
  for (const char name : {'a', 'b', 'c'}) objects.Add(new Noted(&log, name));
  objects.SetLogicalLength(1);
  EXPECT_EQ(log, "bc");
  EXPECT_EQ(objects.Count(), 1);
}

TEST(ObjectCollection, RemovingReleases) {
  std::string log;
  CQNObjectCollection objects;
  for (const char name : {'a', 'b', 'c'}) objects.Add(new Noted(&log, name));
  objects.RemoveAt(1);
  EXPECT_EQ(log, "b");
  objects.RemoveAll();
  EXPECT_EQ(log, "bac");
}

TEST(ObjectCollection, OwnHookAddsAReferenceBaseHookDoesNot) {
  std::string log;
  CQNObjectCollection objects;
  CQNObject* object = new Noted(&log, 'a');
  objects.Add(object);
  const CQNCollection& base = objects;
  EXPECT_EQ(base.OnCloneItem(objects.Item(0)), objects.Item(0));
  EXPECT_EQ(objects.OnCloneItem(objects.Item(0)), objects.Item(0));
  objects.RemoveAll();
  EXPECT_EQ(log, "");  // the reference of the own hook is left, that of the base was none
  object->Release();
  EXPECT_EQ(log, "a");
}

TEST(ObjectCollection, HooksIgnoreNull) {
  CQNObjectCollection objects;
  EXPECT_EQ(objects.OnCloneItem(0), 0u);
  objects.OnRemoveItem(0);
}

TEST(ObjectCollection, AppendListsAnObjectTwiceWithoutASecondReference) {
  std::string log;
  CQNObjectCollection objects;
  objects.Add(new Noted(&log, 'a'));
  objects.Append(objects);
  ASSERT_EQ(objects.Count(), 2);
  EXPECT_EQ(objects.GetObj(1), objects.GetObj(0));
  objects.Item(1) = 0;  // else the object would be released once too often
  objects.RemoveAll();
  EXPECT_EQ(log, "a");
}

TEST(ObjectCollection, GetObjOutsideTheItemsIsNull) {
  CQNObjectCollection objects;
  for (const int index : {-1, 0, 1000000}) EXPECT_EQ(objects.GetObj(index), nullptr) << index;
}

TEST(ObjectCollection, HoldsCollections) {
  std::string log;
  CQNObjectCollection outer;
  auto* inner = new CQNObjectCollection;
  inner->Add(new Noted(&log, 'a'));
  outer.Add(inner);
  outer.RemoveAll();
  EXPECT_EQ(log, "a");
}

TEST(ObjectCollection, ClassChainLeadsToTheRootByTheCollection) {
  CQNObjectCollection objects;
  const CQNObjClass* record = objects.GetThisClass();
  std::string chain;
  for (; record != nullptr; record = record->m_base) chain += std::string(record->m_name) + " ";
  EXPECT_EQ(chain, "CQNObjectCollection CQNCollection CQNObject ");
}

TEST(ObjectCollection, CopyingAndAssigningShareTheObjects) {
  std::string log;
  {
    CQNObjectCollection original;
    CQNObjectCollection other;
    original.Add(new Noted(&log, 'a'));
    // Never destroyed: only one of the objects that share a record may be.
    alignas(CQNObjectCollection) unsigned char place[2][sizeof(CQNObjectCollection)];
    CQNObjectCollection* copy = new (place[0]) CQNObjectCollection(original);
    CQNObjectCollection* assigned = new (place[1]) CQNObjectCollection(other);
    *assigned = original;
    EXPECT_EQ(copy->GetObj(0), original.GetObj(0));
    assigned->Add(new Noted(&log, 'b'));
    EXPECT_EQ(original.Count(), 2);
    EXPECT_EQ(other.Count(), 0);
  }
  EXPECT_EQ(log, "ab");
}

}  // namespace
