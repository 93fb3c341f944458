// SPDX-License-Identifier: MIT
// The numbers of the internet functions: the platform's own on Windows, the library's elsewhere.
#ifndef QN_HTTP_API_H_
#define QN_HTTP_API_H_

#include <quarnfc/internet_api.h>

#if !defined(QUARNFC_SUPPLIES_INTERNET_API)
#include <windows.h>

#include <wininet.h>
#endif

#endif  // QN_HTTP_API_H_
