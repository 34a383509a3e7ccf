#include "kivodt/CsvRunner.h"

#include <algorithm>
#include <string>
#include <vector>

#include "kivodt/BufferedOutput.h"
#include "kivodt/ConvertedFields.h"
#include "kivodt/CsvFieldText.h"
#include "kivodt/CsvRecords.h"
#include "kivodt/CsvRowBlock.h"
#include "kivodt/Values.h"

namespace kivodt {

namespace {

bool onlyBlanks(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c == ' '; });
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

// The columns chosen, as found in the first record: the header, or the first row.
struct ChosenColumns {
    std::vector<std::string> names;  // the header's fields; empty with no header
    std::size_t fieldCount = 0;
    std::vector<std::size_t> columns;
};

// Writes blocks of rows back: the chosen fields replaced by their outputs, every other byte as it came.
class CsvWriter {
public:
    CsvWriter(const FieldConverter& converter, const CsvOptions& csv, const RunOptions& options,
              const ChosenColumns& chosen, BufferedOutput& out, std::FILE* err)
        : converter_(converter), csv_(csv), options_(options), chosen_(chosen), out_(out), err_(err) {}

    int status() const noexcept { return status_; }

    void write(CsvRowBlock& block) {
        texts_ = block.texts();
        converter_.convert(texts_, converted_, options_.threads);
        for (std::size_t i = 0; i < block.rowCount(); ++i) {
            const CsvRowBlock::Row row = block.row(i);
            if (row.treatment == RowTreatment::CONVERT) {
                writeConverted(row, block);
            } else {
                reportCopied(row);
                out_.write(row.bytes);
            }
        }
        block.clear();
    }

    void reportTooLong(const CsvRecord& record) {
        std::fprintf(err_, "kivodt: row %zu (line %zu): longer than %zu bytes; copied unchanged\n", record.number,
                     record.line, csv_.maxRecordLength);
        status_ = EXIT_BAD_INPUT;
    }

private:
    void writeConverted(const CsvRowBlock::Row& row, CsvRowBlock& block) {
        std::size_t written = 0;
        for (std::size_t k = 0; k < chosen_.columns.size(); ++k) {
            const CsvFieldSpan span = block.fields()[row.firstField + k];
            out_.write(row.bytes.substr(written, span.begin - written));
            writeField(row, k, row.bytes.substr(span.begin, span.end - span.begin), row.firstField + k);
            written = span.end;
        }
        out_.write(row.bytes.substr(written));
    }

    // A field with no text stays as it is: that is how a CSV leaves a value out.
    void writeField(const CsvRowBlock::Row& row, std::size_t k, std::string_view original, std::size_t index) {
        if (onlyBlanks(texts_[index])) {
            out_.write(original);
            return;
        }
        const FieldProblem problem = converted_.problem(index);
        if (problem != FieldProblem::NONE) {
            reportField(row, chosen_.columns[k], problem, texts_[index]);
            if (options_.keep) {
                out_.write(original);
                return;
            }
        }
        const std::string_view output = converted_.output(index);
        field_.clear();
        appendAsCsvField(csv_.keepBlanks ? output : withoutLeadingBlanks(output), csv_.delimiter, field_);
        out_.write(field_);
    }

    void reportField(const CsvRowBlock::Row& row, std::size_t column, FieldProblem problem, std::string_view text) {
        std::string name;
        if (!chosen_.names.empty()) {
            name = ' ';
            name += quotedForMessage(chosen_.names[column]);
        }
        std::fprintf(err_, "kivodt: row %zu (line %zu), column %zu%s: %s: %s\n", row.number, row.line, column + 1,
                     name.c_str(), converter_.describe(problem).c_str(), quotedForMessage(text).c_str());
        status_ = EXIT_BAD_INPUT;
    }

    void reportCopied(const CsvRowBlock::Row& row) {
        if (row.treatment == RowTreatment::RAGGED) {
            std::fprintf(err_,
                         "kivodt: row %zu (line %zu): %zu field%s where the first row has %zu; copied unchanged\n",
                         row.number, row.line, row.fieldCount, row.fieldCount == 1 ? "" : "s", chosen_.fieldCount);
        } else {
            std::fprintf(err_,
                         "kivodt: row %zu (line %zu): a quote is not closed before the end of the input; copied "
                         "unchanged\n",
                         row.number, row.line);
        }
        status_ = EXIT_BAD_INPUT;
    }

    const FieldConverter& converter_;
    const CsvOptions& csv_;
    const RunOptions& options_;
    const ChosenColumns& chosen_;
    BufferedOutput& out_;
    std::FILE* err_;
    ConvertedFields converted_;
    std::span<const std::string_view> texts_;
    std::string field_;
    int status_ = EXIT_OK;
};

RowTreatment treatmentOf(const CsvRecord& record, const ChosenColumns& chosen) {
    if (record.unclosedQuote) {
        return RowTreatment::UNCLOSED_QUOTE;
    }
    return record.fields.size() == chosen.fieldCount ? RowTreatment::CONVERT : RowTreatment::RAGGED;
}

// Finds the chosen columns in the first record: the header, or the first row.
bool findColumns(const CsvRecord& first, const CsvOptions& csv, ChosenColumns& chosen, std::string& error) {
    chosen.fieldCount = first.fields.size();
    if (csv.header) {
        for (const CsvFieldSpan field : first.fields) {
            appendCsvFieldText(first.bytes.substr(field.begin, field.end - field.begin), chosen.names.emplace_back());
        }
    }
    return resolveColumns(csv.columns, chosen.names, chosen.fieldCount, chosen.columns, error);
}

}  // namespace

int runCsv(const FieldConverter& converter, const CsvOptions& csv, const RunOptions& options, const Streams& streams) {
    BufferedOutput out(streams.out);
    CsvRecords records(streams.in, csv.delimiter, csv.maxRecordLength);
    CsvRecord record;
    CsvRecords::Next next = records.next(record);
    if (next == CsvRecords::Next::END || next == CsvRecords::Next::READ_FAILED) {
        return endOfRun(out, records.readError(), EXIT_OK, streams.err);
    }
    ChosenColumns chosen;
    std::string error;
    if (next == CsvRecords::Next::PIECE || record.unclosedQuote) {
        error = next == CsvRecords::Next::PIECE ? "longer than " + std::to_string(csv.maxRecordLength) + " bytes"
                                                : "a quote is not closed before the end of the input";
        std::fprintf(streams.err, "kivodt: row 1 (line 1): %s; no columns to convert\n", error.c_str());
        return EXIT_USAGE;
    }
    if (!findColumns(record, csv, chosen, error)) {
        std::fprintf(streams.err, "kivodt: %s\n", error.c_str());
        return EXIT_USAGE;
    }
    CsvWriter writer(converter, csv, options, chosen, out, streams.err);
    CsvRowBlock block;
    if (csv.header) {
        out.write(record.bytes);
    } else {
        block.add(record, RowTreatment::CONVERT, chosen.columns);
    }
    for (next = records.next(record); next == CsvRecords::Next::RECORD || next == CsvRecords::Next::PIECE;
         next = records.next(record)) {
        if (next == CsvRecords::Next::PIECE) {
            writer.write(block);  // what came before, first
            if (record.number != 0) {
                writer.reportTooLong(record);
            }
            out.write(record.bytes);
        } else {
            block.add(record, treatmentOf(record, chosen), chosen.columns);
            if (block.full()) {
                writer.write(block);
            }
        }
        if (out.failed()) {
            break;
        }
    }
    if (!out.failed()) {
        writer.write(block);
    }
    return endOfRun(out, records.readError(), writer.status(), streams.err);
}

}  // namespace kivodt
