#pragma once

#include "kivo/Export.h"
#include "kivo/format/FormatRealFields.h"

// The layouts of a real number in a field of a given width: BEST (as many significant digits as fit),
// D (a chosen count of significant decimals), E (scientific), percent and the plain blank layout with
// fixed decimals. Each fills a cleared record; a number that does not fit leaves leadingBlanks < 0 and
// the caller writes its overflow fill. Otherwise outputReal writes exactly `width` characters.
namespace kivo::format {

KIVO_EXPORT void getRealForBestFormat(double x, int width, FormatRealFields& fields);
KIVO_EXPORT void getSmallRealForBestFormat(double x, int width, int e, FormatRealFields& fields);
KIVO_EXPORT void getMediumRealForBestFormat(double x, int width, int e, FormatRealFields& fields);
KIVO_EXPORT void getLargeRealForBestFormat(double x, int width, int e, FormatRealFields& fields);

KIVO_EXPORT void getRealForBlankFormat(double x, int width, int decimals, FormatRealFields& fields);
KIVO_EXPORT void getMediumRealForBlankFormat(double x, int width, int decimals, int e, FormatRealFields& fields);
// Also promised to the HOUR format: for any x > 0 whose integer part is longer than the width, a
// complete record in exponent notation, or leadingBlanks -1 when even that cannot fit.
KIVO_EXPORT void getLargeRealForBlankFormat(double x, int width, int e, FormatRealFields& fields);

KIVO_EXPORT void getRealForDFormat(double x, int width, int decimals, FormatRealFields& fields);
// Digits after the point for the medium D layout, or one of the codes below.
KIVO_EXPORT int dFormatDigitsAfterPoint(int width, int decimals, int e, bool negative);
inline constexpr int D_USE_LARGE_BLANK = 100;
inline constexpr int D_USE_SMALL = 101;
inline constexpr int D_DOES_NOT_FIT = 102;
KIVO_EXPORT void getSmallRealForDFormat(double x, int width, int e, FormatRealFields& fields);
// False when rounding carried the integer part one place longer but still within the width: the
// caller then lays out the next power of ten instead.
KIVO_EXPORT bool getMediumRealForDFormat(double x, int width, int decimals, int e, int digitsAfterPoint,
                                         FormatRealFields& fields);

KIVO_EXPORT void getRealForEFormat(double x, int width, FormatRealFields& fields);
KIVO_EXPORT void getSmallRealForEFormat(double x, bool negative, int width, int e, FormatRealFields& fields);
KIVO_EXPORT void getLargeRealForEFormat(double x, bool negative, int width, int e, FormatRealFields& fields);

// x is the magnitude, already scaled to percent by the caller, which also shows the sign.
KIVO_EXPORT void getRealForPercentFormat(double x, int width, int decimals, FormatRealFields& fields);
KIVO_EXPORT void getSmallRealForPercentFormat(double x, int width, int e, FormatRealFields& fields);

KIVO_EXPORT void getZeroRealRightAligned(int width, FormatRealFields& fields);
KIVO_EXPORT void getZeroRealforEFormat(int width, FormatRealFields& fields);

}  // namespace kivo::format
