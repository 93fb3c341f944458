// SPDX-License-Identifier: MIT
#include "tests/net/failing_curl.h"

#include <map>

#include "tests/failing_memory/linker_names.h"

namespace {

std::string g_refused;
int g_refused_call = 0;
CURLoption g_refused_option = CURLOPT_LASTENTRY;
const long* g_number = nullptr;
std::map<std::string, int> g_calls;

bool IsRefused(const std::string& function) {
  return ++g_calls[function] == g_refused_call && function == g_refused;
}

}  // namespace

namespace failing_curl {

void Refuse(const std::string& function, int nth) {
  g_refused = function;
  g_refused_call = nth;
  g_refused_option = CURLOPT_LASTENTRY;
  g_calls.clear();
}

void RefuseOption(CURLoption option) { g_refused_option = option; }

void Tell(const long* number) { g_number = number; }

int Calls(const std::string& function) { return g_calls[function]; }

}  // namespace failing_curl

// Calls of these functions arrive at the wrapped ones, and the real ones are libcurl's.

CURL* RealEasyInit() REAL("curl_easy_init");
CURL* WrappedEasyInit() WRAPPED("curl_easy_init");
CURL* WrappedEasyInit() { return IsRefused("curl_easy_init") ? nullptr : RealEasyInit(); }

CURLM* RealMultiInit() REAL("curl_multi_init");
CURLM* WrappedMultiInit() WRAPPED("curl_multi_init");
CURLM* WrappedMultiInit() { return IsRefused("curl_multi_init") ? nullptr : RealMultiInit(); }

CURLMcode RealAddHandle(CURLM* multi, CURL* easy) REAL("curl_multi_add_handle");
CURLMcode WrappedAddHandle(CURLM* multi, CURL* easy) WRAPPED("curl_multi_add_handle");
CURLMcode WrappedAddHandle(CURLM* multi, CURL* easy) {
  return IsRefused("curl_multi_add_handle") ? CURLM_OUT_OF_MEMORY : RealAddHandle(multi, easy);
}

CURLU* RealUrl() REAL("curl_url");
CURLU* WrappedUrl() WRAPPED("curl_url");
CURLU* WrappedUrl() { return IsRefused("curl_url") ? nullptr : RealUrl(); }

CURLUcode RealUrlSet(CURLU* url, CURLUPart part, const char* text, unsigned int flags)
    REAL("curl_url_set");
CURLUcode WrappedUrlSet(CURLU* url, CURLUPart part, const char* text, unsigned int flags)
    WRAPPED("curl_url_set");
CURLUcode WrappedUrlSet(CURLU* url, CURLUPart part, const char* text, unsigned int flags) {
  return IsRefused("curl_url_set") ? CURLUE_OUT_OF_MEMORY : RealUrlSet(url, part, text, flags);
}

curl_slist* RealAppend(curl_slist* list, const char* text) REAL("curl_slist_append");
curl_slist* WrappedAppend(curl_slist* list, const char* text) WRAPPED("curl_slist_append");
curl_slist* WrappedAppend(curl_slist* list, const char* text) {
  return IsRefused("curl_slist_append") ? nullptr : RealAppend(list, text);
}

// These two take any argument; each has the size of a pointer.

CURLcode RealSetOption(CURL* easy, CURLoption option, void* value) REAL("curl_easy_setopt");
CURLcode WrappedSetOption(CURL* easy, CURLoption option, void* value) WRAPPED("curl_easy_setopt");
CURLcode WrappedSetOption(CURL* easy, CURLoption option, void* value) {
  return option == g_refused_option ? CURLE_UNKNOWN_OPTION : RealSetOption(easy, option, value);
}

CURLcode RealGetInfo(CURL* easy, CURLINFO info, void* answer) REAL("curl_easy_getinfo");
CURLcode WrappedGetInfo(CURL* easy, CURLINFO info, void* answer) WRAPPED("curl_easy_getinfo");
CURLcode WrappedGetInfo(CURL* easy, CURLINFO info, void* answer) {
  if (g_number == nullptr) return RealGetInfo(easy, info, answer);
  *static_cast<long*>(answer) = *g_number;
  return CURLE_OK;
}
