#pragma once

#include <cstdio>
#include <string>

#include "kivodt/Runner.h"

namespace kivodt::test {

// What a run wrote, and its status.
struct Captured {
    int status;
    std::string out;
    std::string err;
};

inline std::string readAll(std::FILE* file) {
    std::rewind(file);
    std::string text;
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, file)) > 0;) {
        text.append(buffer, n);
    }
    std::fclose(file);
    return text;
}

// Runs run(streams) with input on its standard input and captures what it writes.
template <class Run>
Captured capture(const std::string& input, Run run) {
    std::FILE* in = std::tmpfile();
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    std::fwrite(input.data(), 1, input.size(), in);
    std::rewind(in);
    const int status = run(kivodt::Streams{in, out, err});
    std::fclose(in);
    return {status, readAll(out), readAll(err)};
}

}  // namespace kivodt::test
