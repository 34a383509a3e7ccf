#include "kivodt/Catalog.h"

namespace kivodt {

std::span<const InformatEntry> machineInformatEntries() { return {}; }

}  // namespace kivodt
