/* SPDX-License-Identifier: MIT */
/* Angles as degrees, minutes and seconds in the flat C interface (quarnfc.h in this folder says how
 * everything works). Independent of the locale; any thread may call.
 *
 * Read are, with blanks where they do not separate digits:
 *   114d03'27.5"E   E 114 3 27.5   -114:03:27.5   114d3.5'   114.0576
 * with these signs or those of print, in UTF-8 or code page 936. A sign or one hemisphere letter
 * (N, E positive; S, W negative), not both; minutes and seconds below 60; only the last number may
 * have decimals.
 *
 * The packed form DDD.MMSSsss, as surveyors key it in, is a number, and has functions of its own
 * since it looks like decimal degrees.
 *
 * Example:
 *   double angle = 0;
 *   qncReadAngle("30d35'34.1\"N", &angle);    // == 1
 *   char* text = qncWriteAngle(angle, 2, NULL, NULL);
 *   text;                                     // == "30d35'34.10\""
 *   qnFreeMem(text);
 *   qncFromPackedAngle(114.3, &angle);        // == 1
 *   angle;                                    // == 114.5
 */
#ifndef QUARNFC_C_ANGLES_H_
#define QUARNFC_C_ANGLES_H_

#include <quarnfc/c/base.h>

/* Reads an angle in degrees. 1, or 0, with *angle untouched, for anything but one of the forms
 * above and for null. */
QN_PLAIN_API int qncReadAngle(const char* text, double* angle);

/* An angle in degrees as 114d03'27.50": minutes and seconds with two digits, and 0 to 9 decimals of
 * the seconds (more count as 9, fewer as none). degree_sign stands behind the degrees: any text, or
 * null for "d". Null with QNC_ERROR_ARGUMENT for angles that are not finite or beyond a million
 * degrees. */
QN_PLAIN_API char* qncWriteAngle(double angle, int decimals, const char* degree_sign,
                                 CQNObject** error);

/* The angle in degrees that a packed number stands for: 114.3 is 114 degrees 30 minutes. Digits are
 * taken to a billionth of the packed number (0.01 milliseconds of arc). 1, or 0, with *angle
 * untouched, when its minutes or seconds are 60 or more, when it is not finite or beyond a million,
 * and for null. */
QN_PLAIN_API int qncFromPackedAngle(double packed, double* angle);

/* The packed form of an angle in degrees, seconds rounded to 5 decimals; not-a-number for angles
 * that are not finite or beyond a million degrees. */
QN_PLAIN_API double qncToPackedAngle(double angle);

#endif /* QUARNFC_C_ANGLES_H_ */
