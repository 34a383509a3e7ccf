#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include "kivoconvert/Spec.h"
#include "kivodt/InputSource.h"
#include "kivodt/Runner.h"

// The front ends' tests: specs resolved, inputs that fail where a test says, and what a run wrote.
namespace kivodt::test {

// The spec resolved against the catalog; the test fails when it is refused.
inline kivoconvert::ResolvedSpec<kivoconvert::FormatEntry> format(const char* text) {
    kivoconvert::ResolvedSpec<kivoconvert::FormatEntry> spec;
    std::string error;
    EXPECT_TRUE(kivoconvert::resolveFormat(text, spec, error)) << error;
    return spec;
}
inline kivoconvert::ResolvedSpec<kivoconvert::InformatEntry> informat(const char* text) {
    kivoconvert::ResolvedSpec<kivoconvert::InformatEntry> spec;
    std::string error;
    EXPECT_TRUE(kivoconvert::resolveInformat(text, spec, error)) << error;
    return spec;
}

// Bytes handed out in reads of at most `piece` bytes; with failAt, a read that reaches that byte gives
// the bytes before it and fails with EIO.
class BytesSource final : public InputSource {
public:
    explicit BytesSource(std::string bytes, std::size_t piece = 1 << 20, std::size_t failAt = std::string::npos)
        : bytes_(std::move(bytes)), piece_(piece), failAt_(std::min(failAt, bytes_.size())),
          fails_(failAt != std::string::npos) {}

    ReadResult read(char* buffer, std::size_t size) override {
        const std::size_t last = fails_ ? failAt_ : bytes_.size();
        const std::size_t count = std::min({size, piece_, last - at_});
        std::memcpy(buffer, bytes_.data() + at_, count);
        at_ += count;
        return {count, at_ == last, at_ == last && fails_ ? EIO : 0};
    }

private:
    std::string bytes_;
    std::size_t piece_, failAt_;
    bool fails_;
    std::size_t at_ = 0;
};

inline std::string readAll(std::FILE* file) {
    std::rewind(file);
    std::string text;
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, file)) > 0;) text.append(buffer, n);
    std::fclose(file);
    return text;
}

// What a run wrote, and its status.
struct Captured {
    int status;
    std::string out;
    std::string err;
    bool operator==(const Captured&) const = default;
};

// Runs run(streams) and captures what it writes.
template <class Run>
Captured capture(Run run) {
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    const int status = run(OutputStreams{out, err});
    return {status, readAll(out), readAll(err)};
}

}  // namespace kivodt::test
