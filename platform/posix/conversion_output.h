// SPDX-License-Identifier: MIT
// Where a code-page conversion puts its result: a buffer, or nowhere when only the size is wanted.
// A converter is written once as a template and instantiated for both.
#ifndef QUARNFC_PLATFORM_POSIX_CONVERSION_OUTPUT_H_
#define QUARNFC_PLATFORM_POSIX_CONVERSION_OUTPUT_H_

#include <algorithm>
#include <cstddef>
#include <initializer_list>

namespace quarnfc::platform {

// Counts the units a conversion would write.
class CountingOutput {
 public:
  template <typename Unit>
  bool Put(Unit) {
    ++size_;
    return true;
  }

  template <typename Unit>
  bool PutAll(std::initializer_list<Unit> units) {
    size_ += units.size();
    return true;
  }

  template <typename Unit>
  bool PutRun(const Unit*, std::size_t count) {
    size_ += count;
    return true;
  }

  std::size_t size() const { return size_; }

 private:
  std::size_t size_ = 0;
};

// Writes units to a buffer; Put and PutRun are false once one does not fit.
template <typename Unit>
class BufferOutput {
 public:
  BufferOutput(Unit* buffer, std::size_t capacity)
      : begin_(buffer), next_(buffer), end_(buffer + capacity) {}

  bool Put(Unit unit) {
    if (next_ == end_) {
      return false;
    }
    *next_++ = unit;
    return true;
  }

  // Writes all of units or, when they do not fit, none.
  bool PutAll(std::initializer_list<Unit> units) {
    if (static_cast<std::size_t>(end_ - next_) < units.size()) {
      return false;
    }
    next_ = std::copy(units.begin(), units.end(), next_);
    return true;
  }

  // Copies ASCII units of either width.
  template <typename Source>
  bool PutRun(const Source* run, std::size_t count) {
    const std::size_t fitting = std::min(count, static_cast<std::size_t>(end_ - next_));
    for (std::size_t i = 0; i < fitting; ++i) {
      next_[i] = static_cast<Unit>(run[i]);
    }
    next_ += fitting;
    return fitting == count;
  }

  std::size_t size() const { return static_cast<std::size_t>(next_ - begin_); }

 private:
  Unit* begin_;
  Unit* next_;
  Unit* end_;
};

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_POSIX_CONVERSION_OUTPUT_H_
