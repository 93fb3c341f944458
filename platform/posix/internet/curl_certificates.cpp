// SPDX-License-Identifier: MIT
#include "platform/posix/internet/curl_certificates.h"

#include <openssl/ssl.h>
#include <openssl/x509_vfy.h>
#include <quarnfc/internet_api.h>

namespace quarnfc::internet {
namespace {

// The flag that accepts an error of the verification; 0 when none does.
DWORD FlagOf(int error) {
  switch (error) {
    case X509_V_ERR_CERT_HAS_EXPIRED:
    case X509_V_ERR_CERT_NOT_YET_VALID:
      return SECURITY_FLAG_IGNORE_CERT_DATE_INVALID;
    case X509_V_ERR_HOSTNAME_MISMATCH:
    case X509_V_ERR_IP_ADDRESS_MISMATCH:
      return SECURITY_FLAG_IGNORE_CERT_CN_INVALID;
    case X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT:
    case X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN:
    case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT:
    case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY:
    case X509_V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE:
    case X509_V_ERR_CERT_UNTRUSTED:
    case X509_V_ERR_INVALID_CA:
      return SECURITY_FLAG_IGNORE_UNKNOWN_CA;
    default:
      return 0;
  }
}

int FlagsIndex() {
  static const int index = SSL_CTX_get_ex_new_index(0, nullptr, nullptr, nullptr, nullptr);
  return index;
}

int Verify(int accepted, X509_STORE_CTX* store) {
  if (accepted != 0) return accepted;
  const auto* ssl = static_cast<const SSL*>(
      X509_STORE_CTX_get_ex_data(store, SSL_get_ex_data_X509_STORE_CTX_idx()));
  const auto* flags =
      static_cast<const DWORD*>(SSL_CTX_get_ex_data(SSL_get_SSL_CTX(ssl), FlagsIndex()));
  if ((FlagOf(X509_STORE_CTX_get_error(store)) & *flags) == 0) return 0;
  X509_STORE_CTX_set_error(store, X509_V_OK);
  return 1;
}

CURLcode Prepare(CURL* /*easy*/, void* context, void* flags) {
  auto* ssl_context = static_cast<SSL_CTX*>(context);
  SSL_CTX_set_ex_data(ssl_context, FlagsIndex(), flags);
  SSL_CTX_set_verify(ssl_context, SSL_VERIFY_PEER, Verify);
  return CURLE_OK;
}

}  // namespace

bool RelaxCertificates(CURL* easy, DWORD& security_flags) {
  const bool any_name = (security_flags & SECURITY_FLAG_IGNORE_CERT_CN_INVALID) != 0;
  curl_easy_setopt(easy, CURLOPT_SSL_VERIFYPEER, 1L);
  curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, any_name ? 0L : 2L);
  return curl_easy_setopt(easy, CURLOPT_SSL_CTX_DATA, &security_flags) == CURLE_OK &&
         curl_easy_setopt(easy, CURLOPT_SSL_CTX_FUNCTION, Prepare) == CURLE_OK;
}

DWORD CertificateError(CURL* easy) {
  long result = 0;
  curl_easy_getinfo(easy, CURLINFO_SSL_VERIFYRESULT, &result);
  // libcurl compares the name after the chain was accepted, and before it keeps that result.
  if (result == X509_V_OK || result == X509_V_ERR_UNSPECIFIED) {
    return ERROR_INTERNET_SEC_CERT_CN_INVALID;
  }
  switch (FlagOf(static_cast<int>(result))) {
    case SECURITY_FLAG_IGNORE_CERT_DATE_INVALID:
      return ERROR_INTERNET_SEC_CERT_DATE_INVALID;
    case SECURITY_FLAG_IGNORE_CERT_CN_INVALID:
      return ERROR_INTERNET_SEC_CERT_CN_INVALID;
    default:
      return ERROR_INTERNET_INVALID_CA;
  }
}

}  // namespace quarnfc::internet
