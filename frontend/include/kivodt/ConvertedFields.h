#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kivodt/FieldConverter.h"

namespace kivodt {

// The outputs of an array of texts converted through one converter. A run gathers the texts of a block
// of lines or rows and converts them here at once, so that the block can be split between threads, each
// converting its slice into a ConvertedFields of its own.
class ConvertedFields {
public:
    // Replaces what was held by the outputs of texts, in their order.
    void convert(const FieldConverter& converter, std::span<const std::string_view> texts);

    std::size_t size() const noexcept { return ends_.size(); }
    std::string_view output(std::size_t i) const noexcept;
    FieldProblem problem(std::size_t i) const noexcept { return ends_[i].problem; }

private:
    struct End {
        std::size_t end;  // of the output in bytes_
        FieldProblem problem;
    };

    std::string bytes_;
    std::vector<End> ends_;
    FieldScratch scratch_;
};

}  // namespace kivodt
