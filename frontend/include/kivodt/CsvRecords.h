#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kivodt/InputSource.h"

namespace kivodt {

// Where one field lies in its record's bytes, its quotes included.
struct CsvFieldSpan {
    std::size_t begin;
    std::size_t end;
};

// A record of a CSV stream exactly as it came, so that every byte a run does not change can be written
// back unchanged: its bytes with the terminator, and where each field lies in them.
struct CsvRecord {
    std::string_view bytes;  // the terminator ("\n", "\r\n", or none at the end of the input) included
    std::size_t terminatorSize = 0;
    std::span<const CsvFieldSpan> fields;
    std::size_t number = 0;      // the record's place in the stream, from 1
    std::size_t line = 0;        // the line it starts on, from 1 (quoted newlines count)
    bool unclosedQuote = false;  // the input ended inside a quoted field
};

// Reads the records of a CSV stream: fields split at the delimiter, a field that starts with a quote
// runs to its closing quote (a doubled quote inside stands for one, and the delimiter and newlines are
// text there), a record ends at a newline outside quotes, with a CR before it counted as part of the
// terminator. A quote inside an unquoted field, and text after a closing quote, are kept as text. A
// UTF-8 byte-order mark at the stream's start is part of the first record's bytes but of no field.
//
// Memory stays bounded by the record limit: a record longer than it is handed on in pieces, without its
// fields, until its end.
class CsvRecords {
public:
    enum class Next { RECORD, PIECE, END, READ_FAILED };
    static constexpr std::size_t CHUNK_BYTES = 1 << 20;

    CsvRecords(InputSource& in, char delimiter, std::size_t maxRecordLength, std::size_t chunkBytes = CHUNK_BYTES);

    // RECORD with the next record (valid until the next call); PIECE with the next part of a record longer
    // than the limit, in order, its fields empty (the first piece carries the record's number and line);
    // END after the last record; READ_FAILED when reading failed (readError() says why).
    Next next(CsvRecord& record);
    int readError() const noexcept { return readError_; }

private:
    enum class State : unsigned char { FIELD_START, UNQUOTED, QUOTED, QUOTE_IN_QUOTED };

    static constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

    Next nextPiece(CsvRecord& record);
    bool skipsByteOrderMark(char c);
    void beginRecord();
    std::size_t scan(const char* data, std::size_t size, bool& ended);
    void endField(std::size_t end);
    Next finishRecord(std::string_view bytes, bool endedByNewline, CsvRecord& record);
    void describe(CsvRecord& record) const;
    bool refill();

    InputSource& in_;
    char delimiter_;
    std::size_t maxRecordLength_;
    std::vector<char> chunk_;
    const char* next_ = nullptr;  // the unread part of chunk_
    const char* end_ = nullptr;
    bool streamEnded_ = false;
    int readError_ = 0;

    std::string carry_;  // a record that spans chunks
    std::vector<CsvFieldSpan> fields_;
    State state_ = State::FIELD_START;
    std::size_t length_ = 0;      // of the record so far
    std::size_t fieldStart_ = 0;  // where the field being read begins
    std::size_t quotedNewlines_ = 0;
    bool passing_ = false;  // handing on a record longer than the limit
    std::size_t number_ = 0;
    std::size_t line_ = 1;         // the line the current record starts on
    std::size_t markMatched_ = 0;  // bytes of a byte-order mark at the stream's start; its size once past
};

}  // namespace kivodt
