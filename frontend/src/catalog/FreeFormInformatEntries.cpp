#include "kivodt/Catalog.h"

namespace kivodt {

// This family has no entries yet.
std::span<const InformatEntry> freeFormInformatEntries() { return {}; }

}  // namespace kivodt
