// Export and visibility: the one place that decides which names leave the module. Everything that
// is not marked with one of these two is hidden. Hosts have no use for them.
#ifndef QUARNFC_EXPORT_H_
#define QUARNFC_EXPORT_H_

// QN_API marks classes and functions of the C++ interface. QUARNFC_BUILDING is defined while the
// library itself is compiled, and never by hosts.
#if defined(_WIN32)
#if defined(QUARNFC_BUILDING)
#define QN_API __declspec(dllexport)
#else
#define QN_API __declspec(dllimport)
#endif
#else
#define QN_API __attribute__((visibility("default")))
#endif

// QN_PLAIN_API marks functions that leave the module under their plain, undecorated name, for hosts
// that resolve them by name and, where the signature allows it, for C.
#if defined(__cplusplus)
#define QN_PLAIN_API extern "C" QN_API
#else
#define QN_PLAIN_API QN_API
#endif

// Whether standard containers may pass between host and library. With the Microsoft C++ ABI they
// may not: every compiler version and setting has its own. The functions that take one are then
// compiled into the host.
#if defined(_MSC_VER)
#define QN_CONTAINERS_CROSS 0
#else
#define QN_CONTAINERS_CROSS 1
#endif

#endif  // QUARNFC_EXPORT_H_
