#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "formats/FailureSite.h"

// Death tests over a table of failure sites: each provoked call must stop the process with its site's
// report, "kivoFail: MESSAGE [SOURCE:LINE]", and every site of the table must be provoked or named as
// unreachable.
namespace kivo::test {

using format::FailureSite;

// The report of a site (any record of message, source and line) as a regular expression.
template <class Site>
std::string reportOf(const Site& site) {
    std::string pattern = "kivoFail: ";
    for (const char c : std::string(site.message) + " [" + site.source + ":" + std::to_string(site.line) + "]") {
        if (std::string_view("\\^$.|?*+()[]{}").find(c) != std::string_view::npos) pattern += '\\';
        pattern += c;
    }
    return pattern;
}

struct Provoked {
    const FailureSite& site;
    std::function<void()> call;
};

inline bool same(const FailureSite& a, const FailureSite& b) {
    return std::string_view(a.message) == b.message && std::string_view(a.source) == b.source && a.line == b.line;
}

// Each provoked call dies with its site's report; every site of the table is either provoked or
// named among the unreachable ones.
inline void expectTableReported(std::span<const FailureSite> table, const std::vector<Provoked>& provoked,
                         const std::vector<const FailureSite*>& unreachable) {
    for (const Provoked& p : provoked) EXPECT_DEATH(p.call(), reportOf(p.site)) << p.site.line;
    for (const FailureSite& site : table) {
        const auto covers = [&](const FailureSite& other) { return same(site, other); };
        const bool covered =
            std::any_of(provoked.begin(), provoked.end(), [&](const Provoked& p) { return covers(p.site); }) ||
            std::any_of(unreachable.begin(), unreachable.end(), [&](const FailureSite* s) { return covers(*s); });
        EXPECT_TRUE(covered) << site.source << ":" << site.line << " is neither provoked nor listed as unreachable";
    }
}

}  // namespace kivo::test
