// The library's own module.
#ifndef QUARNFC_PLATFORM_MODULE_H_
#define QUARNFC_PLATFORM_MODULE_H_

namespace quarnfc {

// The handle the entry routine was given when the module was loaded.
void* ModuleHandle();

}  // namespace quarnfc

#endif  // QUARNFC_PLATFORM_MODULE_H_
