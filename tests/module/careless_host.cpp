// SPDX-License-Identifier: MIT
// A host that is warned about its own code; a test sees that it is.
#include <quarnfc/quarnfc.h>

class Listener {
 public:
  virtual void Listen();
};

void Stop(Listener* listener) { delete listener; }
