// SPDX-License-Identifier: MIT
// Encoders, decoders and digests that return buffers, in both widths.
#include <quarnfc/base32.h>
#include <quarnfc/base64.h>
#include <quarnfc/crc64.h>
#include <quarnfc/digest_streams.h>

#include "tests/failing_memory/scenario.h"

namespace failing {
namespace {

constexpr unsigned int kSizes[] = {0, 1, 2, 3, 4, 5, 47, 48, 64, 1000, 100000};

std::string Data(unsigned int size) {
  std::string data(size, '\0');
  for (unsigned int i = 0; i < size; ++i) data[i] = static_cast<char>(i * 7 + 3);
  return data;
}

template <class Text>
using Encode = Text* (*)(const unsigned char* data, unsigned int size);
template <class Text>
using Decode = int (*)(const Text* text, unsigned int length, unsigned char** data);

const unsigned char* BytesOf(const std::string& data) {
  return reinterpret_cast<const unsigned char*>(data.data());
}

template <class Text>
void AddEncoding(Scenarios& scenarios, const std::string& name, Encode<Text> encode) {
  for (const unsigned int size : kSizes) {
    const std::string data = Data(size);
    scenarios.push_back(Call(name + " of " + std::to_string(size) + " bytes",
                             [=] { return Take(encode(BytesOf(data), size)); }));
  }
}

// A text with a foreign character in its middle has no buffer as its result.
template <class Text>
void AddDecoding(Scenarios& scenarios, const std::string& name, Encode<Text> encode,
                 Decode<Text> decode) {
  for (const unsigned int size : kSizes) {
    for (const bool broken : {false, true}) {
      scenarios.push_back(
          Call(name + (broken ? ", broken, of " : " of ") + std::to_string(size) + " bytes", [=] {
            const std::string data = Data(size);
            const Owned<Text> text(encode(BytesOf(data), size));
            if (text == nullptr) return std::string(kFailed);
            if (broken && size > 0) text[size / 2] = '\x01';
            unsigned char* decoded = nullptr;
            const int count = decode(text.get(), 0, &decoded);
            const Owned<unsigned char> owned(decoded);
            return owned == nullptr ? std::string(kFailed) : std::to_string(count);
          }));
    }
  }
}

}  // namespace

Scenarios CodecScenarios() {
  Scenarios scenarios;
  AddEncoding<char>(scenarios, "Base64", QNBase64::qnEncodeBase64A);
  AddEncoding<wchar_t>(scenarios, "wide Base64", QNBase64::qnEncodeBase64W);
  AddEncoding<char>(scenarios, "Base32", QNBase32::qnEncodeBase32A);
  AddEncoding<wchar_t>(scenarios, "wide Base32", QNBase32::qnEncodeBase32W);
  AddEncoding<char>(scenarios, "CRC-64", QNCRC64::qnGetCRC64StrA);
  AddEncoding<wchar_t>(scenarios, "wide CRC-64", QNCRC64::qnGetCRC64StrW);
  AddDecoding<char>(scenarios, "decoded Base64", QNBase64::qnEncodeBase64A,
                    QNBase64::qnDecodeBase64A);
  AddDecoding<wchar_t>(scenarios, "decoded wide Base64", QNBase64::qnEncodeBase64W,
                       QNBase64::qnDecodeBase64W);
  AddDecoding<char>(scenarios, "decoded Base32", QNBase32::qnEncodeBase32A,
                    QNBase32::qnDecodeBase32A);
  AddDecoding<wchar_t>(scenarios, "decoded wide Base32", QNBase32::qnEncodeBase32W,
                       QNBase32::qnDecodeBase32W);
  for (const int size : {1, 16, 32, 400}) {
    scenarios.push_back(Call("HexText of " + std::to_string(size) + " bytes", [=] {
      const std::string data = Data(static_cast<unsigned int>(size));
      return Bytes(QNDigestUtils::HexText(BytesOf(data), size, true));
    }));
  }
  return scenarios;
}

}  // namespace failing
