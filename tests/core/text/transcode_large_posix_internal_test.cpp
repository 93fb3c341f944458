// SPDX-License-Identifier: MIT
// Texts whose UTF-8 form is longer than an int counts. The text is one piece of memory that stands
// at many places, so that it takes address space only.
#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <climits>
#include <cstddef>
#include <new>

#include "core/text/transcode.h"

namespace quarnfc {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 20;

// count times a Chinese character, three bytes each in UTF-8, in front of zeros.
class ManyCharacters {
 public:
  explicit ManyCharacters(std::size_t count)
      : size_((count * sizeof(wchar_t) / kPiece + 2) * kPiece) {
    void* const place =
        mmap(nullptr, size_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (place == MAP_FAILED) return;
    units_ = static_cast<wchar_t*>(place);
    const std::size_t whole = count * sizeof(wchar_t) / kPiece;
    MapPieces(whole);
    if (units_ == nullptr) return;
    const std::size_t in_pieces = whole * kPiece / sizeof(wchar_t);
    for (std::size_t i = in_pieces; i < count; ++i) units_[i] = kZhong;
  }
  ~ManyCharacters() {
    if (units_ != nullptr) munmap(units_, size_);
  }
  ManyCharacters(const ManyCharacters&) = delete;
  ManyCharacters& operator=(const ManyCharacters&) = delete;

  const wchar_t* get() const { return units_; }

 private:
  static constexpr wchar_t kZhong = 0x4E2D;

  void MapPieces(std::size_t whole) {
    const int file = memfd_create("piece", 0);
    char* const start = reinterpret_cast<char*>(units_);
    bool mapped = ftruncate(file, kPiece) == 0;
    for (std::size_t i = 0; mapped && i < whole; ++i) mapped = Map(start + i * kPiece, file);
    mapped = mapped &&
             mprotect(start + whole * kPiece, size_ - whole * kPiece, PROT_READ | PROT_WRITE) == 0;
    close(file);
    if (!mapped) {
      munmap(units_, size_);
      units_ = nullptr;
      return;
    }
    for (std::size_t i = 0; i < kPiece / sizeof(wchar_t); ++i) units_[i] = kZhong;
  }

  static bool Map(char* place, int file) {
    return mmap(place, kPiece, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0) == place;
  }

  std::size_t size_;
  wchar_t* units_ = nullptr;
};

constexpr std::size_t kMost = (std::size_t{INT_MAX} - 1) / 3;  // with the terminator

TEST(TranscodeLarge, Utf8OfTwoGigabytesIsCountedAndOneCharacterMoreThrows) {
  const ManyCharacters most(kMost);
  const ManyCharacters more(kMost + 1);
  if (most.get() == nullptr || more.get() == nullptr) GTEST_SKIP() << "no address space for 3 GiB";
  using platform::FromUtf16;
  EXPECT_EQ(INT_MAX, FromUtf16(Encoding::kUtf8, most.get(), platform::kTerminated, nullptr, 0));
  EXPECT_THROW(FromWide(Encoding::kUtf8, more.get()), std::bad_alloc);
}

}  // namespace
}  // namespace quarnfc
