/* SPDX-License-Identifier: MIT */
/* A libcurl that lacks the functions of later ones. */
const char* curl_version(void);
const char* curl_version(void) { return "libcurl/7.0"; }
