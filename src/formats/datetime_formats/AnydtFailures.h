#pragma once

// Where the free-form reader reports its broken invariants: one source path and fixed line numbers,
// so that a report names the same place whichever file of the reader the check sits in.
namespace kivo::anydt::failure {

inline constexpr const char* SOURCE = "src/formats/datetime_formats/AnydtInformats";

inline constexpr int ILLEGAL_DATESTYLE_LINE = 77;
inline constexpr int TIME_TOO_FEW_VALUES_LINE = 345;
inline constexpr int TIME_TOO_MANY_VALUES_LINE = 346;
inline constexpr int THREE_NUMBER_STYLE_LINE = 383;
inline constexpr int THREE_NUMBER_DDMMYY_LINE = 389;
inline constexpr int THREE_NUMBER_MMDDYY_LINE = 393;
inline constexpr int THREE_NUMBER_YYMMDD_LINE = 397;
inline constexpr int DIGIT_RUN_LENGTH_LINE = 418;
inline constexpr int DIGIT_RUN_SEPARATOR_LINE = 419;
inline constexpr int DIGIT_RUN_DDMMYY_LINE = 487;
inline constexpr int DIGIT_RUN_MMDDYY_LINE = 491;
inline constexpr int DIGIT_RUN_YYMMDD_LINE = 495;
inline constexpr int DIGIT_RUN_STYLE_LINE = 509;

}  // namespace kivo::anydt::failure
