#pragma once

#include "formats/datetime_formats/AnydtParseInfo.h"
#include "kivo/AnydtInformats.h"

namespace kivo::anydt {

// Matches the shape of a scanned field (how many values, where the month name stands, which
// separators) against the layouts the reader knows; the first that fits sets result and type.
bool interpret(const ParseInfo& pi, int monthIndex, double& result, AnydtType& type) noexcept;

}  // namespace kivo::anydt
