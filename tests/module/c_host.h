/* SPDX-License-Identifier: MIT */
/* The part of the C host that is written in C++. */
#ifndef QUARNFC_TESTS_MODULE_C_HOST_H_
#define QUARNFC_TESTS_MODULE_C_HOST_H_

#if defined(__cplusplus)
extern "C"
#endif
    /* An error handle from QNErrorUtils::CreateError. */
    unsigned long long
    MakeError(int code, const char* message);

#endif /* QUARNFC_TESTS_MODULE_C_HOST_H_ */
