// Reading a CSV as it came: records and their fields' bytes, field texts, and the columns --csv names.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "RunCapture.h"
#include "kivodt/CsvColumns.h"
#include "kivodt/CsvFieldText.h"
#include "kivodt/CsvRecords.h"

namespace {

// The records found in input, separated by blanks: the line each starts on, ":", its fields' bytes
// joined by "|", then its terminator with "%" for "\r" and "$" for "\n", and "!" for a quote left open; a record
// over the limit shows as "<long>". Every byte handed on must add up to the input.
std::string recordsOf(const std::string& input, char delimiter, std::size_t limit, std::size_t chunkBytes) {
    std::FILE* in = kivodt::test::fileWith(input);
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
    std::fclose(in);
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

}  // namespace
