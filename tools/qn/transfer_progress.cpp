// SPDX-License-Identifier: MIT
#include "qn/transfer_progress.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

namespace qn {
namespace {

// Bar, numbers and a short label fit on a line of 80 columns.
constexpr std::size_t kBarWidth = 16;

std::string Bar(double part) {
  const auto filled = static_cast<std::size_t>(part * kBarWidth);
  char percent[16];
  std::snprintf(percent, sizeof(percent), "%3d %%", static_cast<int>(part * 100));
  return '[' + std::string(filled, '#') + std::string(kBarWidth - filled, ' ') + "] " + percent +
         "  ";
}

}  // namespace

std::string ByteCount(unsigned long long bytes) {
  static const char* const kUnits[] = {"KiB", "MiB", "GiB", "TiB"};
  if (bytes < 1024) return std::to_string(bytes) + " B";
  double amount = static_cast<double>(bytes) / 1024;
  std::size_t unit = 0;
  while (amount >= 1024 && unit + 1 < std::size(kUnits)) {
    amount /= 1024;
    ++unit;
  }
  char text[32];
  std::snprintf(text, sizeof(text), "%.1f %s", amount, kUnits[unit]);
  return text;
}

std::string TransferState(unsigned long long done, unsigned long long total, double seconds) {
  std::string state;
  if (total != 0) {
    state = Bar(std::min(1.0, static_cast<double>(done) / static_cast<double>(total)));
  }
  state += ByteCount(done);
  if (seconds > 0) {
    const double rate = static_cast<double>(done) / seconds;
    state += "  " + ByteCount(static_cast<unsigned long long>(rate)) + "/s";
  }
  return state;
}

TransferProgress::TransferProgress(std::string label, unsigned long long total)
    : progress_(std::move(label)), total_(total) {}

void TransferProgress::Update(unsigned long long done) {
  const Clock::time_point now = Clock::now();
  if (now - drawn_ < std::chrono::milliseconds(100)) return;
  drawn_ = now;
  progress_.Show(TransferState(done, total_, std::chrono::duration<double>(now - start_).count()));
}

}  // namespace qn
