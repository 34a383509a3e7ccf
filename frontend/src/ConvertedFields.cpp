#include "kivodt/ConvertedFields.h"

namespace kivodt {

std::string_view ConvertedFields::output(std::size_t i) const noexcept {
    const std::size_t begin = i == 0 ? 0 : ends_[i - 1];
    return std::string_view(bytes_).substr(begin, ends_[i] - begin);
}

}  // namespace kivodt
