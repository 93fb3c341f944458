// SPDX-License-Identifier: MIT
// The inputs of the codec benchmarks.
#ifndef QUARNFC_BENCH_CODEC_DATA_H_
#define QUARNFC_BENCH_CODEC_DATA_H_

#include <quarnfc/base64.h>
#include <quarnfc/plain.h>

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace bench {

using Bytes = std::vector<unsigned char>;

struct CodecInput {
  const char* name;
  std::size_t size;
};
inline constexpr CodecInput kCodecInputs[] = {{"64 B", 64}, {"1 MB", 1 << 20}};

inline Bytes RandomBytes(std::size_t size) {
  std::mt19937 random(1);
  Bytes data(size);
  for (unsigned char& byte : data) byte = static_cast<unsigned char>(random());
  return data;
}

inline std::string Base64Text(const Bytes& data) {
  char* const text = QNBase64::qnEncodeBase64A(data.data(), static_cast<unsigned int>(data.size()));
  std::string copy = text;
  qnFreeMem(text);
  return copy;
}

}  // namespace bench

#endif  // QUARNFC_BENCH_CODEC_DATA_H_
