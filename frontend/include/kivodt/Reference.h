#pragma once

#include <cstdio>
#include <string>

namespace kivodt {

// The reference of every format and informat, in Markdown, from the catalog: for each its line on what
// it shows or reads, its kind of value, widths and decimals; a format's fields for fixed example values
// at its narrowest, default and widest widths; an informat's example texts with the values it reads.
// Every example is run, under fixed options (today is 17 March 2021), so the reference cannot say what
// the entries do not do. False, with the reason, when an example text is not read wholly.
bool printReference(std::FILE* out, std::string& error);

}  // namespace kivodt
