#include "kivodt/Catalog.h"

namespace kivodt {

// This family has no entries yet.
std::span<const FormatEntry> numericFormatEntries() { return {}; }

}  // namespace kivodt
