#include "kivodt/Catalog.h"

namespace kivodt {

std::span<const FormatEntry> dayMonthYearFormatEntries() { return {}; }

}  // namespace kivodt
