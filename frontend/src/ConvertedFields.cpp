#include "kivodt/ConvertedFields.h"

namespace kivodt {

void ConvertedFields::convert(const FieldConverter& converter, std::span<const std::string_view> texts) {
    bytes_.clear();
    ends_.clear();
    for (const std::string_view text : texts) {
        const FieldProblem problem = converter.convert(text, bytes_, scratch_);
        ends_.push_back({bytes_.size(), problem});
    }
}

std::string_view ConvertedFields::output(std::size_t i) const noexcept {
    const std::size_t begin = i == 0 ? 0 : ends_[i - 1].end;
    return std::string_view(bytes_).substr(begin, ends_[i].end - begin);
}

}  // namespace kivodt
