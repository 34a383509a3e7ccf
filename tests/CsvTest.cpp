// kivodt --csv. A CSV read as it came: records and their fields' bytes, field texts, and the columns
// --csv names; CSVs written back with every byte but the converted fields' unchanged, fields that cannot
// be used named and left empty. And kivodt streams a CSV through a bounded amount of memory: five times
// the input must not need more.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "PeakMemory.h"
#include "RunCapture.h"
#include "kivodt/CsvColumns.h"
#include "kivodt/CsvFieldText.h"
#include "kivodt/CsvRecords.h"
#include "kivodt/CsvRunner.h"

namespace {

// The records found in input, separated by blanks: the line each starts on, ":", its fields' bytes
// joined by "|", then its terminator with "%" for "\r" and "$" for "\n", and "!" for a quote left open; a record
// over the limit shows as "<long>". Every byte handed on must add up to the input.
std::string recordsOf(const std::string& input, char delimiter, std::size_t limit, std::size_t chunkBytes) {
    kivodt::test::BytesSource in(input);
    kivodt::CsvRecords records(in, delimiter, limit, chunkBytes);
    std::string seen, bytes;
    kivodt::CsvRecord record;
    using Next = kivodt::CsvRecords::Next;
    for (Next next = records.next(record); next == Next::RECORD || next == Next::PIECE; next = records.next(record)) {
        bytes += record.bytes;
        if (next == Next::PIECE) {
            seen += record.number != 0 ? std::to_string(record.line) + ":<long> " : "";
            continue;
        }
        seen += std::to_string(record.line) + ":";
        for (std::size_t i = 0; i < record.fields.size(); ++i) {
            const kivodt::CsvFieldSpan field = record.fields[i];
            seen += (i == 0 ? "" : "|") + std::string(record.bytes.substr(field.begin, field.end - field.begin));
        }
        for (const char c : record.bytes.substr(record.bytes.size() - record.terminatorSize)) {
            seen += c == '\r' ? '%' : '$';
        }
        seen += record.unclosedQuote ? "! " : " ";
    }
    EXPECT_EQ(bytes, input) << "bytes lost or changed";
    return seen;
}

TEST(CsvRecords, SplitsFieldsAndRecordsWhereverTheChunksEnd) {
    const std::pair<const char*, const char*> cases[] = {
        {"a,b,c\n1,2,3\n", "1:a|b|c$ 2:1|2|3$ "}, {"a,b\r\n1,2\r\n", "1:a|b%$ 2:1|2%$ "},
        {"a,b\r\n1,2", "1:a|b%$ 2:1|2 "},  // no terminator at the end
        {"a,b\r", "1:a|b% "},              // a CR at the end ends the record
        {"\"x,y\",\"say \"\"hi\"\"\",\n", "1:\"x,y\"|\"say \"\"hi\"\"\"|$ "},
        {"\"two\nlines\",z\nnext\n", "1:\"two\nlines\"|z$ 3:next$ "},
        {"\"a\r\nb\"\r\n", "1:\"a\r\nb\"%$ "},  // a CRLF inside quotes is text
        {"a\rb,c\n", "1:a\rb|c$ "},             // a lone CR is text
        {"ab\"c,d\n", "1:ab\"c|d$ "},           // a quote inside an unquoted field is text
        {"\"ab\"c,d\n", "1:\"ab\"c|d$ "},       // and so is text after a closing quote
        {",,\n\n", "1:||$ 2:$ "}, {"", ""}, {"\"open,\nto the end", "1:\"open,\nto the end! "},
        {"\"open\r", "1:\"open\r! "},
    };
    for (const auto& [input, records] : cases) {
        for (std::size_t chunkBytes = 1; chunkBytes <= 8; ++chunkBytes) {
            EXPECT_EQ(recordsOf(input, ',', 100, chunkBytes), records)
                << '"' << input << "\" in chunks of " << chunkBytes;
        }
    }
}

TEST(CsvRecords, TakesAnyDelimiterAndHandsOnRecordsOverTheLimitInPieces) {
    EXPECT_EQ(recordsOf("a;\"b;c\",d\n", ';', 100, 3), "1:a|\"b;c\",d$ ");
    EXPECT_EQ(recordsOf("a\tb\n", '\t', 100, 3), "1:a|b$ ");
    for (std::size_t chunkBytes = 1; chunkBytes <= 8; ++chunkBytes) {
        // The limit counts the bytes before the terminator.
        EXPECT_EQ(recordsOf("1234\r\n12345\r\n\"1\n2,345\"\n12\n", ',', 4, chunkBytes),
                  "1:1234%$ 2:<long> 3:<long> 5:12$ ")
            << "chunks of " << chunkBytes;
    }
}

TEST(CsvFieldText, TakesQuotesOffAndPutsThemOnWhereNeeded) {
    const std::pair<const char*, const char*> read[] = {
        {"plain", "plain"}, {"\"x,y\"", "x,y"},   {"\"say \"\"hi\"\"\"", "say \"hi\""},
        {"\"\"", ""},       {"\"ab\"c", "abc"},   {"\"open", "open"},
        {"a\"b", "a\"b"},   {" \"a\"", " \"a\""},
    };
    for (const auto& [field, text] : read) {
        std::string out = "<";
        kivodt::appendCsvFieldText(field, out);
        EXPECT_EQ(out, std::string("<") + text) << field;
    }
    const std::pair<const char*, const char*> written[] = {
        {"17MAR2021", "17MAR2021"}, {"March 17, 2021", "\"March 17, 2021\""}, {"a\"b", "\"a\"\"b\""},
        {"a\nb", "\"a\nb\""},       {"a\rb", "\"a\rb\""},                   {"a;b", "a;b"}, {"", ""},
    };
    for (const auto& [text, field] : written) {
        std::string out;
        kivodt::appendAsCsvField(text, ',', out);
        EXPECT_EQ(out, field) << text;
        std::string back;
        kivodt::appendCsvFieldText(out, back);
        EXPECT_EQ(back, text);
    }
    std::string semicolon;
    kivodt::appendAsCsvField("a;b", ';', semicolon);
    EXPECT_EQ(semicolon, "\"a;b\"");
}

// The columns --csv chooses, as indexes from 0 joined by ",", or the error.
std::string columnsOf(const char* list, bool header, std::vector<std::string> names, std::size_t fieldCount) {
    std::vector<kivodt::ColumnChoice> choices;
    std::vector<std::size_t> indexes;
    std::string error;
    if (!kivodt::parseColumnChoices(list, header, choices, error) ||
        !kivodt::resolveColumns(choices, names, fieldCount, indexes, error)) {
        return error;
    }
    std::string shown;
    for (const std::size_t index : indexes) shown += (shown.empty() ? "" : ",") + std::to_string(index);
    return shown;
}

TEST(CsvColumns, NumbersAndHeaderNamesBecomeIndexes) {
    const std::vector<std::string> header = {"id", "when", "2"};
    EXPECT_EQ(columnsOf("when,1,2,when", true, header, 3), "0,1");  // sorted, each once; digits are numbers
    EXPECT_EQ(columnsOf("3", false, {}, 3), "2");
    EXPECT_EQ(columnsOf("shipped", true, header, 3),
              "no column \"shipped\" in the header; the columns are 1 \"id\", 2 \"when\", 3 \"2\"");
    EXPECT_EQ(columnsOf("4", true, header, 3), "no column 4; the columns are 1 \"id\", 2 \"when\", 3 \"2\"");
    EXPECT_EQ(columnsOf("4", false, {}, 3), "no column 4; the first row has 3 fields");
    EXPECT_EQ(columnsOf("when", false, {}, 3), "--csv: column \"when\" is a name, and with --no-header there are none");
    EXPECT_EQ(columnsOf("1,,2", true, header, 3), "--csv: an empty column in the list");
    EXPECT_EQ(columnsOf("0", true, header, 3), "--csv: columns are numbered from 1, not \"0\"");
    EXPECT_EQ(columnsOf("99999999999999999999999", true, header, 3),
              "--csv: columns are numbered from 1, not \"99999999999999999999999\"");
}

using kivoconvert::Conversion;
using kivodt::test::Captured;
using kivodt::test::format;
using kivodt::test::informat;

Conversion converting(const char* informatText, const char* formatText) {
    Conversion conversion;
    std::string error;
    EXPECT_TRUE(Conversion::converting(informat(informatText), format(formatText), {}, conversion, error)) << error;
    return conversion;
}

// message: part of what standard error says.
struct CsvCase { const char* input; const char* columns; const char* output; int status; const char* message; };

// Runs the conversion over each case's CSV with the options csv (its columns taken from the case).
void checkCsv(const Conversion& conversion, kivodt::CsvOptions csv, std::initializer_list<CsvCase> cases,
              const kivodt::RunOptions& options = {}) {
    for (const CsvCase& c : cases) {
        std::vector<kivodt::ColumnChoice> choices;
        std::string error;
        ASSERT_TRUE(kivodt::parseColumnChoices(c.columns, csv.header, choices, error)) << error;
        csv.columns = choices;
        kivodt::test::BytesSource input(c.input);
        const Captured run = kivodt::test::capture([&](const kivodt::OutputStreams& streams) {
            return kivodt::runCsv(conversion, csv, options, input, streams);
        });
        EXPECT_EQ(run.out, c.output) << c.input;
        EXPECT_EQ(run.status, c.status) << c.input;
        EXPECT_NE(run.err.find(c.message), std::string::npos) << c.input << "\n" << run.err;
        EXPECT_EQ(run.err.empty(), c.status == kivodt::EXIT_OK) << c.input << "\n" << run.err;
    }
}

TEST(KivodtCsv, ConvertsTheChosenColumnsAndKeepsEveryOtherByte) {
    checkCsv(converting("ANYDTDTE", "DATE9."), {}, {
        {"id,when,note\r\n1,2021-03-17,\"a, \"\"quoted\"\"\r\nnote\"\r\n2,\"03/17/2021\",x\r\n", "when",
         "id,when,note\r\n1,17MAR2021,\"a, \"\"quoted\"\"\r\nnote\"\r\n2,17MAR2021,x\r\n", 0, ""},
        {"when,when2\n20210317,2021-03-17", "1,when2", "when,when2\n17MAR2021,17MAR2021", 0, ""},
        {"a,b\n1,\n2,\"\"\n3,   \n", "b", "a,b\n1,\n2,\"\"\n3,   \n", 0, ""},  // empty fields stay as they are
        {"a,b,c\n1,2021-03-17,x\n2,2021-03-17\n3,2021-03-17,x,y\n", "b",
         "a,b,c\n1,17MAR2021,x\n2,2021-03-17\n3,2021-03-17,x,y\n", 1,
         "kivodt: row 3 (line 3): 2 fields where the first row has 3; copied unchanged\n"
         "kivodt: row 4 (line 4): 4 fields where the first row has 3; copied unchanged\n"},
        {"a,b\n1,\"2021-03-17\n", "b", "a,b\n1,\"2021-03-17\n", 1, "row 2 (line 2): a quote is not closed"},
        {"a,b\n1,2\n", "date", "", 2, "kivodt: no column \"date\" in the header; the columns are 1 \"a\", 2 \"b\"\n"},
        {"a,b\n", "3", "", 2, "no column 3"},
        {"", "a", "", 0, ""},
    });
}

// Delimiters, --no-header, --keep-blanks and a written field quoted are checked end to end by the CLI
// script.
TEST(KivodtCsv, AFieldThatCannotBeUsedIsNamedAndLeftEmptyOrAsItCame) {
    const Conversion date = converting("DATE9.", "DATE9.");
    const char* input = "n,day\n1,17MAR2021\n2,\"x,1\"\n";
    checkCsv(date, {}, {{input, "day", "n,day\n1,17MAR2021\n2,\n", 1,
                         "kivodt: row 3 (line 3), column 2 \"day\": not read by DATE: \"x,1\"\n"}});
    checkCsv(date, {}, {{input, "day", "n,day\n1,17MAR2021\n2,\"x,1\"\n", 1, "column 2 \"day\""}}, {.keep = true});
    checkCsv(Conversion::formatting(format("DATE9."), {}), {.header = false},
             {{"1,x\n", "2", "1,\n", 1, "row 1 (line 1), column 2: not a number or missing value"}});
    checkCsv(Conversion::reading(informat("ANYDTDTE"), {}), {}, {{"a\n15JAN2000\n", "a", "a\n14624\n", 0, ""}});
    // A read that found nothing keeps the missing value it gave, and is named.
    checkCsv(converting("ANYDTDTE", "DATE9."), {}, {{"a,b\n1,nonsense\n", "b", "a,b\n1,.\n", 1,
                                                    "row 2 (line 2), column 2 \"b\": not read by ANYDTDTE"}});
}

TEST(KivodtCsv, ARecordOverTheLimitIsCopiedThroughWhateverComesAround) {
    checkCsv(Conversion::formatting(format("DATE9."), {}), {.maxRecordLength = 16},
             {{"a,b\n1,0\n2,\"0123456789\n0123456789\"\n3,1\n", "2",
               "a,b\n1,01JAN1960\n2,\"0123456789\n0123456789\"\n3,02JAN1960\n", 1,
               "kivodt: row 3 (line 3): longer than 16 bytes; copied unchanged\n"}});
}

TEST(KivodtCsv, RowsAcrossManyBlocksComeOutInOrder) {
    std::string input = "n,day,\"quoted, note\"\r\n", output = input;
    const kivoconvert::ResolvedSpec<kivoconvert::FormatEntry> date = format("DATE9.");
    for (int row = 0; row < 70000; ++row) {
        const std::string day = row % 7 == 0 ? "" : std::to_string(row % 1000);
        input += std::to_string(row) + "," + day + ",\"x\r\ny\"\r\n";
        char field[9];
        date.entry->function(field, 9, 0, row % 1000);
        output += std::to_string(row) + "," + (day.empty() ? "" : std::string(field, 9)) + ",\"x\r\ny\"\r\n";
    }
    checkCsv(Conversion::formatting(date, {}), {}, {{input.c_str(), "day", output.c_str(), 0, ""}});
}

// A CSV of about `bytes` bytes in four columns, its dates in the second, its notes quoted.
std::FILE* csvOfSize(std::size_t bytes) {
    std::FILE* file = std::tmpfile();
    std::string rows = "id,when,amount,note\n";
    for (std::size_t row = 0; rows.size() < bytes; ++row) {
        rows += std::to_string(row) + ",2021-03-" + std::to_string(10 + row % 18) + "," + std::to_string(row * 3) +
                ".25,\"a note, \"\"quoted\"\", " + std::string(120, 'x') + "\"\n";
        if (rows.size() >= (1 << 20)) {
            std::fwrite(rows.data(), 1, rows.size(), file);
            bytes -= rows.size();
            rows.clear();
        }
    }
    std::fwrite(rows.data(), 1, rows.size(), file);
    std::fflush(file);
    return file;
}

TEST(KivodtCsvMemory, PeakResidentSizeDoesNotGrowWithTheInput) {
    if (const std::string reason = kivodt::test::cannotMeasureMemory(); !reason.empty()) GTEST_SKIP() << reason;
    const std::vector<const char*> job = {"convert", "--csv", "2", "ANYDTDTE", "DATE9."};
    std::FILE* small = csvOfSize(20 << 20);
    const long smallPeak = kivodt::test::peakResidentKiB(small, job, 0);
    std::fclose(small);
    std::FILE* large = csvOfSize(100 << 20);
    const long largePeak = kivodt::test::peakResidentKiB(large, job, 0);
    std::fclose(large);
    // 80 MiB more input; a run that kept even a tenth of it would show 8 MiB more.
    EXPECT_LT(largePeak - smallPeak, 8 << 10) << "20 MiB: " << smallPeak << " KiB, 100 MiB: " << largePeak << " KiB";
}

}  // namespace
