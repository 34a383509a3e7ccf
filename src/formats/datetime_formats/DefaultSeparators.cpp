#include "kivo/DefaultSeparators.h"

#include <cstring>
#include <string_view>

namespace kivo {

namespace {
constexpr char SEPARATOR_CHARACTERS[] = " !#$%&()*+-./:;<=>?[\\]^_{|}~";
}  // namespace

unsigned char DefaultSeparators::SEPARATORS_TABLE[256];

DefaultSeparators::DefaultSeparators() noexcept {
    std::memset(SEPARATORS_TABLE, 0, sizeof SEPARATORS_TABLE);
    for (const char c : std::string_view(SEPARATOR_CHARACTERS)) {
        SEPARATORS_TABLE[static_cast<unsigned char>(c)] = 1;
    }
}

// Constructed when the library is loaded; its constructor fills the table.
DefaultSeparators DefaultSeparators::instance_;

}  // namespace kivo
