#include "kivodt/CsvRecords.h"

namespace kivodt {

CsvRecords::CsvRecords(InputSource& in, char delimiter, std::size_t maxRecordLength, std::size_t chunkBytes)
    : in_(in), delimiter_(delimiter), maxRecordLength_(maxRecordLength), chunk_(chunkBytes) {}

CsvRecords::Next CsvRecords::next(CsvRecord& record) {
    if (passing_) {
        return nextPiece(record);
    }
    beginRecord();
    for (;;) {
        if (next_ == end_ && !refill()) {
            if (readError_ != 0) {
                return Next::READ_FAILED;
            }
            return length_ > 0 ? finishRecord(carry_, false, record) : Next::END;
        }
        bool ended = false;
        const std::size_t taken = scan(next_, static_cast<std::size_t>(end_ - next_), ended);
        const std::string_view piece(next_, taken);
        next_ += taken;
        if (ended && length_ == 0) {
            length_ = taken;
            return finishRecord(piece, true, record);  // the whole record lies in the chunk: no copy
        }
        carry_.append(piece);
        length_ += taken;
        if (ended) {
            return finishRecord(carry_, true, record);
        }
        if (length_ > maxRecordLength_ + 1) {  // +1: its last byte may be a terminator's CR
            passing_ = true;
            fields_.clear();
            describe(record);
            record.bytes = carry_;
            return Next::PIECE;
        }
    }
}

CsvRecords::Next CsvRecords::nextPiece(CsvRecord& record) {
    if (next_ == end_ && !refill()) {
        passing_ = false;
        return readError_ != 0 ? Next::READ_FAILED : Next::END;
    }
    bool ended = false;
    const std::size_t taken = scan(next_, static_cast<std::size_t>(end_ - next_), ended);
    record = CsvRecord{};
    record.bytes = std::string_view(next_, taken);
    next_ += taken;
    if (ended) {
        passing_ = false;
        line_ += quotedNewlines_ + 1;
    }
    return Next::PIECE;
}

void CsvRecords::beginRecord() {
    carry_.clear();
    fields_.clear();
    state_ = State::FIELD_START;
    length_ = 0;
    fieldStart_ = 0;
    quotedNewlines_ = 0;
    ++number_;
}

// Takes the bytes of data that belong to the record being read, up to and including the newline that
// ends it (ended is then true). Positions are counted from the record's start.
std::size_t CsvRecords::scan(const char* data, std::size_t size, bool& ended) {
    std::size_t i = 0;
    // The mark is looked for before the loop, which then tests nothing more per byte than its state.
    while (markMatched_ < BYTE_ORDER_MARK.size() && i < size && skipsByteOrderMark(data[i])) {
        ++i;
    }
    for (; i < size; ++i) {
        const char c = data[i];
        switch (state_) {
            case State::QUOTED:
                if (c == '"') {
                    state_ = State::QUOTE_IN_QUOTED;
                } else if (c == '\n') {
                    ++quotedNewlines_;
                }
                continue;
            case State::QUOTE_IN_QUOTED:
                if (c == '"') {  // a doubled quote
                    state_ = State::QUOTED;
                    continue;
                }
                break;  // the closing quote: what follows is read as outside quotes
            case State::FIELD_START:
                if (c == '"') {
                    state_ = State::QUOTED;
                    continue;
                }
                break;
            case State::UNQUOTED:
                break;
        }
        if (c == delimiter_) {
            endField(length_ + i);
            state_ = State::FIELD_START;
        } else if (c == '\n') {
            endField(length_ + i);
            ended = true;
            return i + 1;
        } else {
            state_ = State::UNQUOTED;
        }
    }
    return size;
}

// A UTF-8 byte-order mark at the start of the stream belongs to no field: it passes through with the
// first record's bytes, and the first field (the first column's name) begins after it. Bytes that begin
// like a mark and then differ are text of the first field.
bool CsvRecords::skipsByteOrderMark(char c) {
    if (c == BYTE_ORDER_MARK[markMatched_]) {
        if (++markMatched_ == BYTE_ORDER_MARK.size()) {
            fieldStart_ = BYTE_ORDER_MARK.size();
        }
        return true;
    }
    if (markMatched_ > 0) {
        state_ = State::UNQUOTED;
    }
    markMatched_ = BYTE_ORDER_MARK.size();
    return false;
}

void CsvRecords::endField(std::size_t end) {
    if (!passing_) {
        fields_.push_back({fieldStart_, end});
    }
    fieldStart_ = end + 1;
}

// A CR just before the record's end belongs to the terminator, not to the last field.
CsvRecords::Next CsvRecords::finishRecord(std::string_view bytes, bool endedByNewline, CsvRecord& record) {
    if (!endedByNewline) {
        endField(bytes.size());
    }
    std::size_t terminator = endedByNewline ? 1 : 0;
    if (bytes.size() > terminator && bytes[bytes.size() - terminator - 1] == '\r' && state_ != State::QUOTED) {
        ++terminator;
        fields_.back().end -= 1;
    }
    describe(record);
    line_ += quotedNewlines_ + (endedByNewline ? 1 : 0);
    record.bytes = bytes;
    if (bytes.size() - terminator > maxRecordLength_) {
        return Next::PIECE;  // the whole of a record over the limit, in one piece
    }
    record.terminatorSize = terminator;
    record.fields = fields_;
    record.unclosedQuote = state_ == State::QUOTED;
    return Next::RECORD;
}

void CsvRecords::describe(CsvRecord& record) const {
    record = CsvRecord{};
    record.number = number_;
    record.line = line_;
}

// Bytes read before a failure still make records; the failure ends the input at the next refill.
bool CsvRecords::refill() {
    if (streamEnded_) {
        return false;
    }
    const ReadResult got = in_.read(chunk_.data(), chunk_.size());
    streamEnded_ = got.ended;
    readError_ = got.error;
    next_ = chunk_.data();
    end_ = next_ + got.bytes;
    return got.bytes > 0;
}

}  // namespace kivodt
