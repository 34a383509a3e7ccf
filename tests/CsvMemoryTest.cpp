// kivodt streams a CSV through a bounded amount of memory: five times the input must not need more.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
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

// Runs kivodt convert --csv 2 ANYDTDTE DATE9. on input and returns its peak resident size in KiB.
long peakResidentKiB(std::FILE* input) {
    std::rewind(input);
    const pid_t child = fork();
    if (child == 0) {
        const int sink = open("/dev/null", O_WRONLY);
        dup2(fileno(input), STDIN_FILENO);
        dup2(sink, STDOUT_FILENO);
        const char* arguments[] = {KIVODT_PATH, "convert", "--csv", "2", "ANYDTDTE", "DATE9.", nullptr};
        execv(KIVODT_PATH, const_cast<char* const*>(arguments));
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    EXPECT_EQ(wait4(child, &status, 0, &usage), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
    return usage.ru_maxrss;
}

TEST(KivodtCsvMemory, PeakResidentSizeDoesNotGrowWithTheInput) {
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
