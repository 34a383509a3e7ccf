#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kivodt {

// A column as --csv names it: a number from 1, or a name to find in the header row.
struct ColumnChoice {
    std::size_t number = 0;  // 0 when named
    std::string name;
};

// "2", "date", "2,4,shipped", and a name in double quotes as a CSV field has it (doubled quotes for a
// quote), which is a name even when it is all digits or holds a comma: "\"2021\",\"a,b\"". False, with
// a one-line reason, for an empty list or name, a number 0 or one too large, a quote that does not
// close, or a name when there is no header row.
bool parseColumnChoices(std::string_view text, bool header, std::vector<ColumnChoice>& choices, std::string& error);

// The chosen columns as indexes from 0, ascending, each once. names are the header's fields (empty
// when there is none) and fieldCount that of the first row. False, with the columns there are (the first
// 20 of them), for a name not in the header or a number past the last column; and, naming both places,
// for a name the header holds twice.
bool resolveColumns(std::span<const ColumnChoice> choices, std::span<const std::string> names, std::size_t fieldCount,
                    std::vector<std::size_t>& indexes, std::string& error);

}  // namespace kivodt
