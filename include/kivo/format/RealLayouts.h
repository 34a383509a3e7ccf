#pragma once

#include "kivo/Export.h"
#include "kivo/format/FormatRealFields.h"

// The layouts of a real number in a field of a given width: BEST (as many significant digits as fit),
// D (a chosen count of significant decimals), E (scientific), percent and the plain blank layout with
// fixed decimals. Each fills a cleared record; a number that does not fit leaves leadingBlanks < 0 and
// the caller writes its overflow fill. Otherwise outputReal writes exactly `width` characters.
//
// e is the decimal exponent of x, floor(log10(x)); the small, medium and large routines are the
// entries for x below 1, from 1 to the width's reach, and beyond it. Each example gives the text
// outputReal(out, '.', '-', BEFORE) writes of the record.
namespace kivo::format {

// Example: getRealForBestFormat(1234.5678, 6) -> "1234.6"
KIVO_EXPORT void getRealForBestFormat(double x, int width, FormatRealFields& fields);
// Example: getSmallRealForBestFormat(1.23e-7, 5, -7) -> "12E-8"
KIVO_EXPORT void getSmallRealForBestFormat(double x, int width, int e, FormatRealFields& fields);
// Example: getMediumRealForBestFormat(123456.789, 12, 5) -> "  123456.789"
KIVO_EXPORT void getMediumRealForBestFormat(double x, int width, int e, FormatRealFields& fields);
// Example: getLargeRealForBestFormat(1.5e12, 6, 12) -> " 15E11"
KIVO_EXPORT void getLargeRealForBestFormat(double x, int width, int e, FormatRealFields& fields);

// Example: getRealForBlankFormat(12.345, 7, 2) -> "  12.35"
KIVO_EXPORT void getRealForBlankFormat(double x, int width, int decimals, FormatRealFields& fields);
// Example: getMediumRealForBlankFormat(2.5, 6, 2, 0) -> "  2.50"
KIVO_EXPORT void getMediumRealForBlankFormat(double x, int width, int decimals, int e, FormatRealFields& fields);
// Also promised to the HOUR format: for any x > 0 whose integer part is longer than the width, a
// complete record in exponent notation, or leadingBlanks -1 when even that cannot fit.
// Example: getLargeRealForBlankFormat(1000, 3, 3) -> "1E3"
KIVO_EXPORT void getLargeRealForBlankFormat(double x, int width, int e, FormatRealFields& fields);

// Example: getRealForDFormat(3.14159, 8, 3) -> "  3.1416"
KIVO_EXPORT void getRealForDFormat(double x, int width, int decimals, FormatRealFields& fields);
// Digits after the point for the medium D layout, or one of the codes below.
// Example: dFormatDigitsAfterPoint(8, 3, 0, false) -> 4
KIVO_EXPORT int dFormatDigitsAfterPoint(int width, int decimals, int e, bool negative);
inline constexpr int D_USE_LARGE_BLANK = 100;
inline constexpr int D_USE_SMALL = 101;
inline constexpr int D_DOES_NOT_FIT = 102;
// Example: getSmallRealForDFormat(1.23e-7, 6, -7) -> "123E-9"
KIVO_EXPORT void getSmallRealForDFormat(double x, int width, int e, FormatRealFields& fields);
// False when rounding carried the integer part one place longer but still within the width: the
// caller then lays out the next power of ten instead.
// Example: getMediumRealForDFormat(3.14159, 8, 3, 0, 4) -> "  3.1416"
KIVO_EXPORT bool getMediumRealForDFormat(double x, int width, int decimals, int e, int digitsAfterPoint,
                                         FormatRealFields& fields);

// Example: getRealForEFormat(1234.5, 10) -> " 1.235E+03"
KIVO_EXPORT void getRealForEFormat(double x, int width, FormatRealFields& fields);
// Example: getSmallRealForEFormat(0.00012, false, 10, -4) -> " 1.200E-04"
KIVO_EXPORT void getSmallRealForEFormat(double x, bool negative, int width, int e, FormatRealFields& fields);
// Example: getLargeRealForEFormat(1234.5, false, 10, 3) -> " 1.235E+03"
KIVO_EXPORT void getLargeRealForEFormat(double x, bool negative, int width, int e, FormatRealFields& fields);

// x is the magnitude, already scaled to percent by the caller, which also shows the sign and "%".
// Example: getRealForPercentFormat(12.5, 6, 1) -> "  12.5"
KIVO_EXPORT void getRealForPercentFormat(double x, int width, int decimals, FormatRealFields& fields);
// Example: getSmallRealForPercentFormat(0.0012, 8, -3) -> "  1.2E-3"
KIVO_EXPORT void getSmallRealForPercentFormat(double x, int width, int e, FormatRealFields& fields);

// Example: getZeroRealRightAligned(4) -> "   0"
KIVO_EXPORT void getZeroRealRightAligned(int width, FormatRealFields& fields);
// Example: getZeroRealforEFormat(10) -> " 0.000E+00"
KIVO_EXPORT void getZeroRealforEFormat(int width, FormatRealFields& fields);

}  // namespace kivo::format
