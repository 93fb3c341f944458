// SPDX-License-Identifier: MIT
// Functions of libcurl's and OpenSSL's names that lead to those of the loaded library: what calls
// them is written, and tested, as if it were linked with libcurl. OpenSSL's are looked up through
// libcurl, so that they are those of the OpenSSL that libcurl itself uses.
#include "platform/posix/internet/late_curl.h"

#include <curl/curl.h>
#include <dlfcn.h>
#include <openssl/ssl.h>

#include <cstdarg>
#include <mutex>

// FUNCTION(result, name, parameters, arguments) for each function whose arguments are of one type.
#define QN_LATE_FUNCTIONS(FUNCTION)                                                             \
  FUNCTION(void, curl_easy_cleanup, (CURL * easy), (easy))                                      \
  FUNCTION(CURL*, curl_easy_init, (), ())                                                       \
  FUNCTION(CURLcode, curl_easy_pause, (CURL * easy, int mask), (easy, mask))                    \
  FUNCTION(CURLcode, curl_global_init, (long flags), (flags))                                   \
  FUNCTION(CURLMcode, curl_multi_add_handle, (CURLM * multi, CURL * easy), (multi, easy))       \
  FUNCTION(CURLMcode, curl_multi_cleanup, (CURLM * multi), (multi))                             \
  FUNCTION(CURLMsg*, curl_multi_info_read, (CURLM * multi, int* left), (multi, left))           \
  FUNCTION(CURLM*, curl_multi_init, (), ())                                                     \
  FUNCTION(CURLMcode, curl_multi_perform, (CURLM * multi, int* running), (multi, running))      \
  FUNCTION(CURLMcode, curl_multi_poll,                                                          \
           (CURLM * multi, curl_waitfd * more, unsigned int count, int timeout, int* ready),    \
           (multi, more, count, timeout, ready))                                                \
  FUNCTION(CURLMcode, curl_multi_remove_handle, (CURLM * multi, CURL * easy), (multi, easy))    \
  FUNCTION(CURLMcode, curl_multi_wakeup, (CURLM * multi), (multi))                              \
  FUNCTION(curl_slist*, curl_slist_append, (curl_slist * list, const char* text), (list, text)) \
  FUNCTION(void, curl_slist_free_all, (curl_slist * list), (list))                              \
  FUNCTION(int, curl_strnequal, (const char* left, const char* right, std::size_t size),        \
           (left, right, size))                                                                 \
  FUNCTION(CURLU*, curl_url, (), ())                                                            \
  FUNCTION(void, curl_url_cleanup, (CURLU * url), (url))                                        \
  FUNCTION(CURLUcode, curl_url_set,                                                             \
           (CURLU * url, CURLUPart part, const char* text, unsigned int flags),                 \
           (url, part, text, flags))                                                            \
  FUNCTION(int, CRYPTO_get_ex_new_index,                                                        \
           (int kind, long number, void* pointer, CRYPTO_EX_new* make, CRYPTO_EX_dup* copy,     \
            CRYPTO_EX_free* drop),                                                              \
           (kind, number, pointer, make, copy, drop))                                           \
  FUNCTION(void*, SSL_CTX_get_ex_data, (const SSL_CTX* context, int index), (context, index))   \
  FUNCTION(int, SSL_CTX_set_ex_data, (SSL_CTX * context, int index, void* data),                \
           (context, index, data))                                                              \
  FUNCTION(void, SSL_CTX_set_verify, (SSL_CTX * context, int mode, SSL_verify_cb callback),     \
           (context, mode, callback))                                                           \
  FUNCTION(SSL_CTX*, SSL_get_SSL_CTX, (const SSL* ssl), (ssl))                                  \
  FUNCTION(int, SSL_get_ex_data_X509_STORE_CTX_idx, (), ())                                     \
  FUNCTION(int, X509_STORE_CTX_get_error, (const X509_STORE_CTX* store), (store))               \
  FUNCTION(void*, X509_STORE_CTX_get_ex_data, (const X509_STORE_CTX* store, int index),         \
           (store, index))                                                                      \
  FUNCTION(void, X509_STORE_CTX_set_error, (X509_STORE_CTX * store, int error), (store, error))

namespace quarnfc::internet {
namespace {

// The functions in the loaded library.
#define QN_POINTER(result, name, parameters, arguments) result(*g_##name) parameters = nullptr;
QN_LATE_FUNCTIONS(QN_POINTER)
#undef QN_POINTER
CURLcode (*g_curl_easy_getinfo)(CURL* easy, CURLINFO info, ...) = nullptr;
CURLcode (*g_curl_easy_setopt)(CURL* easy, CURLoption option, ...) = nullptr;

template <class Pointer>
bool Find(void* library, const char* name, Pointer& function) {
  function = reinterpret_cast<Pointer>(dlsym(library, name));
  return function != nullptr;
}

bool FindAll(void* library) {
  bool all = Find(library, "curl_easy_getinfo", g_curl_easy_getinfo);
  all &= Find(library, "curl_easy_setopt", g_curl_easy_setopt);
#define QN_FIND(result, name, parameters, arguments) all &= Find(library, #name, g_##name);
  QN_LATE_FUNCTIONS(QN_FIND)
#undef QN_FIND
  return all;
}

bool Load() {
  void* library = dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return false;
  if (FindAll(library) && g_curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK) {
    return true;  // and never unloaded: it has threads' data and an end of its own
  }
  dlclose(library);
  return false;
}

}  // namespace

bool LoadCurl() {
  static std::mutex mutex;
  static bool loaded = false;
  const std::lock_guard lock(mutex);
  if (!loaded) loaded = Load();
  return loaded;
}

}  // namespace quarnfc::internet

extern "C" {

#define QN_FORWARD(result, name, parameters, arguments) \
  result name parameters { return quarnfc::internet::g_##name arguments; }
QN_LATE_FUNCTIONS(QN_FORWARD)
#undef QN_FORWARD

// These two take an argument of any type; each has the size of a pointer and is passed like one.
static_assert(sizeof(void*) == sizeof(long) && sizeof(void*) == sizeof(curl_off_t));
// An enumeration is passed like the int that it would be promoted to, in C, where it is declared
// so.
#pragma GCC diagnostic ignored "-Wvarargs"

CURLcode(curl_easy_getinfo)(CURL* easy, CURLINFO info, ...) {
  va_list arguments;
  va_start(arguments, info);
  void* answer = va_arg(arguments, void*);
  va_end(arguments);
  return quarnfc::internet::g_curl_easy_getinfo(easy, info, answer);
}

CURLcode(curl_easy_setopt)(CURL* easy, CURLoption option, ...) {
  va_list arguments;
  va_start(arguments, option);
  void* value = va_arg(arguments, void*);
  va_end(arguments);
  return quarnfc::internet::g_curl_easy_setopt(easy, option, value);
}

}  // extern "C"
