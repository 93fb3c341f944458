// SPDX-License-Identifier: MIT
// The relaxations of certificates, one by one.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_CURL_CERTIFICATES_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_CURL_CERTIFICATES_H_

#include <curl/curl.h>
#include <quarnfc/platform_types.h>

namespace quarnfc::internet {

// Makes an easy handle accept what the SECURITY_FLAG_IGNORE_ flags name, and nothing else. False
// when libcurl is built without OpenSSL, which this takes.
bool RelaxCertificates(CURL* easy, DWORD& security_flags);

// Why a certificate was refused: 12037, 12038 or 12045.
DWORD CertificateError(CURL* easy);

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_CURL_CERTIFICATES_H_
