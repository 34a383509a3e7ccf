#include "kivoconvert/NumericFormats.h"

#include <cmath>
#include <cstring>

#include "kivo/format/FormatRealFields.h"
#include "kivo/format/Missing.h"
#include "kivo/format/RealLayouts.h"

namespace kivoconvert::numeric {

namespace {

using kivo::format::FormatRealFields;

void fillStars(char* field, int width) {
    if (width > 0) {
        std::memset(field, '*', static_cast<std::size_t>(width));
    }
}

// The common tail of the entries: stars for a record that does not fit, else the characters.
int writeRecord(const FormatRealFields& fields, char* field, int width) {
    if (fields.leadingBlanks < 0) {
        fillStars(field, width);
        return 0;
    }
    char* out = field;
    fields.outputReal(out, '.', '-', FormatRealFields::BEFORE);
    return 0;
}

template <class Layout>
int layOutAndWrite(char* field, int width, int missingDecimals, double value, Layout layout) {
    if (kivo::format::writeMissing(value, field, width, missingDecimals)) {
        return 0;
    }
    FormatRealFields fields;
    layout(value, fields);
    return writeRecord(fields, field, width);
}

// Places the percent field needs beside the number: "%" and a parenthesis or its blank, and "(" for a
// negative value.
constexpr int PERCENT_SUFFIX = 2;

}  // namespace

int bestFormat(char* field, int width, int, double value) {
    return layOutAndWrite(field, width, 0, value,
                          [width](double x, FormatRealFields& f) { kivo::format::getRealForBestFormat(x, width, f); });
}

int dFormat(char* field, int width, int decimals, double value) {
    return layOutAndWrite(field, width, 0, value, [width, decimals](double x, FormatRealFields& f) {
        kivo::format::getRealForDFormat(x, width, decimals, f);
    });
}

int eFormat(char* field, int width, int, double value) {
    return layOutAndWrite(field, width, 0, value,
                          [width](double x, FormatRealFields& f) { kivo::format::getRealForEFormat(x, width, f); });
}

int blankFormat(char* field, int width, int decimals, double value) {
    // The missing character stands where the decimal point would.
    return layOutAndWrite(field, width, decimals, value, [width, decimals](double x, FormatRealFields& f) {
        kivo::format::getRealForBlankFormat(x, width, decimals, f);
    });
}

int percentFormat(char* field, int width, int decimals, double value) {
    if (kivo::format::writeMissing(value, field, width, decimals + PERCENT_SUFFIX)) {
        return 0;
    }
    const bool negative = value < 0.0;
    const double percent = std::fabs(value) * 100.0;
    const int numberWidth = width - PERCENT_SUFFIX - (negative ? 1 : 0);
    FormatRealFields fields;
    if (std::isfinite(percent) && numberWidth >= 1) {
        kivo::format::getRealForPercentFormat(percent, numberWidth, decimals, fields);
    } else {
        fields.leadingBlanks = -1;
    }
    if (fields.leadingBlanks < 0) {
        fillStars(field, width);
        return 0;
    }
    char* out = field;
    std::memset(out, ' ', static_cast<std::size_t>(fields.leadingBlanks));
    out += fields.leadingBlanks;
    if (negative) {
        *out++ = '(';
    }
    fields.leadingBlanks = 0;
    fields.outputReal(out, '.', '-', FormatRealFields::BEFORE);
    *out++ = '%';
    *out = negative ? ')' : ' ';
    return 0;
}

}  // namespace kivoconvert::numeric
