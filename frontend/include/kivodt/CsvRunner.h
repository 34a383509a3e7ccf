#pragma once

#include <cstddef>
#include <span>

#include "kivodt/CsvColumns.h"
#include "kivodt/FieldConverter.h"
#include "kivodt/Runner.h"

namespace kivodt {

// A record longer than this (most often one whose quote never closes) is copied through unchanged.
inline constexpr std::size_t MAX_RECORD_LENGTH = 16 << 20;

struct CsvOptions {
    std::span<const ColumnChoice> columns = {};
    bool header = true;
    char delimiter = ',';
    bool keepBlanks = false;  // else the output fields lose the layout's leading blanks
    std::size_t maxRecordLength = MAX_RECORD_LENGTH;
};

// Reads a CSV from streams.in and writes it to streams.out with the chosen columns' fields converted,
// every other byte as it came. The header row, a field that is empty or only blanks, a row whose field
// count differs from the first row's (named, status 1) and a record over the length limit (named,
// status 1) pass unchanged. A field that cannot be used is named and gives the converter's stand-in,
// or with options.keep the field as it came (status 1). A column not found is named with the columns
// there are (status 2, nothing written).
int runCsv(const FieldConverter& converter, const CsvOptions& csv, const RunOptions& options, const Streams& streams);

}  // namespace kivodt
