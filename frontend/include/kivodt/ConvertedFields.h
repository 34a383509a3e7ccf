#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kivodt/FieldConverter.h"

namespace kivodt {

// The outputs of an array of texts converted at once by FieldConverter::convert, with the working
// arrays of its steps, kept from one array to the next so that a stream of blocks reuses their room.
class ConvertedFields {
public:
    std::size_t size() const noexcept { return ends_.size(); }
    std::string_view output(std::size_t i) const noexcept;
    FieldProblem problem(std::size_t i) const noexcept { return problems_[i]; }

private:
    friend class FieldConverter;

    std::string bytes_;              // the outputs, end to end
    std::vector<std::size_t> ends_;  // of each output in bytes_
    std::vector<FieldProblem> problems_;
    std::vector<double> values_;
    std::string column_;  // the texts an informat reads, end to end (decoded from hex pairs)
    std::vector<std::size_t> offsets_;
    std::vector<unsigned char> accepted_;
    std::string decoded_;
    std::vector<char> fields_;  // the format's fields, end to end
};

}  // namespace kivodt
