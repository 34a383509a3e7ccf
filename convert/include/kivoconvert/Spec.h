#pragma once

#include <span>
#include <string>
#include <string_view>

#include "kivoconvert/Catalog.h"

namespace kivoconvert {

// A format spec as a user writes it: a name, an optional width, an optional point and
// decimals, in any case ("DATE9.", "date9", "TIME12.3", "DATE", "12.3").
struct SpecText {
    std::string name;
    int width = 0;  // 0 when not given
    int decimals = 0;
    bool hasWidth = false;
    bool hasDecimals = false;
};

// False, with a one-line reason in error, when the text is not of that shape.
bool parseSpecText(std::string_view text, SpecText& spec, std::string& error);

template <class Entry>
struct ResolvedSpec {
    const Entry* entry = nullptr;
    int width = 0;
    int decimals = 0;
    bool widthGiven = false;
};

// "; did you mean DATE, DAY?" for the names within two edits of the one typed, or that begin with it,
// nearest first and at most four; empty when there are none.
std::string didYouMean(std::span<const std::string_view> names, std::string_view typed);

// Looks the name up and checks the width and decimals against its limits; the default width fills in
// a missing one. On failure, error names the format, its range and, for an unknown name, close names.
bool resolveFormat(std::string_view text, ResolvedSpec<FormatEntry>& resolved, std::string& error);
bool resolveInformat(std::string_view text, ResolvedSpec<InformatEntry>& resolved, std::string& error);

}  // namespace kivoconvert
