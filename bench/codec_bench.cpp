// SPDX-License-Identifier: MIT
// The codecs and digests on one megabyte of data and on short data.
#include <quarnfc/quarnfc.h>

#include <string>
#include <vector>

#include "codec/crc64_update.h"
#include "codec_data.h"
#include "machine_limit.h"
#include "row.h"

namespace {

using bench::Bytes;
using bench::Keep;
using bench::kOurs;
using bench::Row;

unsigned int Size(const Bytes& data) { return static_cast<unsigned int>(data.size()); }

template <class Char>
using Encoder = Char* (*)(const unsigned char*, unsigned int);
template <class Char>
using Decoder = int (*)(const Char*, unsigned int, unsigned char**);

template <class Char>
void AddCodec(const std::string& name, const std::string& input, const Bytes& data,
              Encoder<Char> encode, Decoder<Char> decode) {
  Row(name + " encode", input, kOurs,
      [data, encode] { qnFreeMem(encode(data.data(), Size(data))); });
  Char* const encoded = encode(data.data(), Size(data));
  std::vector<Char> text;
  for (const Char* at = encoded; *at != 0; ++at) text.push_back(*at);
  qnFreeMem(encoded);
  bench::CopyLimit(name + " encode", input, text.size() * sizeof(Char));
  bench::CopyLimit(name + " decode", input, data.size());
  Row(name + " decode", input, kOurs, [text, decode] {
    unsigned char* bytes = nullptr;
    decode(text.data(), static_cast<unsigned int>(text.size()), &bytes);
    qnFreeMem(bytes);
  });
}

void AddDigests(const std::string& input, const Bytes& data) {
  Row("MD5", input, kOurs, [data] {
    unsigned words[4];
    QNMD5::qnGetMD5Data(data.data(), Size(data), words);
    Keep(words);
  });
  Row("HMAC-SHA256", input, kOurs, [data] {
    char digest[32];
    int length = 32;
    QNHMACSHA::qnHMAC_SHA256("key", 3, data.data(), static_cast<int>(data.size()), digest, &length);
    Keep(digest);
  });
  Row("CRC-64", input, kOurs,
      [data] { qnFreeMem(QNCRC64::qnGetCRC64StrA(data.data(), Size(data))); });
  bench::ReadLimit("CRC-64", input, data.size());
  Row("CRC-64 by tables", input, kOurs,
      [data] { Keep(quarnfc::codec::UpdateCrc64Plain(0, data.data(), data.size())); });
}

}  // namespace

int main(int argc, char** argv) {
  for (const bench::CodecInput& input : bench::kCodecInputs) {
    const Bytes data = bench::RandomBytes(input.size);
    AddCodec<char>("Base64", input.name, data, QNBase64::qnEncodeBase64A,
                   QNBase64::qnDecodeBase64A);
    AddCodec<wchar_t>("Base64 wide", input.name, data, QNBase64::qnEncodeBase64W,
                      QNBase64::qnDecodeBase64W);
    AddCodec<char>("Base32", input.name, data, QNBase32::qnEncodeBase32A,
                   QNBase32::qnDecodeBase32A);
    AddDigests(input.name, data);
  }
  return bench::Run(argc, argv);
}
