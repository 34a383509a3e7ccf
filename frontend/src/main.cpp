// kivodt: the date, time and numeric formats and informats of libkivoudtmf from the command line.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "kivodt/Runner.h"
#include "kivodt/Spec.h"
#include "kivox/Services.h"

namespace {

constexpr const char* USAGE = R"(usage:
  kivodt [OPTIONS] format SPEC [VALUE...]    one line per value: exactly the field's bytes
  kivodt [OPTIONS] informat SPEC [TEXT...]   one line per text: the value read, or "invalid"
  kivodt list                                every format and informat with its widths and decimals
  kivodt --help

SPEC is a name with an optional width, point and decimals, in any case: DATE9. date9 TIME12.3 DATE
(a missing width takes the format's default width).

A VALUE is a decimal number (22356, -0.5, 1e9) or a missing value: . ._ .A ... .Z
With no VALUE or TEXT arguments, they are read from standard input, one per line.
An informat's field is the first `width` bytes of the text, or the whole text when it is shorter or
when SPEC gives no width.

Options (before the command):
  --hex               write fields / read texts as hex byte pairs (for packed and machine layouts)
  --datestyle STYLE   the "datestyle" option: dmy dym mdy myd ydm ymd or locale (default locale)
  --yearcutoff YEAR   first year of the window that two-digit years fall into (default 1940)
  --missing-char C    the character printed for an ordinary missing value (default .)

Exit status: 0 all went well; 1 some value or text could not be used (named on standard error), or
reading the input or writing the output failed; 2 bad command line or spec.
)";

int usageError(const std::string& message) {
    std::fprintf(stderr, "kivodt: %s\n(kivodt --help explains the usage)\n", message.c_str());
    return kivodt::EXIT_USAGE;
}

// Closes standard output so that a failure to write its last bytes ends the run with a message and
// status 1 instead of being lost at exit. The runner checks each of its writes and names a failure
// itself; a failure it already named is not named again.
int closeStandardOutput(int status, bool failureNamed) {
    errno = 0;
    const bool failed = std::ferror(stdout) != 0;
    if (std::fclose(stdout) == 0 && !failed) {
        return status;
    }
    if (!failureNamed) {
        std::fprintf(stderr, "kivodt: cannot write standard output: %s\n", std::strerror(errno != 0 ? errno : EIO));
    }
    return kivodt::EXIT_STREAM_FAILED;
}

bool isDateStyle(std::string_view style) {
    for (const char* known : {"dmy", "dym", "mdy", "myd", "ydm", "ymd", "locale"}) {
        if (style == known) {
            return true;
        }
    }
    return false;
}

// Applies one option with its argument to the process-wide host services; false with a message.
bool applyOption(std::string_view option, const char* argument, std::string& error) {
    kivo::ServiceLocator& host = kivo::getFallbackServiceCreator();
    if (option == "--datestyle") {
        if (!isDateStyle(argument)) {
            error = std::string("--datestyle takes dmy, dym, mdy, myd, ydm, ymd or locale, not \"") + argument + "\"";
            return false;
        }
        return host.systemOptions().setOption("datestyle", argument);
    }
    if (option == "--yearcutoff") {
        if (!host.systemOptions().setOption("yearcutoff", argument)) {
            error = std::string("--yearcutoff takes a year from 1582 to 19900, not \"") + argument + "\"";
            return false;
        }
        return true;
    }
    if (option == "--missing-char") {
        if (std::strlen(argument) != 1) {
            error = std::string("--missing-char takes one character, not \"") + argument + "\"";
            return false;
        }
        host.env().setMissingChar(argument[0]);
        return true;
    }
    error = "unknown option " + std::string(option);
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string_view> args(argv + 1, argv + argc);
    bool hex = false;
    std::size_t next = 0;
    std::string error;
    for (; next < args.size() && args[next].starts_with("--"); ++next) {
        const std::string_view option = args[next];
        if (option == "--help") {
            std::fputs(USAGE, stdout);
            return closeStandardOutput(kivodt::EXIT_OK, false);
        }
        if (option == "--hex") {
            hex = true;
            continue;
        }
        if (next + 1 >= args.size()) {
            return usageError(std::string(option) + " needs an argument");
        }
        if (!applyOption(option, argv[next + 2], error)) {
            return usageError(error);
        }
        ++next;
    }
    if (next >= args.size()) {
        return usageError("no command given");
    }
    const std::string_view command = args[next++];
    const kivodt::Streams streams{stdin, stdout, stderr};
    if (command == "list") {
        kivodt::printCatalog(stdout);
        return closeStandardOutput(kivodt::EXIT_OK, false);
    }
    if (command != "format" && command != "informat") {
        return usageError("unknown command \"" + std::string(command) + "\"");
    }
    if (next >= args.size()) {
        return usageError(std::string(command) + " needs a SPEC");
    }
    const std::string_view specText = args[next++];
    const std::span<const std::string_view> inputs(args.data() + next, args.size() - next);
    const kivodt::RunOptions options{.hex = hex};
    int status = kivodt::EXIT_OK;
    if (command == "format") {
        kivodt::ResolvedSpec<kivodt::FormatEntry> spec;
        if (!kivodt::resolveFormat(specText, spec, error)) {
            return usageError(error);
        }
        status = kivodt::runFormat(spec, inputs, options, streams);
    } else {
        kivodt::ResolvedSpec<kivodt::InformatEntry> spec;
        if (!kivodt::resolveInformat(specText, spec, error)) {
            return usageError(error);
        }
        status = kivodt::runInformat(spec, inputs, options, streams);
    }
    return closeStandardOutput(status, std::ferror(stdout) != 0);
}
