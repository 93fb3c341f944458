// SPDX-License-Identifier: MIT
// Owners of the flat C interface's handles of coordinate systems and projections.
#ifndef QUARNFC_TESTS_C_HANDLES_H_
#define QUARNFC_TESTS_C_HANDLES_H_

#include <quarnfc/c/geodesy.h>
#include <quarnfc/c/transverse_mercator.h>

#include <memory>

namespace c_results {

struct Free {
  void operator()(QncGeographic* system) const { qncGeographicFree(system); }
  void operator()(QncProjected* system) const { qncProjectedFree(system); }
  void operator()(QncTransverseMercator* system) const { qncTransverseMercatorFree(system); }
};
using Geographic = std::unique_ptr<QncGeographic, Free>;
using Projected = std::unique_ptr<QncProjected, Free>;
using Transverse = std::unique_ptr<QncTransverseMercator, Free>;

}  // namespace c_results

#endif  // QUARNFC_TESTS_C_HANDLES_H_
