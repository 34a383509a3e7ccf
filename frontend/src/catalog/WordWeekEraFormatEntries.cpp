#include "kivodt/Catalog.h"

namespace kivodt {

std::span<const FormatEntry> wordWeekEraFormatEntries() { return {}; }

}  // namespace kivodt
