// SPDX-License-Identifier: MIT
// What handles of HTTP responses stand for, and what one-call HTTP has in common.
#ifndef QUARNFC_C_HTTP_HANDLE_H_
#define QUARNFC_C_HTTP_HANDLE_H_

#include <quarnfc/c/http.h>
#include <quarnfc/ext/http_response.h>

#include <vector>

struct QncHttpResponse {
  quarnfc::ext::HttpResponse response;
};

namespace quarnfc::c {

// A handle of a response; throws Failure for one that failed.
QncHttpResponse* NewResponse(ext::HttpResponse response);

// The headers that stand in lines, which may be null. Throws Failure when one has no name.
std::vector<ext::HttpHeader> HeadersOf(const char* lines);

}  // namespace quarnfc::c

#endif  // QUARNFC_C_HTTP_HANDLE_H_
