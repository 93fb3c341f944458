// SPDX-License-Identifier: MIT
// Without internet functions of the library's own there is no memory of theirs to refuse: the
// classes above the platform's are tested over a stand-in (tests/net).
#include "tests/failing_memory/scenario.h"

namespace failing {

Scenarios HttpScenarios() { return {}; }

}  // namespace failing
