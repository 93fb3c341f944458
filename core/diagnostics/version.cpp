// SPDX-License-Identifier: MIT
#include <quarnfc/version.h>

unsigned int qnGetVersion() { return QUARNFC_VERSION_NUMBER; }
