#include "kivodt/CsvRowBlock.h"

#include "kivodt/CsvFieldText.h"

namespace kivodt {

void CsvRowBlock::add(const CsvRecord& record, RowTreatment treatment, std::span<const std::size_t> columns) {
    bytes_.append(record.bytes);
    rows_.push_back({bytes_.size(), record.number, record.line, record.fields.size(), treatment, fields_.size()});
    if (treatment != RowTreatment::CONVERT) {
        return;
    }
    for (const std::size_t column : columns) {
        const Field field = record.fields[column];
        fields_.push_back(field);
        appendCsvFieldText(record.bytes.substr(field.begin, field.end - field.begin), texts_);
        textEnds_.push_back(texts_.size());
    }
}

CsvRowBlock::Row CsvRowBlock::row(std::size_t i) const {
    const Kept& kept = rows_[i];
    const std::size_t begin = i == 0 ? 0 : rows_[i - 1].end;
    return {std::string_view(bytes_).substr(begin, kept.end - begin),
            kept.number,
            kept.line,
            kept.fieldCount,
            kept.treatment,
            kept.firstField};
}

std::span<const std::string_view> CsvRowBlock::texts() {
    views_.clear();
    for (std::size_t i = 0; i < textEnds_.size(); ++i) {
        const std::size_t begin = i == 0 ? 0 : textEnds_[i - 1];
        views_.push_back(std::string_view(texts_).substr(begin, textEnds_[i] - begin));
    }
    return views_;
}

void CsvRowBlock::clear() {
    bytes_.clear();
    rows_.clear();
    fields_.clear();
    texts_.clear();
    textEnds_.clear();
}

}  // namespace kivodt
