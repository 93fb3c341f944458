// SPDX-License-Identifier: MIT
// The rules of the read buffer, call by call: which bytes come from the buffer and what is asked of
// the platform.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/net/fake_internet.h"
#include "tests/net/test_text.h"

namespace {

constexpr char kDigits[] = "0123456789abcdefghijklmnopqrstuvwxyz";
using Counts = std::vector<unsigned int>;

class ReadBuffer : public testing::Test {
 protected:
  ReadBuffer() { fake().response = kDigits; }

  static FakeInternet& fake() { return TheFakeInternet(); }

  std::string Read(unsigned int count) {
    std::string bytes(count, '?');
    bytes.resize(file.Read(bytes.data(), count));
    return bytes;
  }

  FakeFile file{1};
};

TEST_F(ReadBuffer, AnUnbufferedReadGoesStraightToThePlatform) {
  EXPECT_EQ(Read(5), "01234");
  EXPECT_EQ(Read(50), std::string(kDigits).substr(5));
  EXPECT_EQ(Read(50), "");
  EXPECT_EQ(fake().reads, (Counts{5, 50, 50}));
}

TEST_F(ReadBuffer, TheFirstReadFillsTheBufferAndLaterOnesTakeFromIt) {
  EXPECT_NE(file.SetReadBufferSize(10), 0);
  EXPECT_EQ(Read(3), "012");
  EXPECT_EQ(Read(4), "3456");
  EXPECT_EQ(fake().reads, (Counts{10}));
}

TEST_F(ReadBuffer, ASmallReadThatReachesTheLastByteRefills) {
  file.SetReadBufferSize(10);
  Read(3);
  EXPECT_EQ(Read(7), "3456789");
  EXPECT_EQ(fake().reads, (Counts{10, 10}));
  EXPECT_EQ(Read(2), "ab");
  EXPECT_EQ(Read(9), "cdefghijk");
  EXPECT_EQ(fake().reads, (Counts{10, 10, 10}));
}

TEST_F(ReadBuffer, ALargeReadTakesWhatIsBufferedAndTheRestDirectly) {
  file.SetReadBufferSize(10);
  Read(3);
  EXPECT_EQ(Read(12), "3456789abcde");
  EXPECT_EQ(fake().reads, (Counts{10, 5}));
  EXPECT_EQ(Read(10), "fghijklmno");
  EXPECT_EQ(Read(1), "p");
  EXPECT_EQ(fake().reads, (Counts{10, 5, 10, 10}));
}

TEST_F(ReadBuffer, ShortAnswersOfThePlatformAreHandedOnAsTheyAre) {
  fake().read_limit = 4;
  file.SetReadBufferSize(10);
  EXPECT_EQ(Read(3), "012");
  EXPECT_EQ(Read(5), "34567");
  EXPECT_EQ(Read(6), "89ab");
  EXPECT_EQ(Read(20), "cdef");
}

TEST_F(ReadBuffer, TheEndOfTheDataReadsAsNothing) {
  fake().response = "abc";
  file.SetReadBufferSize(10);
  EXPECT_EQ(Read(5), "abc");
  EXPECT_EQ(Read(5), "");
  EXPECT_EQ(Read(50), "");
}

TEST_F(ReadBuffer, AFailingPlatformReadThrowsItsErrorWithTheContext) {
  const Thrown reset = {10054, kTestContext};
  fake().read_error = 10054;
  char bytes[20];
  EXPECT_EQ(ThrownBy([&] { file.Read(bytes, 5); }), reset);
  file.SetReadBufferSize(10);
  EXPECT_EQ(ThrownBy([&] { file.Read(bytes, 5); }), reset);
  EXPECT_EQ(ThrownBy([&] { file.Read(bytes, 15); }), reset);
  EXPECT_EQ(ThrownBy([&] { file.ReadString(bytes, 5); }), reset);
}

TEST_F(ReadBuffer, ReadingIsRefusedOnAWriteOnlyAndOnAClosedFile) {
  const Thrown refused = {6, kTestContext};
  char byte;
  FakeFile write_only(0);
  EXPECT_EQ(ThrownBy([&] { write_only.Read(&byte, 1); }), refused);
  FakeFile unopened(1, nullptr);
  EXPECT_EQ(ThrownBy([&] { unopened.Read(&byte, 1); }), refused);
  file.Close();
  EXPECT_EQ(ThrownBy([&] { file.Read(&byte, 1); }), refused);
  EXPECT_EQ(ThrownBy([&] { file.ReadString(&byte, 1); }), refused);
  CQNString line;
  EXPECT_EQ(ThrownBy([&] { file.ReadString(line); }), refused);
}

TEST_F(ReadBuffer, AClosedFileWithTheSizeOfTheLineBufferIsStillRefused) {
  file.SetReadBufferSize(4096);
  file.Close();
  char line[20];
  EXPECT_EQ(ThrownBy([&] { file.ReadString(line, 20); }), (Thrown{6, kTestContext}));
}

// --- SetReadBufferSize, rule by rule -------------------------------------------------------------

TEST_F(ReadBuffer, AllOnesAndTheSameSizeChangeNothing) {
  file.SetReadBufferSize(10);
  Read(3);
  EXPECT_NE(file.SetReadBufferSize(0xFFFFFFFF), 0);
  EXPECT_NE(file.SetReadBufferSize(10), 0);
  EXPECT_EQ(Read(2), "34");
  EXPECT_EQ(fake().reads, (Counts{10}));
}

TEST_F(ReadBuffer, ASizeBelowThePositionIsRefusedAndChangesNothing) {
  file.SetReadBufferSize(10);
  Read(6);
  EXPECT_EQ(file.SetReadBufferSize(5), 0);
  EXPECT_EQ(file.SetReadBufferSize(0), 0);
  EXPECT_EQ(Read(3), "678");
  EXPECT_EQ(fake().reads, (Counts{10}));
}

TEST_F(ReadBuffer, ABufferThatWasNeverReadIsRefusedToShrink) {
  // A new buffer counts as used up, so its position is its size.
  file.SetReadBufferSize(10);
  EXPECT_EQ(file.SetReadBufferSize(9), 0);
  EXPECT_NE(file.SetReadBufferSize(11), 0);
}

TEST_F(ReadBuffer, GrowingCarriesTheTailOver) {
  file.SetReadBufferSize(10);
  Read(3);
  EXPECT_NE(file.SetReadBufferSize(20), 0);
  EXPECT_EQ(Read(6), "345678");
  EXPECT_EQ(Read(3), "9ab");
  EXPECT_EQ(fake().reads, (Counts{10, 20}));
}

TEST_F(ReadBuffer, ShrinkingCarriesTheTailOverWhenItFits) {
  file.SetReadBufferSize(10);
  Read(6);
  EXPECT_NE(file.SetReadBufferSize(8), 0);
  EXPECT_EQ(Read(3), "678");
  EXPECT_EQ(fake().reads, (Counts{10}));
}

TEST_F(ReadBuffer, ShrinkingDropsATailThatDoesNotFit) {
  file.SetReadBufferSize(10);
  Read(3);
  EXPECT_NE(file.SetReadBufferSize(5), 0);
  EXPECT_EQ(Read(2), "ab");
  EXPECT_EQ(fake().reads, (Counts{10, 5}));
}

TEST_F(ReadBuffer, TheTailIsCountedFromTheSizeAndItsUnfilledBytesAreZero) {
  fake().response = "abcdef";
  file.SetReadBufferSize(10);
  Read(3);
  EXPECT_NE(file.SetReadBufferSize(20), 0);
  EXPECT_EQ(Read(6), std::string("def\0\0\0", 6));
}

TEST_F(ReadBuffer, RemovingTheBufferKeepsPositionAndAFirstBufferStartsEmpty) {
  file.SetReadBufferSize(10);
  Read(3);
  file.SetReadBufferSize(20);  // position 0, seven bytes valid
  EXPECT_NE(file.SetReadBufferSize(0), 0);
  EXPECT_NE(file.SetReadBufferSize(8), 0);
  EXPECT_EQ(Read(4), "abcd");
  EXPECT_EQ(fake().reads, (Counts{10, 8}));
}

// --- callbacks that close the file during a transfer ---------------------------------------------

TEST_F(ReadBuffer, AFileClosedDuringARefillReportsACancelledOperation) {
  file.SetReadBufferSize(10);
  fake().during_transfer = [this] { file.Close(); };
  char bytes[5];
  EXPECT_EQ(ThrownBy([&] { file.Read(bytes, 5); }), (Thrown{12017, kTestContext}));
  EXPECT_EQ(static_cast<HINTERNET>(file), nullptr);
  EXPECT_EQ(fake().calls, (std::vector<std::string>{"close 1234"}));
}

TEST_F(ReadBuffer, ABufferReplacedDuringARefillIsNotMixedUp) {
  file.SetReadBufferSize(10);
  fake().during_transfer = [this] {
    fake().during_transfer = nullptr;
    file.SetReadBufferSize(5);
  };
  char bytes[5];
  EXPECT_EQ(ThrownBy([&] { file.Read(bytes, 3); }), (Thrown{12017, kTestContext}));
  EXPECT_EQ(Read(3), "abc");
}

TEST_F(ReadBuffer, ACloseInsideAbortDuringADirectReadIsSafe) {
  fake().during_transfer = [this] { file.Abort(); };
  EXPECT_EQ(Read(5), "01234");
  EXPECT_EQ(ThrownBy([&] { Read(5); }), (Thrown{6, kTestContext}));
}

// --- length and position -------------------------------------------------------------------------

TEST(FileLength, IsWhatCanBeReadNow) {
  FakeFile file(1);
  TheFakeInternet().data_available = 4711;
  EXPECT_EQ(file.GetLength(), 4711u);
  TheFakeInternet().data_available = 0;  // the platform's query fails
  EXPECT_EQ(file.GetLength(), 0u);
  TheFakeInternet().data_available = 4711;
  file.Close();
  EXPECT_EQ(file.GetLength(), 0u);
}

TEST(FileSeek, MapsOriginsAndExtendsTheSign) {
  FakeFile file(1);
  FakeInternet& fake = TheFakeInternet();
  fake.position = 5;
  EXPECT_EQ(file.Seek(-7, 0), 5u);
  EXPECT_EQ(file.Seek(2147483647, 1), 5u);
  fake.position = 0x7FFFFFFF;
  EXPECT_EQ(file.Seek(-2147483647 - 1ll, 2), 0x7FFFFFFFu);
  fake.position = 0x80000000;
  EXPECT_EQ(file.Seek(0, 0), 0xFFFFFFFF80000000u);
  EXPECT_EQ(fake.calls, (std::vector<std::string>{"seek -7 0 77", "seek 2147483647 1 77",
                                                  "seek -2147483648 2 77", "seek 0 0 77"}));
}

TEST(FileSeek, ReportsWhatIsWrong) {
  FakeFile file(1);
  TheFakeInternet().position = 0xFFFFFFFF;
  EXPECT_EQ(ThrownBy([&] { file.Seek(0, 0); }), (Thrown{12016, kTestContext}));
  EXPECT_EQ(ThrownBy([&] { file.Seek(0, 3); }), (Thrown{87, kTestContext}));
  EXPECT_EQ(ThrownBy([&] { file.Seek(0x80000000ll, 0); }), (Thrown{87, kTestContext}));
  EXPECT_EQ(ThrownBy([&] { file.Seek(-0x80000001ll, 0); }), (Thrown{87, kTestContext}));
  FakeFile write_only(0);
  EXPECT_EQ(ThrownBy([&] { write_only.Seek(0, 3); }), (Thrown{6, kTestContext}));
}

TEST(FileSeek, IsRefusedOnceThereIsAReadBuffer) {
  FakeFile file(1);
  TheFakeInternet().response = "line\n";
  CQNString line;
  EXPECT_EQ(file.ReadString(line), 1);
  EXPECT_EQ(ThrownBy([&] { file.Seek(0, 0); }), (Thrown{6, kTestContext}));
}

TEST(FileSeek, IsAllowedOnAFileForBoth) {
  FakeFile file(-1);
  TheFakeInternet().position = 3;
  EXPECT_EQ(file.Seek(3, 0), 3u);
}

}  // namespace
