// Arbitrary bytes through the conversion engine, as every front end hands it texts: byte 0 picks an
// informat of the catalog, byte 1 whether its spec gives a width and whether its texts are hex pairs,
// and the rest, cut at "\n", are the texts, read and then written with a format of the kind the
// informat reads. Each text is a heap block of exactly its size, so the engine's field cut, its look
// past the width and its hex decoding are caught by AddressSanitizer if they stray; every output keeps
// to its room, and a text is left out exactly when it is blank.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kivoconvert/Conversion.h"
#include "kivoconvert/Values.h"

namespace {

using namespace kivoconvert;

// A format that shows what an informat of this kind reads.
const FormatEntry& formatFor(ValueKind kind) {
    constexpr const char* NAMES[] = {"DATE", "DATETIME", "TIME", "BEST"};
    return *findFormat(NAMES[static_cast<int>(kind)]);
}

void check(bool condition) {
    if (!condition) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const InformatEntry& entry = informatCatalog()[data[0] % informatCatalog().size()];
    const bool widthGiven = (data[1] & 1) != 0;
    const HexSides hex{(data[1] & 2) != 0, (data[1] & 4) != 0};
    const ResolvedSpec<InformatEntry> informat{&entry, entry.limits.defaultWidth, 0, widthGiven};
    const FormatEntry& shown = formatFor(entry.kind);
    const ResolvedSpec<FormatEntry> format{&shown, shown.limits.defaultWidth, 0, false};
    Conversion conversion;
    std::string error;
    check(Conversion::converting(informat, format, hex, conversion, error));

    std::vector<std::unique_ptr<char[]>> blocks;
    std::vector<std::string_view> texts;
    const std::string_view rest(reinterpret_cast<const char*>(data) + 2, size - 2);
    for (std::size_t begin = 0; begin <= rest.size();) {
        const std::size_t end = std::min(rest.find('\n', begin), rest.size());
        blocks.emplace_back(new char[end - begin]);
        std::copy(rest.begin() + static_cast<std::ptrdiff_t>(begin), rest.begin() + static_cast<std::ptrdiff_t>(end),
                  blocks.back().get());
        texts.emplace_back(blocks.back().get(), end - begin);
        begin = end + 1;
    }
    ConvertedBlock out;
    conversion.convert(texts, out, Fanout(1));
    for (std::size_t i = 0; i < texts.size(); ++i) {
        check(out.output(i).size() <= conversion.outputSize());
        check((out.note(i) == Note::LEFT_OUT) == isBlankText(texts[i]));
        if (isNamed(out.note(i))) {
            check(!conversion.describe(out.note(i), texts[i]).empty());
        }
    }
    return 0;
}
