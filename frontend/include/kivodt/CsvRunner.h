#pragma once

#include <cstddef>
#include <cstdio>
#include <span>
#include <string>
#include <vector>

#include "kivoconvert/Conversion.h"
#include "kivodt/CsvColumns.h"
#include "kivodt/CsvRecords.h"
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

// The columns chosen, as found in the first record: the header, or the first row.
struct ChosenColumns {
    std::vector<std::string> names;  // the header's fields; empty with no header
    std::size_t fieldCount = 0;
    std::vector<std::size_t> columns;

    // A row is converted when it has the first row's field count and no quote left open.
    RowTreatment treatmentOf(const CsvRecord& record) const;
};

// What startCsv returns when the columns are found and the run goes on.
inline constexpr int CSV_STARTED = -1;

// Reads the first record (the header, or the first row with --no-header) and finds the chosen columns
// in it: CSV_STARTED; EXIT_OK for an input with no record (or whose read failed: records.readError());
// EXIT_USAGE, named on err, for a first record over the limit or with an open quote, or a column that
// is not there.
int startCsv(CsvRecords& records, const CsvOptions& csv, CsvRecord& first, ChosenColumns& chosen, std::FILE* err);

// Reads a CSV from input and writes it to streams.out with the chosen columns' fields converted, every
// other byte as it came. The header row, a field that is empty or only blanks, a row whose field count
// differs from the first row's (named, status 1) and a record over the length limit (named, status 1)
// pass unchanged. A field that cannot be used is named and left empty, or with options.keep as it came
// (status 1). A column not found is named with the columns there are (status 2, nothing written).
int runCsv(const kivoconvert::Conversion& conversion, const CsvOptions& csv, const RunOptions& options,
           InputSource& input, const OutputStreams& streams);

}  // namespace kivodt
