// SPDX-License-Identifier: MIT
// Owners release what they hold, once. (That nothing leaks is for the leak checker to say.)
#include <quarnfc/error.h>
#include <quarnfc/error_json.h>
#include <quarnfc/ext/owners.h>
#include <quarnfc/json_object.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace quarnfc::ext {
namespace {

TEST(Owners, AnErrorHandleKnowsItsCodeAndMessage) {
  const ErrorHandle error(QNErrorUtils::CreateError(CQNObject::eErrInvalidData, "bad length"));
  EXPECT_TRUE(static_cast<bool>(error));
  EXPECT_EQ(error.Code(), 5u);
  EXPECT_EQ(error.Message(), "bad length");
}

TEST(Owners, NoErrorHandleHasCodeZeroAndNoMessage) {
  const ErrorHandle none;
  EXPECT_FALSE(static_cast<bool>(none));
  EXPECT_EQ(none.Code(), 0u);
  EXPECT_EQ(none.Message(), "");
}

TEST(Owners, OutClosesTheHandleThatWasThere) {
  ErrorHandle error(QNErrorUtils::CreateError(CQNObject::eErrNotFound, "first"));
  CMyJsonObj object;
  EXPECT_FALSE(QNJsonUtils::ReadJsonFile("", object, error.Out()));
  EXPECT_NE(error.Message(), "first");
  EXPECT_NE(error.Message(), "");
}

TEST(Owners, AHandleMovesAndIsGivenAway) {
  ErrorHandle first(QNErrorUtils::CreateError(CQNObject::eErrNotFound, "x"));
  ErrorHandle second(std::move(first));
  EXPECT_EQ(second.Message(), "x");
  ErrorHandle third;
  third = std::move(second);
  EXPECT_EQ(third.Code(), 2u);
  // CreateErrorJson closes the handle it is given.
  const Owned<CMyJsonObj> document(QNErrorUtils::CreateErrorJson(third.Release(), nullptr));
  EXPECT_FALSE(static_cast<bool>(third));
  EXPECT_EQ(document->ValueCount(), 1);
}

TEST(Owners, AStringArraySplitsAndAdjusts) {
  StringArray pieces(" a ; ;b", ';');
  EXPECT_EQ(pieces.Size(), 3u);
  EXPECT_STREQ(pieces[0], " a ");
  pieces.Adjust(true, true);
  std::string joined;
  for (const char* piece : pieces) joined += piece;
  EXPECT_EQ(joined, "ab");
  const StringArray moved(std::move(pieces));
  EXPECT_EQ(moved.Size(), 2u);
}

TEST(Owners, ABufferIsReleasedByTheLibrary) {
  const OwnedBuffer<char> joined(qnUnionPath("C:\\maps", "a.json"));
  EXPECT_STREQ(joined.get(), "C:\\maps\\a.json");
}

TEST(Owners, OwnersMoveWithoutThrowingAndDoNotCopy) {
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<ErrorHandle>);
  EXPECT_TRUE(std::is_nothrow_move_assignable_v<ErrorHandle>);
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<StringArray>);
  EXPECT_FALSE(std::is_copy_constructible_v<ErrorHandle>);
  EXPECT_FALSE(std::is_copy_constructible_v<StringArray>);
}

}  // namespace
}  // namespace quarnfc::ext
