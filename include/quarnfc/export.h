// Export and visibility: the one place that decides which names leave the module.
#ifndef QUARNFC_EXPORT_H_
#define QUARNFC_EXPORT_H_

#if defined(_WIN32)
#if defined(QUARNFC_BUILDING)
#define QN_API __declspec(dllexport)
#else
#define QN_API __declspec(dllimport)
#endif
#else
#define QN_API __attribute__((visibility("default")))
#endif

// QN_PLAIN_API marks functions that leave the module under their plain, undecorated name.
#if defined(__cplusplus)
#define QN_PLAIN_API extern "C" QN_API
#else
#define QN_PLAIN_API QN_API
#endif

#endif  // QUARNFC_EXPORT_H_
