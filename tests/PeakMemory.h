#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

// kivodt's peak resident size on an input, for the tests that hold a run's memory to a bound.
namespace kivodt::test {

inline constexpr const char* TIME_PATH = "/usr/bin/time";

// Runs kivodt with the arguments on input under /usr/bin/time, which takes its child's resource usage
// from the kernel, and returns kivodt's peak resident size in KiB. A child started from this test would
// count the test's own pages in its peak (a spawned child records the parent's pages at its exec);
// kivodt started from the small time program counts only its own. expectedStatus: kivodt's.
inline long peakResidentKiB(std::FILE* input, std::vector<const char*> arguments, int expectedStatus) {
    std::rewind(input);
    std::FILE* report = std::tmpfile();
    const std::string reportPath = "/dev/fd/" + std::to_string(fileno(report));
    arguments.insert(arguments.begin(), {TIME_PATH, "-f", "%M", "-o", reportPath.c_str(), KIVODT_PATH});
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        const int sink = open("/dev/null", O_WRONLY);
        dup2(fileno(input), STDIN_FILENO);
        dup2(sink, STDOUT_FILENO);
        dup2(sink, STDERR_FILENO);
        execv(TIME_PATH, const_cast<char* const*>(arguments.data()));
        _exit(127);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    // time exits with its child's status.
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == expectedStatus) << "status " << status;
    // The figure is the report's last line: time puts "Command exited with non-zero status 1" before it.
    long peak = 0;
    std::rewind(report);
    char line[256];
    while (std::fgets(line, sizeof line, report) != nullptr) {
        peak = std::atol(line);
    }
    std::fclose(report);
    EXPECT_GT(peak, 0);
    return peak;
}

// Why a test that measures memory is skipped, or empty when it can run.
inline std::string cannotMeasureMemory() {
    return access(TIME_PATH, X_OK) == 0 ? "" : "/usr/bin/time is needed to measure a peak resident size";
}

}  // namespace kivodt::test
