// SPDX-License-Identifier: MIT
#include "platform/posix/internet/curl_errors.h"

#include <quarnfc/internet_api.h>

#include <cerrno>

#include "platform/posix/internet/curl_certificates.h"

namespace quarnfc::internet {
namespace {

// The number that Windows sockets give a reset connection, which hosts see there too.
constexpr DWORD kConnectionReset = 10054;

DWORD BrokenConnection(CURL* easy) {
  long os_error = 0;
  curl_easy_getinfo(easy, CURLINFO_OS_ERRNO, &os_error);
  return os_error == ECONNRESET || os_error == EPIPE ? kConnectionReset
                                                     : ERROR_INTERNET_CONNECTION_ABORTED;
}

}  // namespace

DWORD ErrorOf(CURL* easy, CURLcode code) {
  switch (code) {
    case CURLE_OK:
      return 0;
    case CURLE_URL_MALFORMAT:
      return ERROR_INTERNET_INVALID_URL;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
      return ERROR_INTERNET_NAME_NOT_RESOLVED;
    case CURLE_COULDNT_CONNECT:
    case CURLE_PROXY:
      return ERROR_INTERNET_CANNOT_CONNECT;
    case CURLE_OPERATION_TIMEDOUT:
      return ERROR_INTERNET_TIMEOUT;
    case CURLE_OUT_OF_MEMORY:
      return ERROR_NOT_ENOUGH_MEMORY;
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
    case CURLE_GOT_NOTHING:
      return BrokenConnection(easy);
    case CURLE_SSL_CONNECT_ERROR:
      return ERROR_INTERNET_SECURITY_CHANNEL_ERROR;
    case CURLE_PEER_FAILED_VERIFICATION:
      return CertificateError(easy);
    case CURLE_ABORTED_BY_CALLBACK:
      return ERROR_INTERNET_OPERATION_CANCELLED;
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_WRITE_ERROR:
    case CURLE_BAD_CONTENT_ENCODING:
      return ERROR_HTTP_INVALID_SERVER_RESPONSE;
    default:
      return ERROR_INTERNET_CONNECTION_ABORTED;
  }
}

}  // namespace quarnfc::internet
