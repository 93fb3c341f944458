// SPDX-License-Identifier: MIT
// The text of one number by a conversion specification, as the run-time library's printf family on
// Windows writes it. Widths, and the precisions of integers, never reach the platform's printf:
// some take stack in proportion to them. Digits come first, padding is added here.
#ifndef QUARNFC_CORE_TEXT_FORMAT_NUMBER_H_
#define QUARNFC_CORE_TEXT_FORMAT_NUMBER_H_

#include "core/text/format_spec.h"
#include "core/text/formatted_text.h"

namespace quarnfc {

// Appends an integer: conversions d and i (signed), u, o, x and X (unsigned). All throw
// std::bad_alloc when the width or precision asks for more than there is memory.
void AppendSigned(FormattedText& text, const FormatSpec& spec, long long value);
void AppendUnsigned(FormattedText& text, const FormatSpec& spec, unsigned long long value);

// Appends a floating-point number: conversions e, E, f, g and G. Infinities and what is not a
// number are spelled "inf", "nan" and "-nan(ind)" whatever the C library's own spelling is.
void AppendFloat(FormattedText& text, const FormatSpec& spec, double value);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_FORMAT_NUMBER_H_
