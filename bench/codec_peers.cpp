// SPDX-License-Identifier: MIT
// The codecs and digests by OpenSSL, isa-l and liblzma.
#define OPENSSL_SUPPRESS_DEPRECATED  // the plain functions of SHA-256
#include <isa-l/crc64.h>
#include <lzma.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/sha.h>

#include <cstring>

#include <string>

#include "codec_data.h"
#include "row.h"

namespace {

using bench::Bytes;
using bench::Keep;
using bench::Row;

void AddBase64(const std::string& input, const Bytes& data) {
  Row("Base64 encode", input, "OpenSSL", [data] {
    Bytes text(data.size() * 4 / 3 + 8);
    EVP_EncodeBlock(text.data(), data.data(), static_cast<int>(data.size()));
    Keep(text);
  });
  Row("Base64 decode", input, "OpenSSL", [text = bench::Base64Text(data)] {
    Bytes bytes(text.size());
    EVP_DecodeBlock(bytes.data(), reinterpret_cast<const unsigned char*>(text.data()),
                    static_cast<int>(text.size()));
    Keep(bytes);
  });
}

// HMAC as a program writes it that has SHA-256 alone.
void HmacByHand(const char* key, std::size_t key_length, const Bytes& data, unsigned char* digest) {
  unsigned char pad[SHA256_CBLOCK] = {};
  std::memcpy(pad, key, key_length);
  for (unsigned char& byte : pad) byte ^= 0x36;
  SHA256_CTX context;
  SHA256_Init(&context);
  SHA256_Update(&context, pad, sizeof(pad));
  SHA256_Update(&context, data.data(), data.size());
  SHA256_Final(digest, &context);
  for (unsigned char& byte : pad) byte ^= 0x36 ^ 0x5C;
  SHA256_Init(&context);
  SHA256_Update(&context, pad, sizeof(pad));
  SHA256_Update(&context, digest, SHA256_DIGEST_LENGTH);
  SHA256_Final(digest, &context);
}

void AddDigests(const std::string& input, const Bytes& data) {
  Row("MD5", input, "OpenSSL", [data] {
    unsigned char digest[16];
    EVP_Digest(data.data(), data.size(), digest, nullptr, EVP_md5(), nullptr);
    Keep(digest);
  });
  Row("HMAC-SHA256", input, "OpenSSL", [data] {
    unsigned char digest[32];
    HMAC(EVP_sha256(), "key", 3, data.data(), data.size(), digest, nullptr);
    Keep(digest);
  });
  Row("HMAC-SHA256", input, "OpenSSL's SHA-256 by hand", [data] {
    unsigned char digest[SHA256_DIGEST_LENGTH];
    HmacByHand("key", 3, data, digest);
    Keep(digest);
  });
  // Of another polynomial of the same length and bit order: the work is the same.
  Row("CRC-64", input, "isa-l", [data] { Keep(crc64_iso_refl(0, data.data(), data.size())); });
  for (const char* work : {"CRC-64", "CRC-64 by tables"}) {
    Row(work, input, "liblzma", [data] { Keep(lzma_crc64(data.data(), data.size(), 0)); });
  }
}

[[maybe_unused]] const bool g_added = [] {
  for (const bench::CodecInput& input : bench::kCodecInputs) {
    const Bytes data = bench::RandomBytes(input.size);
    AddBase64(input.name, data);
    AddDigests(input.name, data);
  }
  return true;
}();

}  // namespace
