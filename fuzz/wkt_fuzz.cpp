// SPDX-License-Identifier: MIT
// A text of WKT, read by both families of systems, which then write what they hold.
#include <quarnfc/error.h>
#include <quarnfc/projected.h>

#include <cstring>
#include <string>

#include "fuzz/input.h"

namespace {

// A message comes with every refusal and never with success. What is written fits its buffer.
template <class System>
void ReadAndWrite(const std::string& text, std::size_t buffer_size) {
  System system;
  char* message = nullptr;
  const bool accepted = system.SetFromWKTA(text.c_str(), &message);
  fuzz::Expect(accepted == (message == nullptr));
  qnFreeMem(message);

  char* const written = system.CreateWKT();
  fuzz::Expect(std::strlen(written) < buffer_size);
  qnFreeMem(written);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = fuzz::Input(data, size).Text();
  ReadAndWrite<CQNGeoCoordinateSystem>(text, 512);
  ReadAndWrite<CQNProCoordinateSystem>(text, 1024);
  return 0;
}
