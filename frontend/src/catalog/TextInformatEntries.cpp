#include "kivodt/Catalog.h"

namespace kivodt {

std::span<const InformatEntry> textInformatEntries() { return {}; }

}  // namespace kivodt
