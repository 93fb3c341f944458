// SPDX-License-Identifier: MIT
// The codecs and digests against OpenSSL, on random data of many lengths.
#include <gtest/gtest.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <quarnfc/base64.h>
#include <quarnfc/hmac_sha256.h>
#include <quarnfc/md5.h>

#include <cstring>

#include "tests/codec/codec_reference.h"

namespace codec_test {
namespace {

unsigned Size(const Bytes& data) { return static_cast<unsigned>(data.size()); }

std::string PeerBase64(const Bytes& data) {
  std::string text(data.size() * 4 / 3 + 8, '\0');
  auto* const out = reinterpret_cast<unsigned char*>(text.data());
  text.resize(EVP_EncodeBlock(out, data.data(), static_cast<int>(data.size())));
  return text;
}

Bytes PeerMd5(const Bytes& data) {
  Bytes digest(16);
  EVP_Digest(data.data(), data.size(), digest.data(), nullptr, EVP_md5(), nullptr);
  return digest;
}

Bytes PeerHmac(const Bytes& key, const Bytes& data) {
  Bytes digest(32);
  const unsigned char none = 0;  // the peer takes a null key for the one of the call before
  HMAC(EVP_sha256(), key.empty() ? &none : key.data(), static_cast<int>(key.size()), data.data(),
       data.size(), digest.data(), nullptr);
  return digest;
}

Bytes LibraryHmac(const Bytes& key, const Bytes& data) {
  Bytes digest(32);
  int length = 32;
  QNHMACSHA::qnHMAC_SHA256(reinterpret_cast<const char*>(key.data()), static_cast<int>(key.size()),
                           data.data(), static_cast<int>(data.size()),
                           reinterpret_cast<char*>(digest.data()), &length);
  return digest;
}

TEST(OpenSslPeer, Base64AgreesForEveryLength) {
  for (unsigned size = 0; size <= 1000; ++size) {
    const Bytes data = RandomBytes(size, size);
    ASSERT_EQ(EncodeA<Base64>(data), PeerBase64(data)) << size;
  }
}

TEST(OpenSslPeer, Md5AgreesForSevenBitData) {
  for (unsigned size = 0; size <= 1000; ++size) {
    Bytes data = RandomBytes(size, size);
    for (unsigned char& byte : data) byte &= 0x7F;
    unsigned words[4];
    QNMD5::qnGetMD5Data(data.data(), Size(data), words);
    Bytes digest(16);
    std::memcpy(digest.data(), words, 16);
    ASSERT_EQ(digest, PeerMd5(data)) << size;
  }
}

TEST(OpenSslPeer, HmacAgreesForEveryKeyAndDataLength) {
  for (unsigned key_size = 0; key_size <= 140; ++key_size) {
    const Bytes key = RandomBytes(key_size, key_size);
    for (const unsigned size : {0u, 1u, 55u, 56u, 63u, 64u, 65u, 127u, 128u, 1000u + key_size}) {
      const Bytes data = RandomBytes(size, size);
      ASSERT_EQ(LibraryHmac(key, data), PeerHmac(key, data)) << key_size << ' ' << size;
    }
  }
}

}  // namespace
}  // namespace codec_test
