// SPDX-License-Identifier: MIT
// The codecs and digests beside OpenSSL's and isa-l's, on one megabyte of data and on short data.
#include <isa-l/crc64.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <quarnfc/quarnfc.h>

#include <random>
#include <string>
#include <vector>

#include "row.h"

namespace {

using bench::Keep;
using bench::kOurs;
using bench::Row;
using Bytes = std::vector<unsigned char>;

Bytes Data(std::size_t size) {
  std::mt19937 random(1);
  Bytes data(size);
  for (unsigned char& byte : data) byte = static_cast<unsigned char>(random());
  return data;
}

unsigned Size(const Bytes& data) { return static_cast<unsigned>(data.size()); }

std::string Base64Text(const Bytes& data) {
  char* const text = QNBase64::qnEncodeBase64A(data.data(), Size(data));
  std::string copy = text;
  qnFreeMem(text);
  return copy;
}

void AddBase64(const std::string& input, const Bytes& data) {
  Row("Base64 encode", input, kOurs,
      [data] { qnFreeMem(QNBase64::qnEncodeBase64A(data.data(), Size(data))); });
  Row("Base64 encode", input, "OpenSSL", [data] {
    Bytes text(data.size() * 4 / 3 + 8);
    EVP_EncodeBlock(text.data(), data.data(), static_cast<int>(data.size()));
    Keep(text);
  });
  const std::string text = Base64Text(data);
  Row("Base64 decode", input, kOurs, [text] {
    unsigned char* bytes = nullptr;
    QNBase64::qnDecodeBase64A(text.c_str(), 0, &bytes);
    qnFreeMem(bytes);
  });
  Row("Base64 decode", input, "OpenSSL", [text] {
    Bytes bytes(text.size());
    EVP_DecodeBlock(bytes.data(), reinterpret_cast<const unsigned char*>(text.data()),
                    static_cast<int>(text.size()));
    Keep(bytes);
  });
  Row("Base32 encode", input, kOurs,
      [data] { qnFreeMem(QNBase32::qnEncodeBase32A(data.data(), Size(data))); });
}

void AddDigests(const std::string& input, const Bytes& data) {
  Row("MD5", input, kOurs, [data] {
    unsigned words[4];
    QNMD5::qnGetMD5Data(data.data(), Size(data), words);
    Keep(words);
  });
  Row("MD5", input, "OpenSSL", [data] {
    unsigned char digest[16];
    EVP_Digest(data.data(), data.size(), digest, nullptr, EVP_md5(), nullptr);
    Keep(digest);
  });
  Row("HMAC-SHA256", input, kOurs, [data] {
    char digest[32];
    int length = 32;
    QNHMACSHA::qnHMAC_SHA256("key", 3, data.data(), static_cast<int>(data.size()), digest, &length);
    Keep(digest);
  });
  Row("HMAC-SHA256", input, "OpenSSL", [data] {
    unsigned char digest[32];
    HMAC(EVP_sha256(), "key", 3, data.data(), data.size(), digest, nullptr);
    Keep(digest);
  });
  // Another polynomial of the same length and bit order: the work is the same.
  Row("CRC-64", input, kOurs,
      [data] { qnFreeMem(QNCRC64::qnGetCRC64StrA(data.data(), Size(data))); });
  Row("CRC-64", input, "isa-l", [data] { Keep(crc64_iso_refl(0, data.data(), data.size())); });
}

}  // namespace

int main(int argc, char** argv) {
  for (const auto& [input, size] : {std::pair("64 B", 64), std::pair("1 MB", 1 << 20)}) {
    const Bytes data = Data(static_cast<std::size_t>(size));
    AddBase64(input, data);
    AddDigests(input, data);
  }
  return bench::Run(argc, argv);
}
