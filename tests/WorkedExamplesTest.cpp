// The worked examples of the public headers ("// Example: CALL -> RESULT") as a table: each row runs its
// call and must give its result, and the rows and the headers' examples must be the same list, so that
// a comment cannot go stale unseen.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <string>

#include "kivo/format/FormatRealFields.h"
#include "kivo/format/Missing.h"
#include "kivo/format/PackedDecimal.h"
#include "kivo/format/RealLayouts.h"
#include "kivo/format/datetime/DateWriters.h"
#include "kivo/format/datetime/TimeWriters.h"
#include "kivox/Missing.h"

namespace {

using namespace kivo::format;
using namespace kivo::format::datetime;

struct Example {
    const char* text;  // as the header writes it after "Example: "
    std::function<std::string()> run;
};

// What a writer puts at out, for the writers that take an output position.
template <class Write>
std::string written(Write write) {
    char buffer[64];
    char* out = buffer;
    write(out);
    return std::string(buffer, out);
}

// The text outputReal writes of the record a layout routine fills.
template <class LayOut>
std::string laidOut(LayOut layOut, FormatRealFields::NegativePosition where = FormatRealFields::BEFORE) {
    FormatRealFields fields;
    layOut(fields);
    return written([&](char*& out) { fields.outputReal(out, '.', '-', where); });
}

std::string quoted(const std::string& text) { return '"' + text + '"'; }

std::string field(int width, const std::function<void(char*)>& write) {
    char buffer[64];
    write(buffer);
    return quoted(std::string(buffer, static_cast<std::size_t>(width)));
}

std::string hex(const char* bytes, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += "0123456789ABCDEF"[static_cast<unsigned char>(bytes[i]) >> 4];
        text += "0123456789ABCDEF"[bytes[i] & 0xF];
    }
    return text;
}

const kivo::Date DAY(22356.0);
const double MISSING = kivo::lum_numeric::MISSING;

// clang-format off
const Example EXAMPLES[] = {
    {"doDateFormat(22356, 9) -> \"17MAR2021\"", [] { return quoted(written([](char*& o) { doDateFormat(DAY, o, 9); })); }},
    {"doYearFormat(22356, 6) -> \"  2021\"", [] { return quoted(written([](char*& o) { doYearFormat(DAY, o, 6); })); }},
    {"doDdmmyyxFormat(22356, 10, '/') -> \"17/03/2021\"", [] { return field(10, [](char* f) { doDdmmyyxFormat(22356, f, 10, '/'); }); }},
    {"doMmddyyx(22356, 8, '-') -> \"03-17-21\"", [] { return field(8, [](char* f) { doMmddyyx(22356, f, 8, '-'); }); }},
    {"doYymmddx(22356, 10, '-') -> \"2021-03-17\"", [] { return field(10, [](char* f) { doYymmddx(22356, f, 10, '-'); }); }},
    {"doMmyyx(22356, 7, 'M') -> \"03M2021\"", [] { return field(7, [](char* f) { doMmyyx(22356, f, 7, 'M'); }); }},
    {"doYymmx(22356, 9, '/') -> \"  2021/03\"", [] { return field(9, [](char* f) { doYymmx(22356, f, 9, '/'); }); }},
    {"doYyqrx(22356, 6, 'Q') -> \"2021QI\"", [] { return field(6, [](char* f) { doYyqrx(22356, f, 6, 'Q'); }); }},
    {"doMonyyFormat(22356, 5) -> \"MAR21\"", [] { return quoted(written([](char*& o) { doMonyyFormat(DAY, o, 5); })); }},
    {"doYyqxFormat(22356, 6, '-') -> \"2021-1\"", [] { return quoted(written([](char*& o) { doYyqxFormat(DAY, o, 6, '-'); })); }},
    {"doWeekdatxFormat(22356, 16) -> \"  Wed, 17 Mar 21\"", [] { return quoted(written([](char*& o) { doWeekdatxFormat(DAY, o, 16); })); }},
    {"doWeekFormat({2021, 11, 4}, 8, false) -> \"2021-W11\"", [] { return quoted(written([](char*& o) { doWeekFormat({2021, 11, 4}, o, 8, false); })); }},
    {"numberOfLeadingZeroes(0.0625) -> 1", [] { return std::to_string(numberOfLeadingZeroes(0.0625)); }},
    {"writeRealNumber(7.25, 2, 3) -> \"07.250\"", [] { return quoted(written([](char*& o) { writeRealNumber(o, 7.25, 2, 3); })); }},
    {"getRealForBestFormat(1234.5678, 6) -> \"1234.6\"", [] { return quoted(laidOut([](auto& f) { getRealForBestFormat(1234.5678, 6, f); })); }},
    {"getSmallRealForBestFormat(1.23e-7, 5, -7) -> \"12E-8\"", [] { return quoted(laidOut([](auto& f) { getSmallRealForBestFormat(1.23e-7, 5, -7, f); })); }},
    {"getMediumRealForBestFormat(123456.789, 12, 5) -> \"  123456.789\"", [] { return quoted(laidOut([](auto& f) { getMediumRealForBestFormat(123456.789, 12, 5, f); })); }},
    {"getLargeRealForBestFormat(1.5e12, 6, 12) -> \" 15E11\"", [] { return quoted(laidOut([](auto& f) { getLargeRealForBestFormat(1.5e12, 6, 12, f); })); }},
    {"getRealForBlankFormat(12.345, 7, 2) -> \"  12.35\"", [] { return quoted(laidOut([](auto& f) { getRealForBlankFormat(12.345, 7, 2, f); })); }},
    {"getMediumRealForBlankFormat(2.5, 6, 2, 0) -> \"  2.50\"", [] { return quoted(laidOut([](auto& f) { getMediumRealForBlankFormat(2.5, 6, 2, 0, f); })); }},
    {"getLargeRealForBlankFormat(1000, 3, 3) -> \"1E3\"", [] { return quoted(laidOut([](auto& f) { getLargeRealForBlankFormat(1000, 3, 3, f); })); }},
    {"getRealForDFormat(3.14159, 8, 3) -> \"  3.1416\"", [] { return quoted(laidOut([](auto& f) { getRealForDFormat(3.14159, 8, 3, f); })); }},
    {"dFormatDigitsAfterPoint(8, 3, 0, false) -> 4", [] { return std::to_string(dFormatDigitsAfterPoint(8, 3, 0, false)); }},
    {"getSmallRealForDFormat(1.23e-7, 6, -7) -> \"123E-9\"", [] { return quoted(laidOut([](auto& f) { getSmallRealForDFormat(1.23e-7, 6, -7, f); })); }},
    {"getMediumRealForDFormat(3.14159, 8, 3, 0, 4) -> \"  3.1416\"", [] { return quoted(laidOut([](auto& f) { getMediumRealForDFormat(3.14159, 8, 3, 0, 4, f); })); }},
    {"getRealForEFormat(1234.5, 10) -> \" 1.235E+03\"", [] { return quoted(laidOut([](auto& f) { getRealForEFormat(1234.5, 10, f); })); }},
    {"getSmallRealForEFormat(0.00012, false, 10, -4) -> \" 1.200E-04\"", [] { return quoted(laidOut([](auto& f) { getSmallRealForEFormat(0.00012, false, 10, -4, f); })); }},
    {"getLargeRealForEFormat(1234.5, false, 10, 3) -> \" 1.235E+03\"", [] { return quoted(laidOut([](auto& f) { getLargeRealForEFormat(1234.5, false, 10, 3, f); })); }},
    {"getRealForPercentFormat(12.5, 6, 1) -> \"  12.5\"", [] { return quoted(laidOut([](auto& f) { getRealForPercentFormat(12.5, 6, 1, f); })); }},
    {"getSmallRealForPercentFormat(0.0012, 8, -3) -> \"  1.2E-3\"", [] { return quoted(laidOut([](auto& f) { getSmallRealForPercentFormat(0.0012, 8, -3, f); })); }},
    {"getZeroRealRightAligned(4) -> \"   0\"", [] { return quoted(laidOut([](auto& f) { getZeroRealRightAligned(4, f); })); }},
    {"getZeroRealforEFormat(10) -> \" 0.000E+00\"", [] { return quoted(laidOut([](auto& f) { getZeroRealforEFormat(10, f); })); }},
    {"outputReal of getRealForBestFormat(-2.5, 5) with '.', '-', AFTER -> \" 2.5-\"", [] { return quoted(laidOut([](auto& f) { getRealForBestFormat(-2.5, 5, f); }, FormatRealFields::AFTER)); }},
    {"outputSeparatedReal of getRealForBestFormat(1234567, 9) with '.', ',', '-' -> \"  1,234,567\"", [] {
         FormatRealFields f;
         getRealForBestFormat(1234567, 9, f);
         return quoted(written([&](char*& o) { f.outputSeparatedReal(o, '.', ',', '-'); })); }},
    {"writePackedDecimal(123.45, 7, 2) -> 00123450", [] { char b[4]; writePackedDecimal(b, 123.45, 7, 2); return hex(b, 4); }},
    {"writeZonedDecimal(123.45, 6, 2, 0x30) -> \"012345\"", [] { return field(6, [](char* f) { writeZonedDecimal(f, 123.45, 6, 2, 0x30); }); }},
    {"writeMissing(MISSING, 5, 1) -> \"   . \"", [] { return field(5, [](char* f) { writeMissing(MISSING, f, 5, 1); }); }},
    {"writeMissingAsBlanks(MISSING, 3, 0) -> \"   \"", [] { return field(3, [](char* f) { writeMissingAsBlanks(MISSING, f, 3, 0); }); }},
    {"numberOfDigits(12345) -> 5", [] { return std::to_string(numberOfDigits(12345)); }},
    {"numberOfDigits(0LL) -> 0", [] { return std::to_string(numberOfDigits(0LL)); }},
};
// clang-format on

TEST(WorkedExamples, EachGivesItsResult) {
    for (const Example& example : EXAMPLES) {
        const std::string text = example.text;
        EXPECT_EQ(example.run(), text.substr(text.rfind(" -> ") + 4)) << text;
    }
}

TEST(WorkedExamples, AreThoseOfThePublicHeaders) {
    const std::filesystem::path include = std::filesystem::path(KIVO_EXPORT_LISTS_DIR) / ".." / ".." / "include";
    std::set<std::string> inHeaders;
    for (const auto& file : std::filesystem::recursive_directory_iterator(include / "kivo")) {
        std::ifstream header(file.path());
        for (std::string line; std::getline(header, line);) {
            const std::size_t at = line.find("// Example: ");
            if (at != std::string::npos) inHeaders.insert(line.substr(at + 12));
        }
    }
    std::set<std::string> inTable;
    for (const Example& example : EXAMPLES) inTable.insert(example.text);
    EXPECT_EQ(inHeaders, inTable);
}

}  // namespace
