// Formats and informats on several threads while another thread changes the options they read: every
// call sees one whole option value, the old or the new.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "kivo/Formats.h"
#include "kivo/Informats.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace {

TEST(Concurrency, CallsSeeWholeOptionValuesWhileTheyChange) {
    kivo::ServiceLocator& host = kivo::getFallbackServiceCreator();
    host.systemOptions().setOption("datestyle", "dmy");
    std::atomic<bool> stop{false};
    std::atomic<int> oddResults{0};
    std::vector<std::thread> callers;
    for (int t = 0; t < 3; ++t) {
        callers.emplace_back([&] {
            char field[5];
            double day = 0;
            while (!stop.load()) {
                anydtdteInformat("01/02/2003", 10, 10, 0, &day);
                dateFormat(field, 5, 0, kivo::lum_numeric::MISSING);
                const std::string shown(field, 5);
                // 1 February or 2 January 2003; "." or "?" for the missing value.
                if ((day != 15737 && day != 15707) || (shown != "    ." && shown != "    ?")) ++oddResults;
            }
        });
    }
    for (int i = 0; i < 300; ++i) {
        host.systemOptions().setOption("datestyle", i % 2 == 0 ? "mdy" : "dmy");
        host.env().setMissingChar(i % 2 == 0 ? '?' : '.');
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    stop = true;
    for (std::thread& caller : callers) caller.join();
    host.systemOptions().setOption("datestyle", "locale");
    host.env().setMissingChar('.');
    EXPECT_EQ(oddResults.load(), 0);
}

}  // namespace
