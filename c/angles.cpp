// SPDX-License-Identifier: MIT
#include <quarnfc/c/angles.h>
#include <quarnfc/ext/sexagesimal.h>

#include <string>

#include "c/guarded.h"
#include "c/text.h"

using quarnfc::c::Failure;
using quarnfc::c::GuardedNew;
using quarnfc::c::NewText;

int qncReadAngle(const char* text, double* angle) {
  if (text == nullptr || angle == nullptr) return 0;
  return quarnfc::ext::ReadAngle(text, *angle) ? 1 : 0;
}

char* qncWriteAngle(double angle, int decimals, const char* degree_sign, CQNObject** error) {
  return GuardedNew(error, [=] {
    const std::string text =
        quarnfc::ext::WriteAngle(angle, decimals, degree_sign == nullptr ? "d" : degree_sign);
    if (text.empty()) throw Failure(QNC_ERROR_ARGUMENT, "Quarn: the angle is out of its range");
    return NewText(text);
  });
}

int qncFromPackedAngle(double packed, double* angle) {
  if (angle == nullptr) return 0;
  return quarnfc::ext::FromPackedAngle(packed, *angle) ? 1 : 0;
}

double qncToPackedAngle(double angle) { return quarnfc::ext::ToPackedAngle(angle); }
