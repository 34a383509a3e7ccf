#pragma once

#include <cstdio>
#include <span>
#include <string_view>

#include "kivodt/Spec.h"

namespace kivodt {

// Exit statuses of kivodt.
inline constexpr int EXIT_OK = 0;
inline constexpr int EXIT_BAD_INPUT = 1;  // some value or text could not be used; the run went on
inline constexpr int EXIT_USAGE = 2;      // bad command line or spec; nothing was run

struct Streams {
    std::FILE* in;
    std::FILE* out;
    std::FILE* err;
};

// One line per value: exactly the field's bytes (as hex pairs with hex set). The values are the
// arguments, or the lines of streams.in when there are none.
int runFormat(const ResolvedSpec<FormatEntry>& spec, std::span<const std::string_view> values, bool hex,
              const Streams& streams);

// One line per text: the value read, or "invalid". Texts are hex pairs with hex set.
int runInformat(const ResolvedSpec<InformatEntry>& spec, std::span<const std::string_view> texts, bool hex,
                const Streams& streams);

// Every format and informat with its widths, default width and decimals.
void printCatalog(std::FILE* out);

}  // namespace kivodt
