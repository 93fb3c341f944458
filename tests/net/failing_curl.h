// SPDX-License-Identifier: MIT
// libcurl that fails on demand: its functions pass through here, where a test refuses them or
// answers in their place.
#ifndef QUARNFC_TESTS_NET_FAILING_CURL_H_
#define QUARNFC_TESTS_NET_FAILING_CURL_H_

#include <curl/curl.h>

#include <string>

namespace failing_curl {

// The nth call of a function fails from now on, as that function says that it fails; "" for none.
void Refuse(const std::string& function, int nth = 1);

// The same for setting an option.
void RefuseOption(CURLoption option);

// What curl_easy_getinfo says about numbers from now on, whatever it is asked; none when null.
void Tell(const long* number);

// How many calls of a function there were since the last Refuse.
int Calls(const std::string& function);

}  // namespace failing_curl

#endif  // QUARNFC_TESTS_NET_FAILING_CURL_H_
