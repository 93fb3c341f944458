// SPDX-License-Identifier: MIT
// The rules of the write buffer, call by call: what is held and what reaches the platform.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/net/fake_internet.h"
#include "tests/net/test_text.h"

namespace {

using Texts = std::vector<std::string>;

class WriteBuffer : public testing::Test {
 protected:
  static FakeInternet& fake() { return TheFakeInternet(); }
  static const Texts& writes() { return fake().writes; }

  void Write(const std::string& text) {
    file.Write(text.data(), static_cast<unsigned int>(text.size()));
  }

  FakeFile file{0};
};

TEST_F(WriteBuffer, AnUnbufferedWriteGoesStraightToThePlatform) {
  Write("abc");
  Write("");
  EXPECT_EQ(writes(), (Texts{"abc", ""}));
}

TEST_F(WriteBuffer, HoldsFlushesAndPassesLargeWritesThrough) {
  EXPECT_NE(file.SetWriteBufferSize(10), 0);
  Write("1234");
  EXPECT_EQ(writes(), Texts{});
  Write("abcdefg");
  EXPECT_EQ(writes(), (Texts{"1234"}));
  Write("ABCDEFGHIJKLMNOPQRST");
  EXPECT_EQ(writes(), (Texts{"1234", "abcdefg", "ABCDEFGHIJKLMNOPQRST"}));
  file.Flush();
  EXPECT_EQ(writes().size(), 3u);
}

TEST_F(WriteBuffer, FillingTheBufferExactlyFlushesFirst) {
  file.SetWriteBufferSize(10);
  Write("1234");
  Write("567890");
  EXPECT_EQ(writes(), (Texts{"1234"}));
  Write("abcdefghij");
  EXPECT_EQ(writes(), (Texts{"1234", "567890", "abcdefghij"}));
}

TEST_F(WriteBuffer, FlushWritesWhatIsHeldOnce) {
  file.SetWriteBufferSize(10);
  file.Flush();
  Write("1234");
  file.Flush();
  file.Flush();
  EXPECT_EQ(writes(), (Texts{"1234"}));
}

TEST_F(WriteBuffer, CloseAndDestructionFlush) {
  {
    FakeFile other(0, FakeUrlHandle());
    other.SetWriteBufferSize(10);
    other.Write("abc", 3);
  }
  file.SetWriteBufferSize(10);
  Write("1234");
  file.Close();
  file.Close();
  EXPECT_EQ(fake().calls, (Texts{"write abc", "close 5678", "write 1234", "close 1234"}));
}

TEST_F(WriteBuffer, WriteStringWritesWithoutTerminatorOrLineEnd) {
  file.WriteString("line");
  file.WriteString("");
  file.WriteString(nullptr);
  EXPECT_EQ(writes(), (Texts{"line", "", ""}));
}

TEST_F(WriteBuffer, WritingIsRefusedOnAReadOnlyAndOnAClosedFile) {
  const Thrown refused = {6, kTestContext};
  FakeFile read_only(1);
  EXPECT_EQ(ThrownBy([&] { read_only.Write("a", 1); }), refused);
  EXPECT_EQ(ThrownBy([&] { read_only.WriteString("a"); }), refused);
  FakeFile unopened(0, nullptr);
  EXPECT_EQ(ThrownBy([&] { unopened.Write("a", 1); }), refused);
  file.Close();
  EXPECT_EQ(ThrownBy([&] { Write("a"); }), refused);
  EXPECT_EQ(ThrownBy([&] { file.WriteString("a"); }), refused);
}

TEST_F(WriteBuffer, FailuresThrowTheErrorOfThePlatform) {
  const Thrown failed = {12031, kTestContext};
  file.SetWriteBufferSize(10);
  Write("1234");
  fake().write_error = 12031;
  EXPECT_EQ(ThrownBy([&] { file.Flush(); }), failed);
  EXPECT_EQ(ThrownBy([&] { Write("1234567"); }), failed);
  EXPECT_EQ(ThrownBy([&] { file.Close(); }), failed);
  EXPECT_NE(static_cast<HINTERNET>(file), nullptr);
  fake().write_error = 0;
  file.Close();
  EXPECT_EQ(writes(), (Texts{"1234"}));
}

TEST_F(WriteBuffer, DestructionSurvivesAFailingFlushAndClosesTheHandle) {
  {
    FakeFile other(0, FakeUrlHandle());
    other.SetWriteBufferSize(10);
    other.Write("abc", 3);
    fake().write_error = 12031;
  }
  EXPECT_EQ(fake().calls, (Texts{"close 5678"}));
  EXPECT_EQ(std::uncaught_exceptions(), 0);
}

TEST_F(WriteBuffer, ShortWritesAreNoticedUnbufferedAndByFlushOnly) {
  const Thrown short_write = {kErrorOfShortWrites, kTestContext};
  fake().write_limit = 2;
  EXPECT_EQ(ThrownBy([&] { Write("abc"); }), short_write);
  file.SetWriteBufferSize(5);
  Write("1234");
  EXPECT_EQ(ThrownBy([&] { file.Flush(); }), short_write);
  EXPECT_EQ(ThrownBy([&] { Write("567"); }), kNothingThrown);
  EXPECT_EQ(ThrownBy([&] { Write("ABCDEFGH"); }), kNothingThrown);
  EXPECT_EQ(writes(), (Texts{"ab", "12", "12", "56", "AB"}));
}

// --- SetWriteBufferSize, rule by rule ------------------------------------------------------------

TEST_F(WriteBuffer, ResizingKeepsWhatFits) {
  file.SetWriteBufferSize(10);
  Write("1234");
  EXPECT_NE(file.SetWriteBufferSize(10), 0);
  EXPECT_NE(file.SetWriteBufferSize(20), 0);
  Write("567890");
  EXPECT_NE(file.SetWriteBufferSize(10), 0);
  EXPECT_EQ(writes(), Texts{});
  file.Flush();
  EXPECT_EQ(writes(), (Texts{"1234567890"}));
}

TEST_F(WriteBuffer, ShrinkingBelowWhatIsHeldFlushes) {
  file.SetWriteBufferSize(10);
  Write("1234");
  EXPECT_NE(file.SetWriteBufferSize(3), 0);
  EXPECT_EQ(writes(), (Texts{"1234"}));
  Write("ab");
  EXPECT_EQ(writes(), (Texts{"1234"}));
}

TEST_F(WriteBuffer, RemovingTheBufferFlushes) {
  file.SetWriteBufferSize(10);
  Write("1234");
  EXPECT_NE(file.SetWriteBufferSize(0), 0);
  Write("5");
  EXPECT_EQ(writes(), (Texts{"1234", "5"}));
}

// A host's class whose Flush writes nothing.
class DeafFile : public FakeFile {
 public:
  DeafFile() : FakeFile(0) {}
  void Flush() override {}
};

TEST_F(WriteBuffer, BytesThatADerivedFlushLeftNeverReadOutsideTheBuffer) {
  DeafFile deaf;
  deaf.SetWriteBufferSize(100);
  deaf.Write(std::string(90, 'x').data(), 90);
  EXPECT_NE(deaf.SetWriteBufferSize(10), 0);
  deaf.Write("ab", 2);
  deaf.SetWriteBufferSize(0);
  deaf.SetWriteBufferSize(10);
  deaf.Write("cd", 2);
  deaf.CQNInternetFile::Flush();
  EXPECT_EQ(writes(), (Texts{"cd"}));
}

// --- callbacks that close the file during a transfer ---------------------------------------------

TEST_F(WriteBuffer, AFileClosedDuringAFlushReportsACancelledOperation) {
  file.SetWriteBufferSize(10);
  Write("1234");
  fake().during_transfer = [this] { file.Abort(); };
  EXPECT_EQ(ThrownBy([&] { Write("5678901"); }), (Thrown{12017, kTestContext}));
  EXPECT_EQ(fake().calls, (Texts{"close 1234", "write 1234"}));
}

TEST_F(WriteBuffer, ClosingAgainWhileClosingClosesTheHandleOnce) {
  fake().during_close = [this] { file.Close(); };
  file.Close();
  EXPECT_EQ(fake().calls, (Texts{"close 1234"}));
}

// --- requests in pieces --------------------------------------------------------------------------

TEST(PiecewiseRequest, AnnouncesItsLengthAndAllowsReadingAndWriting) {
  FakeHttpFile file;
  FakeInternet& fake = TheFakeInternet();
  fake.response = "answer";
  EXPECT_EQ(ThrownBy([&] { file.Write("a", 1); }), (Thrown{6, kTestContext}));
  EXPECT_EQ(file.SendRequestEx(10, 3), 1);
  file.Write("body", 4);
  char answer[7] = {};
  EXPECT_EQ(file.Read(answer, 6), 6u);
  EXPECT_STREQ(answer, "answer");
  EXPECT_EQ(fake.calls, (Texts{"begin 10 of size 0 flags 3 context 77", "write body"}));
}

TEST(PiecewiseRequest, EndRequestWritesWhatIsHeldBeforeItEnds) {
  FakeHttpFile file;
  file.SetWriteBufferSize(100);
  file.SendRequestEx(4, 0, 5);
  file.Write("body", 4);
  EXPECT_EQ(file.EndRequest(9, nullptr, 6), 1);
  file.Close();
  EXPECT_EQ(TheFakeInternet().calls, (Texts{"begin 4 of size 0 flags 0 context 5", "write body",
                                            "end flags 9 context 6", "close 1234"}));
}

TEST(PiecewiseRequest, EndRequestInheritsTheContextAndReportsFailure) {
  FakeHttpFile file;
  file.SendRequestEx(0);
  TheFakeInternet().end_error = 12002;
  EXPECT_EQ(ThrownBy([&] { file.EndRequest(); }), (Thrown{12002, kTestContext}));
  EXPECT_EQ(TheFakeInternet().calls.back(), "end flags 0 context 77");
}

// --- queries -------------------------------------------------------------------------------------

TEST(QueryInfo, TextTakesTheCountOfThePlatform) {
  FakeHttpFile file;
  FakeInternet& fake = TheFakeInternet();
  fake.header = "a long header value";
  CQNString text("old");
  EXPECT_EQ(file.QueryInfo(1, text), 1);
  EXPECT_EQ(TextOf(text), "a long header value");
  EXPECT_EQ(fake.calls, (Texts{"query", "query"}));
}

TEST(QueryInfo, TextMeasuresItselfWhenThePlatformDoesNotCount) {
  FakeHttpFile file;
  TheFakeInternet().header = std::string("value\0hidden", 12);
  TheFakeInternet().counts_header = false;
  CQNString text("old");
  EXPECT_EQ(file.QueryInfo(1, text), 1);
  EXPECT_EQ(TextOf(text), "value");
}

TEST(QueryInfo, TextIsEmptyOnFailure) {
  FakeHttpFile file;
  CQNString text("old");
  DWORD index = 3;
  EXPECT_EQ(file.QueryInfo(1, text, &index), 0);
  EXPECT_EQ(TextOf(text), "");
  EXPECT_EQ(TheFakeInternet().calls, (Texts{"query", "query with index"}));
}

TEST(QueryInfo, StatusCodeIsConvertedFromText) {
  FakeHttpFile file;
  DWORD status = 7;
  EXPECT_EQ(file.QueryInfoStatusCode(status), 0);
  EXPECT_EQ(status, 7u);
  TheFakeInternet().header = "404";
  EXPECT_EQ(file.QueryInfoStatusCode(status), 1);
  EXPECT_EQ(status, 404u);
  TheFakeInternet().header = std::string(200, '9');
  EXPECT_EQ(file.QueryInfoStatusCode(status), 0);
}

TEST(FileUrl, JoinsServerAndObject) {
  const struct {
    HINTERNET handle;
    const char* object;
    const char* url;
  } cases[] = {{FakeHandle(), "/object", "http://server/object"},
               {FakeHandle(), "object", "http://server/object"},
               {FakeHandle(), "\\object", "http://server\\object"},
               {FakeHandle(), "", "http://server"},
               {FakeHandle(), nullptr, "http://server"},
               {nullptr, "/object", "http://"}};
  for (const auto& c : cases) {
    const FakeHttpFile file(c.handle, c.object);
    EXPECT_EQ(TextOf(file.GetFileURL()), c.url);
  }
}

}  // namespace
