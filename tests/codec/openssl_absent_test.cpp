// SPDX-License-Identifier: MIT
// Stands in for openssl_peer_test.cpp where OpenSSL is not at hand, so that the gap shows.
#include <gtest/gtest.h>

namespace {

TEST(OpenSslPeer, NotAvailable) { GTEST_SKIP() << "built without OpenSSL (libssl-dev)"; }

}  // namespace
