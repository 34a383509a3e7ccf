#include "kivodt/GuessRunner.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "kivoconvert/Guess.h"
#include "kivoconvert/Notes.h"

namespace kivodt {

namespace {

using kivoconvert::ColumnGuesser;
using kivoconvert::Guess;

int statusOf(const Guess& guess) { return guess.readsEvery ? EXIT_OK : EXIT_BAD_INPUT; }

}  // namespace

int runGuess(LineReader& reader, const OutputStreams& streams) {
    BufferedOutput out(streams.out);
    ColumnGuesser guesser;
    const char* const place = reader.fromArguments() ? "argument" : "line";
    std::vector<std::string_view> texts;
    std::vector<std::size_t> positions;
    int status = EXIT_OK;
    const auto nameTooLong = [&](std::size_t number, std::string_view start) {
        const std::string message = tooLongMessage(place, number, reader.maxLine(), start);
        std::fwrite(message.data(), 1, message.size(), streams.err);
        status = EXIT_BAD_INPUT;
    };
    for (LineReader::Next next = reader.next(); next != LineReader::Next::END && next != LineReader::Next::READ_FAILED;
         next = reader.next()) {
        if (next == LineReader::Next::TOO_LONG) {
            nameTooLong(reader.tooLongNumber(), reader.tooLongStart());
            continue;
        }
        texts.clear();
        positions.clear();
        std::size_t number = reader.firstNumber();
        const auto keep = [&](std::string_view text) {
            if (text.size() > reader.maxLine()) {
                nameTooLong(number, text);
            } else {
                texts.push_back(text);
                positions.push_back(number);
            }
            ++number;
        };
        if (next == LineReader::Next::LINES) {
            forEachLine(reader.lines(), keep);
        } else {
            std::for_each(reader.texts().begin(), reader.texts().end(), keep);
        }
        guesser.add(texts, positions);
    }
    if (reader.readError() == 0) {
        const Guess guess = guesser.guess();
        out.write(guess.arguments() + "\n" + guess.report(place));
        status = std::max(status, statusOf(guess));
    }
    return endOfRun(out, reader.readError(), status, streams.err);
}

int runCsvGuess(const CsvOptions& csv, InputSource& input, const OutputStreams& streams) {
    BufferedOutput out(streams.out);
    CsvRecords records(input, csv.delimiter, csv.maxRecordLength);
    CsvRecord record;
    ChosenColumns chosen;
    if (const int status = startCsv(records, csv, record, chosen, streams.err); status != CSV_STARTED) {
        return endOfRun(out, records.readError(), status, streams.err);
    }
    std::vector<std::unique_ptr<ColumnGuesser>> guessers;
    for (std::size_t k = 0; k < chosen.columns.size(); ++k) {
        guessers.push_back(std::make_unique<ColumnGuesser>());
    }
    CsvRowBlock block(csv.blockRows);
    std::vector<std::string_view> texts;
    std::vector<std::size_t> rows;
    const auto guessBlock = [&] {
        const std::span<const std::string_view> fields = block.texts();
        for (std::size_t k = 0; k < chosen.columns.size(); ++k) {
            texts.clear();
            rows.clear();
            for (std::size_t i = 0; i < block.rowCount(); ++i) {
                const CsvRowBlock::Row row = block.row(i);
                if (row.treatment == RowTreatment::CONVERT) {
                    texts.push_back(fields[row.firstField + k]);
                    rows.push_back(row.number);
                }
            }
            guessers[k]->add(texts, rows);
        }
        block.clear();
    };
    if (!csv.header) {
        block.add(record, RowTreatment::CONVERT, chosen.columns);
    }
    for (CsvRecords::Next next = records.next(record);
         next == CsvRecords::Next::RECORD || next == CsvRecords::Next::PIECE; next = records.next(record)) {
        if (next == CsvRecords::Next::RECORD) {
            block.add(record, chosen.treatmentOf(record), chosen.columns);
        }
        if (block.full()) {
            guessBlock();
        }
    }
    guessBlock();
    int status = EXIT_OK;
    for (std::size_t k = 0; k < chosen.columns.size() && records.readError() == 0; ++k) {
        const Guess guess = guessers[k]->guess();
        const std::size_t column = chosen.columns[k];
        const std::string name =
            chosen.names.empty() ? std::to_string(column + 1) : kivoconvert::escapedForMessage(chosen.names[column]);
        out.write((k == 0 ? "" : "\n") + name + "\t" + guess.arguments() + "\n" + guess.report("row"));
        status = std::max(status, statusOf(guess));
    }
    return endOfRun(out, records.readError(), status, streams.err);
}

}  // namespace kivodt
