#pragma once

#include <cstddef>
#include <span>

#include "kivoconvert/Conversion.h"
#include "kivodt/CsvColumns.h"
#include "kivodt/CsvRowBlock.h"
#include "kivodt/InputSource.h"
#include "kivodt/Runner.h"

namespace kivodt {

// The record limit: a longer record (most often one whose quote never closes) is copied through
// unchanged, streamed in pieces.
inline constexpr std::size_t MAX_RECORD_LENGTH = 16 << 20;

struct CsvOptions {
    std::span<const ColumnChoice> columns = {};
    bool header = true;
    char delimiter = ',';
    bool keepBlanks = false;  // else the output fields lose the layout's leading blanks
    std::size_t maxRecordLength = MAX_RECORD_LENGTH;
    std::size_t blockRows = CsvRowBlock::MAX_ROWS;  // the rows converted at once
};

// Reads a CSV from input and writes it to streams.out with the chosen columns' fields converted, every
// other byte as it came. The header row, a field that is empty or only blanks, a row whose field count
// differs from the first row's (named, status 1) and a record over the length limit (named, status 1)
// pass unchanged. A field that cannot be used is named and left empty, or with options.keep as it came
// (status 1). A column not found is named with the columns there are (status 2, nothing written).
int runCsv(const kivoconvert::Conversion& conversion, const CsvOptions& csv, const RunOptions& options,
           InputSource& input, const OutputStreams& streams);

}  // namespace kivodt
