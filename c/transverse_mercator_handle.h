// SPDX-License-Identifier: MIT
// What a handle of an exact transverse Mercator system stands for.
#ifndef QUARNFC_C_TRANSVERSE_MERCATOR_HANDLE_H_
#define QUARNFC_C_TRANSVERSE_MERCATOR_HANDLE_H_

#include <quarnfc/c/transverse_mercator.h>
#include <quarnfc/ext/transverse_mercator.h>

struct QncTransverseMercator {
  quarnfc::ext::TransverseMercator projection;
};

#endif  // QUARNFC_C_TRANSVERSE_MERCATOR_HANDLE_H_
