// Inheritance of context values.
#ifndef QUARNFC_NET_INHERITED_CONTEXT_H_
#define QUARNFC_NET_INHERITED_CONTEXT_H_

#include <quarnfc/platform_types.h>

namespace quarnfc::net {

// The context value that means "that of the object above".
constexpr unsigned __int64 kInheritContext = 1;

constexpr unsigned __int64 ResolveContext(unsigned __int64 context, unsigned __int64 inherited) {
  return context == kInheritContext ? inherited : context;
}

}  // namespace quarnfc::net

#endif  // QUARNFC_NET_INHERITED_CONTEXT_H_
