#include "kivoconvert/Catalog.h"

#include <array>
#include <vector>

namespace kivoconvert {

namespace {

template <class Entry>
std::vector<Entry> concatenate(std::initializer_list<std::span<const Entry>> families) {
    std::vector<Entry> all;
    for (std::span<const Entry> family : families) {
        all.insert(all.end(), family.begin(), family.end());
    }
    return all;
}

bool sameNameIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
        if (upper(a[i]) != upper(b[i])) {
            return false;
        }
    }
    return true;
}

template <class Entry>
const Entry* findIn(std::span<const Entry> entries, std::string_view name) {
    for (const Entry& entry : entries) {
        if (sameNameIgnoringCase(entry.name, name)) {
            return &entry;
        }
    }
    return nullptr;
}

}  // namespace

std::span<const FormatEntry> formatCatalog() {
    static const std::vector<FormatEntry> all =
        concatenate<FormatEntry>({dateFormatEntries(), dayMonthYearFormatEntries(), wordWeekEraFormatEntries(),
                                  timeFormatEntries(), numericFormatEntries()});
    return all;
}

std::span<const InformatEntry> informatCatalog() {
    static const std::vector<InformatEntry> all =
        concatenate<InformatEntry>({freeFormInformatEntries(), textInformatEntries(), machineInformatEntries()});
    return all;
}

const FormatEntry* findFormat(std::string_view name) { return findIn(formatCatalog(), name); }

const InformatEntry* findInformat(std::string_view name) { return findIn(informatCatalog(), name); }

}  // namespace kivoconvert
