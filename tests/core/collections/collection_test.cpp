// SPDX-License-Identifier: MIT
#include <quarnfc/collection.h>

#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Items = std::vector<unsigned __int64>;

void Fill(CQNCollection& collection, const Items& items) {
  for (const unsigned __int64 item : items) collection.Add(item);
}

Items ItemsOf(const CQNCollection& collection) {
  Items items;
  for (int i = 0; i < collection.Count(); ++i) items.push_back(collection.Item(i));
  return items;
}

// A host's own collection: both hooks, its own class record and a destructor.
class HostCollection : public CQNCollection {
 public:
  explicit HostCollection(Items* removed) : removed_(removed) {}
  ~HostCollection() override { *removed_ = {99}; }

  CQNObjClass* GetThisClass() override {
    static CQNObjClass host_class("HostCollection", &CQNCollection::m_class);
    return &host_class;
  }
  unsigned __int64 OnCloneItem(unsigned __int64 item) const override { return item + 1000; }
  void OnRemoveItem(unsigned __int64 item) override { removed_->push_back(item); }

 private:
  Items* removed_;
};

TEST(Collection, StartsEmpty) {
  CQNCollection collection;
  const CQNCollection& read_only = collection;
  EXPECT_EQ(collection.Count(), 0);
  EXPECT_EQ(collection.LogicalLength(), 0);
  EXPECT_EQ(collection.PhysicalLength(), 0);
  EXPECT_EQ(collection.DataPtr(), nullptr);
  EXPECT_EQ(read_only.constDataPtr(), nullptr);
}

TEST(Collection, HoldsOnePointerBesideItsBase) {
  EXPECT_EQ(sizeof(CQNCollection), sizeof(CQNObject) + sizeof(void*));
}

TEST(Collection, AddReturnsTheIndexOfTheItem) {
  CQNCollection collection;
  EXPECT_EQ(collection.Add(7), 0);
  EXPECT_EQ(collection.Add(0xFFFFFFFFFFFFFFFFull), 1);
  EXPECT_EQ(collection.Add(7), 2);
  EXPECT_EQ(ItemsOf(collection), (Items{7, 0xFFFFFFFFFFFFFFFFull, 7}));
}

TEST(Collection, InsertAtMovesLaterItemsUp) {
  const struct {
    int index;
    Items expected;
  } cases[] = {
      {0, {9, 1, 2, 3}}, {1, {1, 9, 2, 3}},  {2, {1, 2, 9, 3}},          {3, {1, 2, 3, 9}},
      {4, {1, 2, 3, 9}}, {-1, {1, 2, 3, 9}}, {2147483647, {1, 2, 3, 9}},
  };
  for (const auto& c : cases) {
    CQNCollection collection;
    Fill(collection, {1, 2, 3});
    collection.InsertAt(c.index, 9);
    EXPECT_EQ(ItemsOf(collection), c.expected) << c.index;
  }
}

TEST(Collection, InsertAtFillsAnEmptyCollection) {
  CQNCollection collection;
  collection.InsertAt(0, 4);
  EXPECT_EQ(ItemsOf(collection), Items{4});
}

TEST(Collection, FindGivesTheFirstEqualItemFromStart) {
  const struct {
    unsigned __int64 item;
    int start;
    int expected;
  } cases[] = {{5, 0, 0},  {5, 1, 2},  {9, 0, -1},   {7, 2, -1},         {5, 2, 2},
               {5, 3, -1}, {5, -1, 0}, {7, 100, -1}, {7, -2147483647, 1}};
  CQNCollection collection;
  Fill(collection, {5, 7, 5});
  for (const auto& c : cases) {
    EXPECT_EQ(collection.Find(c.item, c.start), c.expected) << c.item << " from " << c.start;
    EXPECT_EQ(collection.Contains(c.item, c.start), c.expected >= 0);
  }
}

TEST(Collection, RemoveAtMovesLaterItemsDown) {
  Items removed;
  HostCollection collection(&removed);
  Fill(collection, {1, 2, 3});
  collection.RemoveAt(1);
  EXPECT_EQ(ItemsOf(collection), (Items{1, 3}));
  EXPECT_EQ(removed, Items{2});
}

TEST(Collection, RemoveAtOutsideTheItemsDoesNothing) {
  Items removed;
  HostCollection collection(&removed);
  Fill(collection, {1, 2});
  for (const int index : {-1, 2, 3, -2147483647 - 1, 2147483647}) collection.RemoveAt(index);
  EXPECT_EQ(ItemsOf(collection), (Items{1, 2}));
  EXPECT_EQ(removed, Items{});
}

TEST(Collection, RemoveAllCallsTheHookInOrderAndKeepsTheCapacity) {
  Items removed;
  HostCollection collection(&removed);
  Fill(collection, {3, 1, 2});
  const int capacity = collection.PhysicalLength();
  collection.RemoveAll();
  EXPECT_EQ(collection.Count(), 0);
  EXPECT_EQ(collection.PhysicalLength(), capacity);
  EXPECT_EQ(removed, (Items{3, 1, 2}));
}

TEST(Collection, BaseHooksLeaveItemsAlone) {
  CQNCollection collection;
  EXPECT_EQ(collection.OnCloneItem(42), 42u);
  collection.Add(42);
  collection.OnRemoveItem(42);
  EXPECT_EQ(ItemsOf(collection), Items{42});
}

TEST(Collection, AddAndInsertAtCallNoHook) {
  Items removed;
  HostCollection collection(&removed);
  collection.Add(1);
  collection.InsertAt(0, 2);
  EXPECT_EQ(ItemsOf(collection), (Items{2, 1}));
  EXPECT_EQ(removed, Items{});
}

// --- growth ---------------------------------------------------------------------------------

TEST(CollectionGrowth, CapacityGrowsByHalfOrToTheNeededSize) {
  CQNCollection collection;
  int capacity = 0;
  for (int count = 1; count <= 10000; ++count) {
    collection.Add(1);
    if (count > capacity) capacity = std::max(count, capacity + capacity / 2);
    ASSERT_EQ(collection.PhysicalLength(), capacity) << count;
  }
}

TEST(CollectionGrowth, FirstCapacities) {
  CQNCollection collection;
  std::vector<int> capacities;
  for (int i = 0; i < 14; ++i) {
    collection.InsertAt(0, 1);
    capacities.push_back(collection.PhysicalLength());
  }
  EXPECT_EQ(capacities, (std::vector<int>{1, 2, 3, 4, 6, 6, 9, 9, 9, 13, 13, 13, 13, 19}));
}

TEST(CollectionGrowth, SetLogicalLengthFollowsTheSameRule) {
  CQNCollection collection;
  collection.SetLogicalLength(4);
  EXPECT_EQ(collection.PhysicalLength(), 4);
  collection.SetLogicalLength(5);
  EXPECT_EQ(collection.PhysicalLength(), 6);
  collection.SetLogicalLength(100);
  EXPECT_EQ(collection.PhysicalLength(), 100);
}

TEST(CollectionGrowth, GrowLengthIsOneWhateverIsSet) {
  CQNCollection collection;
  collection.SetGrowLength(16);
  EXPECT_EQ(collection.GrowLength(), 1);
}

TEST(CollectionGrowth, SetPhysicalLengthRaisesTheCapacityExactlyAndNeverShrinks) {
  CQNCollection collection;
  collection.Add(1);
  collection.SetPhysicalLength(10);
  EXPECT_EQ(collection.PhysicalLength(), 10);
  collection.SetPhysicalLength(11);
  EXPECT_EQ(collection.PhysicalLength(), 11);
  collection.SetPhysicalLength(5);
  EXPECT_EQ(collection.PhysicalLength(), 11);
  EXPECT_EQ(ItemsOf(collection), Items{1});
}

TEST(CollectionGrowth, SetPhysicalLengthBelowTheCountReleasesItemsButKeepsThem) {
  Items removed;
  HostCollection collection(&removed);
  Fill(collection, {1, 2, 3, 4});
  collection.SetPhysicalLength(2);
  EXPECT_EQ(removed, (Items{3, 4}));
  EXPECT_EQ(ItemsOf(collection), (Items{1, 2, 3, 4}));
  EXPECT_EQ(collection.PhysicalLength(), 4);
}

TEST(CollectionGrowth, SetLogicalLengthReleasesItemsFromTheLength) {
  Items removed;
  HostCollection collection(&removed);
  Fill(collection, {1, 2, 3, 4});
  collection.SetLogicalLength(2);
  EXPECT_EQ(removed, (Items{3, 4}));
  EXPECT_EQ(ItemsOf(collection), (Items{1, 2}));
}

TEST(CollectionGrowth, NewItemsAreZeroNotWhatWasRemoved) {
  CQNCollection collection;
  Fill(collection, {1, 2, 3, 4});
  collection.SetLogicalLength(1);
  collection.SetLogicalLength(3);
  EXPECT_EQ(ItemsOf(collection), (Items{1, 0, 0}));
}

TEST(CollectionGrowth, NegativeLengthsCountAsZero) {
  Items removed;
  HostCollection collection(&removed);
  Fill(collection, {1, 2});
  collection.SetPhysicalLength(-5);
  EXPECT_EQ(removed, (Items{1, 2}));
  EXPECT_EQ(collection.Count(), 2);
  removed.clear();
  collection.SetLogicalLength(-5);
  EXPECT_EQ(removed, (Items{1, 2}));
  EXPECT_EQ(collection.Count(), 0);
}

// --- access ---------------------------------------------------------------------------------

TEST(CollectionAccess, ReferencesChangeTheItem) {
  CQNCollection collection;
  Fill(collection, {1, 2});
  collection.Item(0) = 10;
  collection[1] = 20;
  EXPECT_EQ(ItemsOf(collection), (Items{10, 20}));
  const CQNCollection& read_only = collection;
  EXPECT_EQ(&read_only[1], &collection.Item(1));
  EXPECT_EQ(&read_only.Item(1), &collection[1]);
}

TEST(CollectionAccess, ItemsLieOneAfterTheOther) {
  CQNCollection collection;
  Fill(collection, {1, 2, 3});
  EXPECT_EQ(collection.DataPtr(), &collection.Item(0));
  EXPECT_EQ(collection.constDataPtr(), collection.DataPtr());
  EXPECT_EQ(Items(collection.DataPtr(), collection.DataPtr() + 3), (Items{1, 2, 3}));
}

TEST(CollectionAccess, OutsideTheItemsReadsZeroAndLosesWhatIsWritten) {
  CQNCollection collection;
  Fill(collection, {1, 2});
  const CQNCollection& read_only = collection;
  for (const int index : {-1, 2, 1000000, -2147483647 - 1, 2147483647}) {
    collection[index] = 77;
    EXPECT_EQ(collection.Item(index), 0u) << index;
    EXPECT_EQ(read_only.Item(index), 0u) << index;
    EXPECT_EQ(read_only[index], 0u) << index;
  }
  EXPECT_EQ(ItemsOf(collection), (Items{1, 2}));
}

// --- Append and CopyFrom ----------------------------------------------------------------------

TEST(CollectionAppend, TakesItemsOfThisCollection) {
  const struct {
    Items own;
    Items other;
    Items expected;
  } cases[] = {
      {{1, 2, 3}, {8, 9}, {1, 2, 3, 1, 2}},
      {{1}, {7, 8, 9}, {1, 1, 1, 1}},
      {{1, 2}, {7, 8, 9}, {1, 2, 1, 2, 1}},
      {{}, {7, 8, 9}, {0, 0, 0}},
      {{1, 2}, {}, {1, 2}},
  };
  for (const auto& c : cases) {
    CQNCollection collection;
    CQNCollection other;
    Fill(collection, c.own);
    Fill(other, c.other);
    collection.Append(other);
    EXPECT_EQ(ItemsOf(collection), c.expected);
    EXPECT_EQ(ItemsOf(other), c.other);
  }
}

TEST(CollectionAppend, DoublesACollectionAppendedToItself) {
  CQNCollection collection;
  Fill(collection, {1, 2});
  collection.Append(collection);
  EXPECT_EQ(ItemsOf(collection), (Items{1, 2, 1, 2}));
}

TEST(CollectionAppend, PassesItemsThroughTheHookOfTheOther) {
  Items removed;
  HostCollection other(&removed);
  Fill(other, {5, 6});
  CQNCollection collection;
  Fill(collection, {1, 2});
  collection.Append(other);
  EXPECT_EQ(ItemsOf(collection), (Items{1, 2, 1001, 1002}));
}

TEST(CollectionAppend, CopyFromReadsNothingThatRemovedItemsLeftBehind) {
  Items removed;
  HostCollection collection(&removed);
  CQNCollection other;
  Fill(collection, {1, 2, 3});
  Fill(other, {7, 8});
  collection.CopyFrom(other);
  EXPECT_EQ(removed, (Items{1, 2, 3}));
  EXPECT_EQ(ItemsOf(collection), (Items{0, 0}));
}

TEST(CollectionAppend, CopyFromItselfEmptiesTheCollection) {
  CQNCollection collection;
  Fill(collection, {1, 2});
  collection.CopyFrom(collection);
  EXPECT_EQ(collection.Count(), 0);
}

// --- lifetime and host classes ----------------------------------------------------------------

TEST(CollectionLifetime, CopyingAndAssigningShareTheRecords) {
  CQNCollection original;
  CQNCollection other;
  original.Add(1);
  // Never destroyed: only one of the objects that share a record may be.
  alignas(CQNCollection) unsigned char place[2][sizeof(CQNCollection)];
  CQNCollection* copy = new (place[0]) CQNCollection(original);
  CQNCollection* assigned = new (place[1]) CQNCollection(other);
  *assigned = original;
  copy->Add(2);
  assigned->Add(3);
  EXPECT_EQ(ItemsOf(original), (Items{1, 2, 3}));
  EXPECT_EQ(other.Count(), 0);
  copy->SetErrorMsg("shared");
  EXPECT_STREQ(original.GetErrorMsg(), "shared");
  EXPECT_STREQ(assigned->GetErrorMsg(), "shared");
}

TEST(CollectionLifetime, DestructionCallsNoHook) {
  Items removed;
  {
    HostCollection collection(&removed);
    collection.Add(1);
  }
  EXPECT_EQ(removed, Items{99});  // left by the destructor of the host class
}

TEST(CollectionLifetime, ReleaseDestroysAHostCollection) {
  Items removed;
  CQNObject* object = new HostCollection(&removed);
  EXPECT_STREQ(object->GetThisClass()->m_name, "HostCollection");
  object->Release();
  EXPECT_EQ(removed, Items{99});
}

TEST(CollectionLifetime, ClassRecordNamesTheBase) {
  CQNCollection collection;
  const CQNObject& object = collection;
  const CQNObjClass* record = const_cast<CQNObject&>(object).GetThisClass();
  EXPECT_EQ(record, &CQNCollection::m_class);
  EXPECT_STREQ(record->m_name, "CQNCollection");
  EXPECT_EQ(record->m_base, &CQNObject::m_class);
}

// A host class that replaces the members others are stated to forward to.
class Forwarded : public CQNCollection {
 public:
  int Add(unsigned __int64 item) override { return CQNCollection::Add(item * 10); }
  int Count() const override { return 1; }
  int Find(unsigned __int64, int) const override { return 8; }
  unsigned __int64& Item(int) override { return item_; }
  const unsigned __int64& Item(int) const override { return item_; }

 private:
  unsigned __int64 item_ = 5;
};

TEST(CollectionHostClass, ReplacedMembersAreUsedByTheOthers) {
  Forwarded collection;
  const CQNCollection& read_only = collection;
  CQNCollection& base = collection;
  base.Add(3);
  EXPECT_EQ(base.LogicalLength(), 1);
  EXPECT_TRUE(base.Contains(0, 0));
  EXPECT_EQ(base[0], 5u);
  EXPECT_EQ(read_only[0], 5u);
  base.Append(read_only);  // one item, through Add
  EXPECT_EQ(Items(base.DataPtr(), base.DataPtr() + 2), (Items{30, 300}));
}

// A host class whose hook removes further items of its own collection.
class Unsteady : public CQNCollection {
 public:
  void OnRemoveItem(unsigned __int64) override {
    if (!inside_) {
      inside_ = true;
      RemoveAll();
      inside_ = false;
    }
  }

 private:
  bool inside_ = false;
};

TEST(CollectionHostClass, HookMayRemoveItemsItself) {
  Unsteady collection;
  Fill(collection, {1, 2, 3});
  collection.RemoveAt(1);
  EXPECT_EQ(collection.Count(), 0);
  Fill(collection, {1, 2, 3});
  collection.SetLogicalLength(1);
  EXPECT_EQ(ItemsOf(collection), Items{0});
}

}  // namespace
