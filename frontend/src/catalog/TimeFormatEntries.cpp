#include "kivodt/Catalog.h"

namespace kivodt {

// This family has no entries yet.
std::span<const FormatEntry> timeFormatEntries() { return {}; }

}  // namespace kivodt
