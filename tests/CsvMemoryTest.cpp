// kivodt streams a CSV through a bounded amount of memory: five times the input must not need more.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <string>

namespace {

// A CSV of about `bytes` bytes in four columns, its dates in the second, its notes quoted.
std::FILE* csvOfSize(std::size_t bytes) {
    std::FILE* file = std::tmpfile();
    std::string rows = "id,when,amount,note\n";
    for (std::size_t row = 0; rows.size() < bytes; ++row) {
        rows += std::to_string(row) + ",2021-03-" + std::to_string(10 + row % 18) + "," + std::to_string(row * 3) +
                ".25,\"a note, \"\"quoted\"\", " + std::string(120, 'x') + "\"\n";
        if (rows.size() >= (1 << 20)) {
            std::fwrite(rows.data(), 1, rows.size(), file);
            bytes -= rows.size();
            rows.clear();
        }
    }
    std::fwrite(rows.data(), 1, rows.size(), file);
    std::fflush(file);
    return file;
}

constexpr const char* TIME_PATH = "/usr/bin/time";

// Runs kivodt convert --csv 2 ANYDTDTE DATE9. on input under /usr/bin/time and returns its peak resident
// size in KiB. A child forked from this test would count the test's own pages in its peak; kivodt forked
// from the small time program counts only its own.
long peakResidentKiB(std::FILE* input) {
    std::rewind(input);
    std::FILE* report = std::tmpfile();
    const std::string reportPath = "/dev/fd/" + std::to_string(fileno(report));
    const pid_t child = fork();
    if (child == 0) {
        const int sink = open("/dev/null", O_WRONLY);
        dup2(fileno(input), STDIN_FILENO);
        dup2(sink, STDOUT_FILENO);
        const char* arguments[] = {TIME_PATH, "-f",    "%M", "-o",       reportPath.c_str(), KIVODT_PATH,
                                   "convert", "--csv", "2",  "ANYDTDTE", "DATE9.",           nullptr};
        execv(TIME_PATH, const_cast<char* const*>(arguments));
        _exit(127);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
    long peak = 0;
    std::rewind(report);
    EXPECT_EQ(std::fscanf(report, "%ld", &peak), 1);
    std::fclose(report);
    return peak;
}

TEST(KivodtCsvMemory, PeakResidentSizeDoesNotGrowWithTheInput) {
    if (access(TIME_PATH, X_OK) != 0) {
        GTEST_SKIP() << TIME_PATH << " is needed to measure kivodt's peak resident size (Debian package time)";
    }
    std::FILE* small = csvOfSize(20 << 20);
    const long smallPeak = peakResidentKiB(small);
    std::fclose(small);
    std::FILE* large = csvOfSize(100 << 20);
    const long largePeak = peakResidentKiB(large);
    std::fclose(large);
    // 80 MiB more input; a run that kept even a tenth of it would show 8 MiB more.
    EXPECT_LT(largePeak - smallPeak, 8 << 10) << "20 MiB: " << smallPeak << " KiB, 100 MiB: " << largePeak << " KiB";
}

}  // namespace
