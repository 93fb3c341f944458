// SPDX-License-Identifier: MIT
// The progress bar of a transfer: bytes, rate, and percentage where the length is known.
#ifndef QN_TRANSFER_PROGRESS_H_
#define QN_TRANSFER_PROGRESS_H_

#include <chrono>
#include <string>

#include "qn/console.h"

namespace qn {

// "12.3 MiB", with three digits or so.
std::string ByteCount(unsigned long long bytes);

// "[########        ]  50 %  12.3 MiB  4.1 MiB/s"; without a known total (0) only bytes and rate.
std::string TransferState(unsigned long long done, unsigned long long total, double seconds);

class TransferProgress {
 public:
  TransferProgress(std::string label, unsigned long long total);

  // Redraws the line a few times each second.
  void Update(unsigned long long done);

 private:
  using Clock = std::chrono::steady_clock;

  Progress progress_;
  unsigned long long total_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point drawn_ = start_;
};

}  // namespace qn

#endif  // QN_TRANSFER_PROGRESS_H_
