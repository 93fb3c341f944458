// SPDX-License-Identifier: MIT
// Export and visibility: the one place that decides which names leave the module. Everything that
// is not marked with QN_API or QN_PLAIN_API is hidden. Hosts have no use for these two; the
// switches below are theirs, and QN_FORMAT lets the compiler check their own functions as it checks
// Format.
//
// Example:
//   struct Log {
//     QN_FORMAT(1, 2) static CQNString Line(const char* format, ...) {
//       va_list arguments;
//       va_start(arguments, format);
//       CQNString line;
//       line.FormatV(format, arguments);
//       va_end(arguments);
//       return line;
//     }
//   };
//   Log::Line("%d of %s", 3, "x");    // == "3 of x"
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

// Copying a CMyJsonValue or a CMyJsonObj by constructor or assignment shares its record, and
// destroying both copies is a fault. A host that defines QUARNFC_WARN_SHARING_COPIES before it
// includes any header of this library is warned of every such copy when it is compiled.
#if defined(__cplusplus) && defined(QUARNFC_WARN_SHARING_COPIES)
#define QN_SHARING_COPY [[deprecated("the copy shares its record; use Clone or CopyFrom")]]
#else
#define QN_SHARING_COPY
#endif

// The compiler compares the arguments of a Format function with its format, where it can.
// Conversions of this library that it does not know (%I64d, %hs, %Lf of a double, depending on the
// compiler) give warnings then: define QUARNFC_UNCHECKED_FORMAT to switch the comparison off.
// Objects of a class are refused in any case.
#if defined(QUARNFC_UNCHECKED_FORMAT) || !defined(__GNUC__)
#define QN_FORMAT(text, first)
#elif defined(_WIN32) && !defined(__clang__)
#define QN_FORMAT(text, first) __attribute__((format(ms_printf, text, first)))
#else
#define QN_FORMAT(text, first) __attribute__((format(printf, text, first)))
#endif

// Refuses calls of a function whose text is UTF-16 in hosts with wider wide characters.
#if defined(__GNUC__) && defined(__WCHAR_MAX__) && __WCHAR_MAX__ > 0xFFFF
#define QN_WIDE_TEXT __attribute__((error("compile with -fshort-wchar, as QuarnFC::QuarnFC asks")))
#else
#define QN_WIDE_TEXT
#endif

#endif  // QUARNFC_EXPORT_H_
