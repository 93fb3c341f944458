// SPDX-License-Identifier: MIT
// The MD5 checksum of data in pieces, by somebody else's code.
#ifndef QUARNFC_TESTS_NET_MD5_H_
#define QUARNFC_TESTS_NET_MD5_H_

#include <string>

#if defined(_WIN32)
#include <windows.h>

#include <wincrypt.h>
#else
#include <openssl/evp.h>
#endif

#include "tests/support/hex.h"

#if defined(_WIN32)
class Md5 {
 public:
  Md5() {
    CryptAcquireContextA(&provider_, nullptr, nullptr, PROV_RSA_FULL, CRYPT_VERIFYCONTEXT);
    CryptCreateHash(provider_, CALG_MD5, 0, 0, &hash_);
  }
  ~Md5() {
    CryptDestroyHash(hash_);
    CryptReleaseContext(provider_, 0);
  }
  Md5(const Md5&) = delete;
  Md5& operator=(const Md5&) = delete;

  void Add(const void* data, unsigned int length) {
    CryptHashData(hash_, static_cast<const BYTE*>(data), length, 0);
  }

  std::string Hex() {
    BYTE bytes[16];
    DWORD length = sizeof(bytes);
    CryptGetHashParam(hash_, HP_HASHVAL, bytes, &length, 0);
    return quarnfc_test::Hex(bytes, sizeof(bytes));
  }

 private:
  HCRYPTPROV provider_ = 0;
  HCRYPTHASH hash_ = 0;
};
#else
class Md5 {
 public:
  Md5() : context_(EVP_MD_CTX_new()) { EVP_DigestInit_ex(context_, EVP_md5(), nullptr); }
  ~Md5() { EVP_MD_CTX_free(context_); }
  Md5(const Md5&) = delete;
  Md5& operator=(const Md5&) = delete;

  void Add(const void* data, unsigned int length) { EVP_DigestUpdate(context_, data, length); }

  std::string Hex() {
    unsigned char bytes[16];
    EVP_DigestFinal_ex(context_, bytes, nullptr);
    return quarnfc_test::Hex(bytes, sizeof(bytes));
  }

 private:
  EVP_MD_CTX* const context_;
};
#endif

#endif  // QUARNFC_TESTS_NET_MD5_H_
