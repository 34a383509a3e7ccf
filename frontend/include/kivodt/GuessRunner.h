#pragma once

#include "kivodt/CsvRunner.h"
#include "kivodt/LineReader.h"
#include "kivodt/Runner.h"

namespace kivodt {

// kivodt guess: which informat reads the texts of the reader's blocks, decided by all of them in one
// pass. The first line is what convert takes before its FORMAT ("--datestyle dmy ANYDTDTE"), the lines
// after it the report: how many texts it reads, the first unread ones by line, the other informats that
// read every text and why they lost, and the evidence for the date order. Status 0 when the proposal
// reads every text that is neither empty nor a missing-value notation, else 1.
int runGuess(LineReader& reader, const OutputStreams& streams);

// The same for each chosen column of a CSV, in one pass: a block a column, its first line the column's
// name (escaped), a tab and the arguments.
int runCsvGuess(const CsvOptions& csv, InputSource& input, const OutputStreams& streams);

}  // namespace kivodt
