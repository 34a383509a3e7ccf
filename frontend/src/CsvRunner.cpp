#include "kivodt/CsvRunner.h"

#include <algorithm>
#include <string>
#include <vector>

#include "kivoconvert/Notes.h"
#include "kivodt/BufferedOutput.h"
#include "kivodt/CsvFieldText.h"
#include "kivodt/CsvRecords.h"
#include "kivodt/CsvRowBlock.h"

namespace kivodt {

namespace {

using kivoconvert::Conversion;
using kivoconvert::ConvertedBlock;
using kivoconvert::Note;

std::string_view withoutLeadingBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

// Writes blocks of rows back: the chosen fields replaced by their outputs, every other byte as it came.
// A block's messages follow its rows, as in line mode.
class CsvWriter {
public:
    CsvWriter(const Conversion& conversion, const CsvOptions& csv, const RunOptions& options,
              const ChosenColumns& chosen, BufferedOutput& out, std::FILE* err)
        : conversion_(conversion),
          csv_(csv),
          options_(options),
          chosen_(chosen),
          fanout_(options.threads, nullptr, options.elementsPerRun),
          out_(out),
          err_(err) {}

    int status() const noexcept { return status_; }

    void write(CsvRowBlock& block) {
        texts_ = block.texts();
        const bool alone = seen_ < options_.aloneFor;
        seen_ += block.bytes();
        conversion_.convert(texts_, converted_, alone ? kivoconvert::Fanout(1) : fanout_);
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
        flushMessages();
    }

    void reportTooLong(const CsvRecord& record) {
        name(record, "longer than " + std::to_string(csv_.maxRecordLength) + " bytes; copied unchanged");
        flushMessages();
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
        const Note note = converted_.note(index);
        if (note == Note::LEFT_OUT) {
            out_.write(original);
            return;
        }
        if (kivoconvert::isNamed(note)) {
            reportField(row, chosen_.columns[k], note, texts_[index]);
            if (!kivoconvert::keepsValue(note)) {
                out_.write(options_.keep ? original : std::string_view());
                return;
            }
        }
        const std::string_view output = converted_.output(index);
        field_.clear();
        appendAsCsvField(csv_.keepBlanks ? output : withoutLeadingBlanks(output), csv_.delimiter, field_);
        out_.write(field_);
    }

    void reportField(const CsvRowBlock::Row& row, std::size_t column, Note note, std::string_view text) {
        std::string place = "row " + std::to_string(row.number) + " (line " + std::to_string(row.line) + "), column " +
                            std::to_string(column + 1);
        if (!chosen_.names.empty()) {
            place += ' ' + kivoconvert::quotedForMessage(chosen_.names[column]);
        }
        messages_.append("kivodt: ").append(place).append(": ").append(conversion_.describe(note, text)).append(": ");
        messages_.append(kivoconvert::quotedForMessage(text)).append(hint_.after(conversion_, note, text)).append("\n");
        status_ = EXIT_BAD_INPUT;
    }

    void reportCopied(const CsvRowBlock::Row& row) {
        if (row.treatment == RowTreatment::RAGGED) {
            name(row, std::to_string(row.fieldCount) + (row.fieldCount == 1 ? " field" : " fields") +
                          " where the first row has " + std::to_string(chosen_.fieldCount) + "; copied unchanged");
        } else {
            name(row, "a quote is not closed before the end of the input; copied unchanged");
        }
    }

    template <class Row>
    void name(const Row& row, const std::string& what) {
        messages_.append("kivodt: row ").append(std::to_string(row.number)).append(" (line ");
        messages_.append(std::to_string(row.line)).append("): ").append(what).append("\n");
        status_ = EXIT_BAD_INPUT;
    }

    void flushMessages() {
        if (!messages_.empty()) {
            std::fwrite(messages_.data(), 1, messages_.size(), err_);
            messages_.clear();
        }
    }

    const Conversion& conversion_;
    const CsvOptions& csv_;
    const RunOptions& options_;
    const ChosenColumns& chosen_;
    const kivoconvert::Fanout fanout_;
    BufferedOutput& out_;
    std::FILE* err_;
    ConvertedBlock converted_;
    std::span<const std::string_view> texts_;
    std::string field_;
    std::string messages_;
    DateTextHint hint_;
    std::size_t seen_ = 0;  // bytes of the rows converted
    int status_ = EXIT_OK;
};

}  // namespace

int runCsv(const Conversion& conversion, const CsvOptions& csv, const RunOptions& options, InputSource& input,
           const OutputStreams& streams) {
    BufferedOutput out(streams.out);
    CsvRecords records(input, csv.delimiter, csv.maxRecordLength);
    CsvRecord record;
    ChosenColumns chosen;
    if (const int status = startCsv(records, csv, record, chosen, streams.err); status != CSV_STARTED) {
        return endOfRun(out, records.readError(), status, streams.err);
    }
    CsvRecords::Next next;
    CsvWriter writer(conversion, csv, options, chosen, out, streams.err);
    CsvRowBlock block(csv.blockRows);
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
            block.add(record, chosen.treatmentOf(record), chosen.columns);
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

RowTreatment ChosenColumns::treatmentOf(const CsvRecord& record) const {
    if (record.unclosedQuote) {
        return RowTreatment::UNCLOSED_QUOTE;
    }
    return record.fields.size() == fieldCount ? RowTreatment::CONVERT : RowTreatment::RAGGED;
}

int startCsv(CsvRecords& records, const CsvOptions& csv, CsvRecord& first, ChosenColumns& chosen, std::FILE* err) {
    const CsvRecords::Next next = records.next(first);
    if (next == CsvRecords::Next::END || next == CsvRecords::Next::READ_FAILED) {
        return EXIT_OK;
    }
    if (next == CsvRecords::Next::PIECE || first.unclosedQuote) {
        std::fprintf(err, "kivodt: row 1 (line 1): %s; no columns to convert\n",
                     next == CsvRecords::Next::PIECE
                         ? ("longer than " + std::to_string(csv.maxRecordLength) + " bytes").c_str()
                         : "a quote is not closed before the end of the input");
        return EXIT_USAGE;
    }
    chosen.fieldCount = first.fields.size();
    if (csv.header) {
        for (const CsvFieldSpan field : first.fields) {
            appendCsvFieldText(first.bytes.substr(field.begin, field.end - field.begin), chosen.names.emplace_back());
        }
    }
    std::string error;
    if (!resolveColumns(csv.columns, chosen.names, chosen.fieldCount, chosen.columns, error)) {
        std::fprintf(err, "kivodt: %s\n", error.c_str());
        return EXIT_USAGE;
    }
    return CSV_STARTED;
}

}  // namespace kivodt
