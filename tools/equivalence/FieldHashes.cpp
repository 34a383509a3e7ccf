// Writes, for every format named on standard input, a 64-bit hash of the field of each of COUNT seeded
// values, each at a width and decimals the format accepts, in turn. Two builds of the library that
// write the same hashes wrote the same bytes. Input lines are those of `kivodt list`; the informats and
// the engine's own fixed-point layout go through the same table below.
//
//   field_hashes COUNT SEED < formats > hashes      (stderr: "NAME first-record" per format)
#include <dlfcn.h>

#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

#include "SeededValues.h"
#include "kivo/Formats.h"
// The build names the header of the engine's own numeric formats and their namespace, which moved.
#include NUMERIC_HEADER

namespace {

using Format = int (*)(char*, int, int, double);

Format frontEndFormat(const std::string& name) {
    if (name == "BEST") return NUMERIC::bestFormat;
    if (name == "D") return NUMERIC::dFormat;
    if (name == "E") return NUMERIC::eFormat;
    if (name == "w.d") return NUMERIC::blankFormat;
    if (name == "PERCENT") return NUMERIC::percentFormat;
    return nullptr;
}

Format libraryFormat(const std::string& name) {
    std::string symbol;
    for (const char c : name) {
        symbol += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return reinterpret_cast<Format>(dlsym(RTLD_DEFAULT, (symbol + "Format").c_str()));
}


}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: field_hashes COUNT SEED < formats\n";
        return 2;
    }
    const long count = std::atol(argv[1]);
    const auto seed = std::strtoull(argv[2], nullptr, 10);
    std::string line;
    long record = 0;
    while (std::getline(std::cin, line)) {
        // format    DATE       widths  5-11  default  7  decimals 0-0 ...
        std::istringstream words(line);
        std::string kind, name, widthsWord, widths, defaultWord, defaultWidth, decimalsWord, decimals;
        words >> kind >> name >> widthsWord >> widths >> defaultWord >> defaultWidth >> decimalsWord >> decimals;
        if (kind != "format") {
            continue;
        }
        const Format format = frontEndFormat(name) != nullptr ? frontEndFormat(name) : libraryFormat(name);
        if (format == nullptr) {
            std::cerr << "no format " << name << "\n";
            return 1;
        }
        const int minWidth = std::stoi(widths.substr(0, widths.find('-')));
        const int maxWidth = std::stoi(widths.substr(widths.find('-') + 1));
        const int maxDecimals = std::stoi(decimals.substr(decimals.find('-') + 1));
        const bool belowWidth = line.find("below the width") != std::string::npos;
        std::cerr << name << ' ' << record << '\n';
        kivo::testing::SeededValues values(seed);
        for (long i = 0; i < count; ++i, ++record) {
            const int width = minWidth + static_cast<int>(i % (maxWidth - minWidth + 1));
            int d = static_cast<int>(i / (maxWidth - minWidth + 1) % (maxDecimals + 1));
            if (belowWidth && d >= width) {
                d = width - 1;
            }
            char field[64];
            format(field, width, d, values.next());
            const std::uint64_t seed = kivo::testing::FIELD_HASH_START ^ static_cast<std::uint64_t>(width * 64 + d);
            const std::uint64_t hash = kivo::testing::hashField(field, width, seed);
            std::fwrite(&hash, sizeof hash, 1, stdout);
        }
    }
    return 0;
}
