#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kivodt/CsvRecords.h"

namespace kivodt {

// How a row is written back: its chosen fields converted, or copied as it came because its field count
// differs from the first row's, or because its quote never closed.
enum class RowTreatment { CONVERT, RAGGED, UNCLOSED_QUOTE };

// Rows gathered so that the chosen fields of all of them are converted as one array. Each row's bytes
// are kept as they came, with where its chosen fields lie in them and the texts those fields hold.
class CsvRowBlock {
public:
    static constexpr std::size_t MAX_ROWS = 65536;
    static constexpr std::size_t MAX_BYTES = std::size_t{4} << 20;

    explicit CsvRowBlock(std::size_t maxRows = MAX_ROWS) : maxRows_(maxRows) {}

    struct Row {
        std::string_view bytes;
        std::size_t number;
        std::size_t line;
        std::size_t fieldCount;
        RowTreatment treatment;
        std::size_t firstField;  // of its chosen fields in fields() and texts()
    };
    // A chosen field: where it lies in its row's bytes.
    using Field = CsvFieldSpan;

    // columns: the chosen columns' indexes, each below the record's field count when it is converted.
    void add(const CsvRecord& record, RowTreatment treatment, std::span<const std::size_t> columns);
    bool full() const noexcept { return rows_.size() >= maxRows_ || bytes_.size() >= MAX_BYTES; }
    std::size_t rowCount() const noexcept { return rows_.size(); }
    std::size_t bytes() const noexcept { return bytes_.size(); }
    Row row(std::size_t i) const;
    std::span<const Field> fields() const noexcept { return fields_; }
    // The chosen fields' texts, in row and column order: the array to convert.
    std::span<const std::string_view> texts();
    void clear();

private:
    struct Kept {
        std::size_t end;  // of the row's bytes in bytes_
        std::size_t number;
        std::size_t line;
        std::size_t fieldCount;
        RowTreatment treatment;
        std::size_t firstField;
    };

    std::size_t maxRows_;
    std::string bytes_;
    std::vector<Kept> rows_;
    std::vector<Field> fields_;  // in their row's bytes
    std::string texts_;
    std::vector<std::size_t> textEnds_;
    std::vector<std::string_view> views_;
};

}  // namespace kivodt
