// SPDX-License-Identifier: MIT
// Members of a large object while memory is exhausted: one that was added is found, also where the
// index of the keys could not grow, and one that was not leaves nothing.
#include <quarnfc/json_object.h>

#include <gtest/gtest.h>

#include <new>
#include <string>

#include "tests/failing_memory/door.h"

namespace {

// Whether a member was added with the nth request of the call refused.
bool IsAdded(CMyJsonObj& object, const std::string& key, int number, long nth) {
  failing::CloseDoor(nth, failing::Refusal::kOnce);
  bool added = true;
  try {
    object.AddItem(key.c_str(), number);
  } catch (const std::bad_alloc&) {
    added = false;
  }
  failing::OpenDoor();
  return added;
}

int NumberOf(CMyJsonObj& object, int member) {
  int number = -1;
  object.ValueEx(("member " + std::to_string(member)).c_str(), number, true);
  return number;
}

// Adds members with the nth request of each call refused; how many were added in spite of that.
int AddMembers(CMyJsonObj& object, int count, long nth) {
  int added_in_spite = 0;
  for (int member = 0; member < count; ++member) {
    const std::string key = "member " + std::to_string(member);
    const bool added = IsAdded(object, key, member, nth);
    if (added && failing::RefusedCount() > 0) ++added_in_spite;
    EXPECT_EQ(NumberOf(object, member), added ? member : -1) << nth;
    if (!added) object.AddItem(key.c_str(), member);
  }
  return added_in_spite;
}

TEST(LargeObject, MembersAreFoundWhetherOrNotTheIndexCouldGrow) {
  constexpr int kMembers = 600;
  constexpr long kMostRequests = 10;  // of a call that adds a member
  int added_in_spite = 0;
  for (long nth = 1; nth <= kMostRequests; ++nth) {
    CMyJsonObj object;
    added_in_spite += AddMembers(object, kMembers, nth);
    for (int i = 0; i < kMembers; ++i) EXPECT_EQ(NumberOf(object, i), i) << nth;
  }
  EXPECT_GT(added_in_spite, 0);
}

}  // namespace
