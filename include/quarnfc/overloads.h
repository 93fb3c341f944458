// SPDX-License-Identifier: MIT
// Which types the templates of strings and JSON classes take, so that no argument becomes a bool,
// or a number of another kind, unseen. Nothing here leaves the module.
//
// Example:
//   quarnfc::overloads::CutToInteger<unsigned char>(255.9);     // == 255
//   quarnfc::overloads::CutToInteger<short>(-40000);            // == -32768
#ifndef QUARNFC_OVERLOADS_H_
#define QUARNFC_OVERLOADS_H_

#include <cmath>
#include <cstddef>
#include <limits>
#include <new>
#include <string_view>
#include <type_traits>

namespace quarnfc::overloads {

// An integer type without an overload of its own; bool and int have one.
template <class T>
using IfInteger =
    std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, bool> && !std::is_same_v<T, int>,
                     int>;

// The type of nullptr.
template <class T>
using IfNull = std::enable_if_t<std::is_same_v<T, std::nullptr_t>, int>;

// A pointer of a type that none of the overloads takes. Without more it would convert to bool.
template <class T, class... Taken>
using IfForeignPointer = std::enable_if_t<(std::is_pointer_v<T> || std::is_member_pointer_v<T>)&&!(
                                              std::is_convertible_v<T, Taken> || ...),
                                          int>;

// What a std::string_view can be made of, other than a pointer, which has an overload of its own.
template <class T>
using IfView = std::enable_if_t<std::is_convertible_v<const T&, std::string_view> &&
                                    !std::is_convertible_v<const T&, const char*>,
                                int>;

// Arguments of which one is an object of a class.
template <class... T>
using IfAnyClass = std::enable_if_t<(... || (std::is_class_v<std::remove_reference_t<T>> ||
                                             std::is_union_v<std::remove_reference_t<T>>)),
                                    int>;

// A length as the int it is kept in; std::bad_alloc when it does not fit.
inline int CheckedLength(std::size_t length) {
  if (length > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
  return static_cast<int>(length);
}

// The number cut to an integer, toward zero; beyond the range of the type its nearest end, and 0
// for a NaN.
template <class Integer>
Integer CutToInteger(double number) {
  if (std::isnan(number)) return 0;
  // As a double the largest value of a wide type is rounded up, out of its range.
  if (number >= static_cast<double>(std::numeric_limits<Integer>::max())) {
    return std::numeric_limits<Integer>::max();
  }
  if (number <= static_cast<double>(std::numeric_limits<Integer>::min())) {
    return std::numeric_limits<Integer>::min();
  }
  return static_cast<Integer>(number);
}

}  // namespace quarnfc::overloads

#endif  // QUARNFC_OVERLOADS_H_
