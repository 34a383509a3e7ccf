#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "kivodt/Runner.h"

// The front end's tests: specs resolved, temporary files as streams, and what a run wrote.
namespace kivodt::test {

// The spec resolved against the catalog; the test fails when it is refused.
inline ResolvedSpec<FormatEntry> format(const char* text) {
    ResolvedSpec<FormatEntry> spec;
    std::string error;
    EXPECT_TRUE(resolveFormat(text, spec, error)) << error;
    return spec;
}
inline ResolvedSpec<InformatEntry> informat(const char* text) {
    ResolvedSpec<InformatEntry> spec;
    std::string error;
    EXPECT_TRUE(resolveInformat(text, spec, error)) << error;
    return spec;
}

// A temporary file holding text, ready to be read from the start.
inline std::FILE* fileWith(const std::string& text) {
    std::FILE* file = std::tmpfile();
    std::fwrite(text.data(), 1, text.size(), file);
    std::rewind(file);
    return file;
}

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
};

// Runs run(streams) with input on its standard input and captures what it writes.
template <class Run>
Captured capture(const std::string& input, Run run) {
    std::FILE* in = fileWith(input);
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    const int status = run(Streams{in, out, err});
    std::fclose(in);
    return {status, readAll(out), readAll(err)};
}

}  // namespace kivodt::test
