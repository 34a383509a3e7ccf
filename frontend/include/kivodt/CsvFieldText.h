#pragma once

#include <string>
#include <string_view>

namespace kivodt {

// Appends the text a CSV field holds to out: the field's bytes without its surrounding quotes, each
// doubled quote inside made one. Bytes after a closing quote (a field written "ab"c) are kept as text,
// and so is a field whose closing quote never came.
void appendCsvFieldText(std::string_view field, std::string& out);

// Appends text to out as a CSV field: as it is, or in quotes with its quotes doubled when it holds the
// delimiter, a quote, a CR or a newline.
void appendAsCsvField(std::string_view text, char delimiter, std::string& out);

}  // namespace kivodt
