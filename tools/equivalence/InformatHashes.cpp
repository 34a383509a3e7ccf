// The informats' half of the equivalence check. Two modes:
//
//   informat_hashes corpus COUNT SEED < list > corpus    COUNT texts, written with the formats of this
//                                                         build: fields as formats write them, alone
//                                                         or two joined as a datetime is (valid), the
//                                                         same with a few bytes changed (near-valid),
//                                                         and missing notations, long digit runs, packed
//                                                         decimal words and random bytes (hostile)
//   informat_hashes hash CORPUS < list > hashes           for every informat of the list, a line of its
//                                                         name, the texts, how many it accepted and a
//                                                         hash of the result of every text (the value's
//                                                         bits and the return code)
//
// The list is `kivodt list`. Each text is cut, or padded with blanks, to the widths its informat takes
// and handed over as kivodt does (width, the same length, decimals 0), with a result that starts as a
// marker, so that a value left untouched counts too. The corpus is written once, by the build before a
// change, and read by both builds: the texts do not move with the formats under test.
#include <dlfcn.h>

#include <bit>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "SeededValues.h"
#include "kivo/Formats.h"
#include "kivo/Informats.h"

namespace {

struct Entry {
    std::string name;
    int minWidth;
    int maxWidth;
    int maxDecimals;
    bool decimalsBelowWidth;
    void* function;
};

// The entries of one kind ("format" or "informat") that the library exports.
std::vector<Entry> entriesOf(const std::string& kind, const std::vector<std::string>& lines) {
    std::vector<Entry> entries;
    for (const std::string& line : lines) {
        // informat  DATE       widths  5-32  default  7  decimals 0-31
        std::istringstream words(line);
        std::string lineKind, name, widthsWord, widths, defaultWord, defaultWidth, decimalsWord, decimals;
        words >> lineKind >> name >> widthsWord >> widths >> defaultWord >> defaultWidth >> decimalsWord >> decimals;
        if (lineKind != kind) {
            continue;
        }
        std::string symbol;
        for (const char c : name) {
            symbol += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
        symbol += kind == "format" ? "Format" : "Informat";
        void* function = dlsym(RTLD_DEFAULT, symbol.c_str());
        if (function == nullptr) {
            continue;  // the front end's own numeric formats
        }
        entries.push_back({name, std::stoi(widths.substr(0, widths.find('-'))),
                           std::stoi(widths.substr(widths.find('-') + 1)),
                           std::stoi(decimals.substr(decimals.find('-') + 1)),
                           line.find("below the width") != std::string::npos, function});
    }
    return entries;
}

class Corpus {
public:
    // namesakes: the formats that share a name with an informat, whose fields that informat reads back.
    Corpus(std::uint64_t seed, std::vector<Entry> formats, std::vector<Entry> namesakes)
        : state_(seed), values_(seed), formats_(std::move(formats)), namesakes_(std::move(namesakes)) {}

    std::string next() {
        switch (below(10)) {
            case 0: return trimmedSometimes(formatted(formats_));
            case 1: case 2: return trimmedSometimes(formatted(namesakes_));
            case 3: return isoDatetime();
            case 4: return changed(trimmedSometimes(formatted(formats_)));
            case 5: return changed(trimmedSometimes(formatted(namesakes_)));
            case 6: return MISSING_NOTATIONS[below(std::size(MISSING_NOTATIONS))];
            case 7: return digitRun();
            case 8: return packedWord();
            default: return randomBytes();
        }
    }

private:
    static constexpr char JOINS[] = " T:";
    static constexpr const char* MISSING_NOTATIONS[] = {".", "._", ".A", ".z", " . ", "", "    ", "..", "._ ", "\t.\t"};
    static constexpr char NEAR_BYTES[] = "0123456789 /-.:,TtQqWwAaPpMmRrHhSsJANjanDECdec\t";

    std::uint64_t state_;
    kivo::testing::SeededValues values_;
    std::vector<Entry> formats_;
    std::vector<Entry> namesakes_;

    std::uint64_t bits() {
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    std::size_t below(std::size_t n) { return static_cast<std::size_t>(bits() % n); }

    std::string formatted(const std::vector<Entry>& formats) {
        const Entry& format = formats[below(formats.size())];
        const int width = format.minWidth + static_cast<int>(below(static_cast<std::size_t>(format.maxWidth - format.minWidth + 1)));
        int decimals = static_cast<int>(below(static_cast<std::size_t>(format.maxDecimals + 1)));
        if (format.decimalsBelowWidth && decimals >= width) {
            decimals = width - 1;
        }
        char field[64];
        reinterpret_cast<KivoFormatFunction>(format.function)(field, width, decimals, values_.next());
        return std::string(field, static_cast<std::size_t>(width));
    }

    // A date and a time joined as the datetime informats read them, 2021-03-17T13:45:30, or the date
    // alone: the fields of YYMMDD and TOD.
    std::string isoDatetime() {
        std::string date = "2021-03-17";
        std::string time = "13:45:30";
        for (const Entry& format : formats_) {
            char field[64];
            if (format.name == "YYMMDD") {
                reinterpret_cast<KivoFormatFunction>(format.function)(field, 10, 0, values_.next());
                date.assign(field, 10);
            } else if (format.name == "TOD") {
                const int width = below(2) == 0 ? 8 : 5;
                reinterpret_cast<KivoFormatFunction>(format.function)(field, width, 0, values_.next());
                time.assign(field, static_cast<std::size_t>(width));
            }
        }
        return below(3) == 0 ? date : date + JOINS[below(sizeof JOINS - 1)] + time;
    }

    std::string trimmedSometimes(std::string text) {
        if (below(2) == 0) {
            text.erase(0, text.find_first_not_of(' ') == std::string::npos ? text.size() : text.find_first_not_of(' '));
        }
        return text;
    }

    // One to three bytes replaced, dropped, added or swapped.
    std::string changed(std::string text) {
        const std::size_t changes = 1 + below(3);
        for (std::size_t i = 0; i < changes; ++i) {
            const char near = NEAR_BYTES[below(sizeof NEAR_BYTES - 1)];
            const std::size_t at = text.empty() ? 0 : below(text.size());
            switch (below(4)) {
                case 0: if (!text.empty()) text[at] = near; break;
                case 1: if (!text.empty()) text.erase(at, 1); break;
                case 2: text.insert(at, 1, near); break;
                default: if (text.size() > 1) std::swap(text[at], text[below(text.size())]); break;
            }
        }
        return text;
    }

    std::string digitRun() {
        std::string text = below(4) == 0 ? "-" : "";
        const std::size_t length = 1 + below(40);
        for (std::size_t i = 0; i < length; ++i) {
            text += static_cast<char>('0' + below(10));
        }
        if (below(3) == 0) {
            text.insert(below(text.size() + 1), 1, '.');
        }
        return text;
    }

    // Digit nibbles and a sign nibble, as the machine-form informats read them; sometimes a bad nibble.
    std::string packedWord() {
        std::string bytes;
        const std::size_t length = 1 + below(8);
        for (std::size_t i = 0; i < length; ++i) {
            const unsigned high = static_cast<unsigned>(below(below(8) == 0 ? 16 : 10));
            const unsigned low = i + 1 == length ? 0xA + static_cast<unsigned>(below(6)) : static_cast<unsigned>(below(10));
            bytes += static_cast<char>(high << 4 | low);
        }
        return bytes;
    }

    std::string randomBytes() {
        std::string bytes;
        const std::size_t length = below(41);
        for (std::size_t i = 0; i < length; ++i) {
            bytes += static_cast<char>(below(256));
        }
        return bytes;
    }
};

std::vector<std::string> readLines(std::istream& in) {
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

int writeCorpus(long count, std::uint64_t seed) {
    const std::vector<std::string> lines = readLines(std::cin);
    std::vector<Entry> formats = entriesOf("format", lines);
    std::vector<Entry> namesakes;
    for (const Entry& format : formats) {
        for (const Entry& informat : entriesOf("informat", lines)) {
            if (informat.name == format.name) {
                namesakes.push_back(format);
            }
        }
    }
    if (formats.empty() || namesakes.empty()) {
        std::cerr << "no library format found: is libkivoudtmf linked?\n";
        return 1;
    }
    Corpus corpus(seed, std::move(formats), std::move(namesakes));
    for (long i = 0; i < count; ++i) {
        const std::string text = corpus.next();
        const auto length = static_cast<std::uint16_t>(text.size());
        std::fwrite(&length, sizeof length, 1, stdout);
        std::fwrite(text.data(), 1, text.size(), stdout);
    }
    return 0;
}

int hashResults(const char* corpusPath) {
    std::vector<std::string> texts;
    std::ifstream corpus(corpusPath, std::ios::binary);
    std::uint16_t length = 0;
    while (corpus.read(reinterpret_cast<char*>(&length), sizeof length)) {
        std::string text(length, '\0');
        corpus.read(text.data(), length);
        texts.push_back(text);
    }
    for (const Entry& informat : entriesOf("informat", readLines(std::cin))) {
        const auto read = reinterpret_cast<KivoInformatFunction>(informat.function);
        std::uint64_t hash = kivo::testing::FIELD_HASH_START;
        long accepted = 0;
        for (std::string text : texts) {
            if (static_cast<int>(text.size()) > informat.maxWidth) {
                text.resize(static_cast<std::size_t>(informat.maxWidth));
            }
            if (static_cast<int>(text.size()) < informat.minWidth) {
                text.resize(static_cast<std::size_t>(informat.minWidth), ' ');
            }
            const int width = static_cast<int>(text.size());
            double result = std::bit_cast<double>(std::uint64_t{0x7FF4DEADBEEF0001ULL});
            const int code = read(text.data(), width, width, 0, &result);
            accepted += code != 0 ? 1 : 0;
            const std::uint64_t bits = std::bit_cast<std::uint64_t>(result);
            hash = kivo::testing::hashField(reinterpret_cast<const char*>(&bits), sizeof bits, hash);
            hash = kivo::testing::hashField(reinterpret_cast<const char*>(&code), sizeof code, hash);
        }
        std::printf("%-10s %8zu texts %8ld accepted  %016llx\n", informat.name.c_str(), texts.size(), accepted,
                    static_cast<unsigned long long>(hash));
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 4 && std::strcmp(argv[1], "corpus") == 0) {
        return writeCorpus(std::atol(argv[2]), std::strtoull(argv[3], nullptr, 10));
    }
    if (argc == 3 && std::strcmp(argv[1], "hash") == 0) {
        return hashResults(argv[2]);
    }
    std::cerr << "usage: informat_hashes corpus COUNT SEED < list > corpus | informat_hashes hash CORPUS < list\n";
    return 2;
}
