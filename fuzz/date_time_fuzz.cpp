// SPDX-License-Identifier: MIT
// Date-time text: what is read within 32 bits is written again as a text that reads as the same.
// Run it in a time zone without summer time: an hour that comes twice does not come back.
#include <quarnfc/time_utils.h>

#include <string>

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = fuzz::Input(data, size).Text();
  const unsigned time = QNTimeUtils::GetTimeFromStr(text.c_str());
  const CQNString formatted = QNTimeUtils::FormatTime(time);
  fuzz::Expect(formatted.GetLength() == 19);
  constexpr unsigned kYear1991 = 662688000;  // well within the years that are read
  if (time >= kYear1991) fuzz::Expect(QNTimeUtils::GetTimeFromStr(formatted) == time);
  return 0;
}
