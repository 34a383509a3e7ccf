// kivodt: the date, time and numeric formats and informats of libkivoudtmf from the command line.
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <new>
#include <vector>

#include "kivoconvert/Conversion.h"
#include "kivoconvert/Notes.h"
#include "kivodt/CommandLine.h"
#include "kivodt/CsvRunner.h"
#include "kivodt/LineReader.h"
#include "kivodt/Runner.h"
#include "kivox/Services.h"

namespace {

constexpr const char* USAGE = R"(usage:
  kivodt [OPTIONS] format [OPTIONS] SPEC [VALUE...]
      one line per value: exactly the field's bytes
  kivodt [OPTIONS] informat [OPTIONS] SPEC [TEXT...]
      one line per text: the value read, or "invalid"
  kivodt [OPTIONS] convert [OPTIONS] INFORMAT FORMAT [TEXT...]
      one line per text: read with INFORMAT, written with FORMAT
  kivodt [OPTIONS] --csv COLUMNS format|informat|convert [OPTIONS] SPEC...
      a CSV from standard input, written back with those columns' fields converted
  kivodt list
      every format and informat with its widths and decimals
  kivodt --help

SPEC is a name with an optional width, point and decimals, in any case: DATE9. date9 TIME12.3 DATE
(a missing width takes the format's default width).

A VALUE is a decimal number (22356, -0.5, 1e9) or a missing value: . ._ .A ... .Z
With no VALUE or TEXT arguments, they are read from standard input, one per line.
An informat's field is the first `width` bytes of the text, or the whole text when it is shorter or
when SPEC gives no width. convert gives a date format the day of a datetime and a datetime format the
midnight of a day; a text INFORMAT rejects is named and gives a blank field.

Options (before or after the command, not after SPEC: there "-5" or "--hex" is a value):
  --hex               write fields / read texts as hex byte pairs (for packed and machine layouts)
  --datestyle STYLE   the "datestyle" option: dmy dym mdy myd ydm ymd or locale (default locale)
  --yearcutoff YEAR   first year of the window that two-digit years fall into (default 1940)
  --missing-char C    the character printed for an ordinary missing value (default .)
  --today YYYY-MM-DD  the day taken as today (NENGO's last era ends there; default: the machine's clock)
  --hex-in, --hex-out read texts / write fields as hex pairs, on one side of convert only
  --keep              convert and --csv: a text that cannot be used is written as it came

CSV (RFC 4180 quoting; every byte but the converted fields' is written back as it came):
  --csv COLUMNS       the columns to convert: numbers from 1 or header names, e.g. 2,shipped
  --no-header         the first row is data, not names
  --delimiter C       the field delimiter (default ,), e.g. ";" or tab
  --keep-blanks       keep the leading blanks of the fields written (by default they are dropped)
  --threads N         convert standard input on N threads (default: the online cores; 1 reads line by
                      line); the output is the same for any N
A row with another number of fields than the first is named and copied unchanged; an empty field
stays empty.

Environment: KIVO_DATESTYLE, KIVO_YEARCUTOFF, KIVO_MISSING_CHAR and KIVO_TODAY give those options their first
values, KIVO_LOCALE_DATESTYLE the locale's date style (default mdy); a bad value is an error.

Exit status: 0 all went well; 1 some value or text could not be used (named on standard error), or
reading the input or writing the output failed; 2 bad command line, spec or environment variable.
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

// A format that writes bytes shows them only as hex pairs; an informat that reads bytes takes them so.
bool refuseBytesAsText(const kivoconvert::Conversion& conversion, kivoconvert::HexSides hex, std::string& error) {
    const auto* format = conversion.format().entry;
    const auto* informat = conversion.informat().entry;
    if (format != nullptr && format->writesBytes && !hex.output) {
        error = std::string(format->name) + " writes bytes, not text: run it with --hex or --hex-out";
    } else if (informat != nullptr && informat->readsBytes() && !hex.input) {
        error = std::string(informat->name) + " reads bytes, not text: give them as hex pairs with --hex or --hex-in";
    }
    return !error.empty();
}

// The conversion the command asks for: format, informat or convert.
bool makeConversion(const kivodt::CommandLine& line, kivoconvert::Conversion& conversion, std::string& error) {
    const kivoconvert::HexSides hex{line.hex || line.hexInput, line.hex || line.hexOutput};
    kivoconvert::ResolvedSpec<kivoconvert::InformatEntry> informat;
    kivoconvert::ResolvedSpec<kivoconvert::FormatEntry> format;
    if (line.command == "format") {
        if (!kivoconvert::resolveFormat(line.spec, format, error)) {
            return false;
        }
        conversion = kivoconvert::Conversion::formatting(format, hex);
    } else if (!kivoconvert::resolveInformat(line.spec, informat, error)) {
        return false;
    } else if (line.command == "informat") {
        conversion = kivoconvert::Conversion::reading(informat, hex);
    } else if (!kivoconvert::resolveFormat(line.formatSpec, format, error) ||
               !kivoconvert::Conversion::converting(informat, format, hex, conversion, error)) {
        return false;
    }
    return !refuseBytesAsText(conversion, hex, error);
}

// --threads N, or the cores online when it is not given.
bool threadCount(const kivodt::CommandLine& line, int& threads, std::string& error) {
    constexpr int MOST_THREADS = 256;
    if (!line.threads) {
        threads = std::clamp(static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN)), 1, MOST_THREADS);
        return true;
    }
    const std::string_view text = *line.threads;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), threads);
    if (problem != std::errc() || end != text.data() + text.size() || threads < 1 || threads > MOST_THREADS) {
        error = "--threads takes a number from 1 to 256, not " + kivoconvert::quotedForMessage(text);
        return false;
    }
    return true;
}

int run(const kivodt::CommandLine& line) {
    kivodt::RunOptions options{.keep = line.keep};
    kivodt::CsvOptions csv;
    std::vector<kivodt::ColumnChoice> columns;
    kivoconvert::Conversion conversion;
    std::string error;
    if (!threadCount(line, options.threads, error) || !kivodt::csvOptionsOf(line, csv, columns, error) ||
        !makeConversion(line, conversion, error)) {
        return usageError(error);
    }
    const kivodt::OutputStreams streams{stdout, stderr};
    kivodt::StreamSource input(stdin);
    if (line.csv) {
        return kivodt::runCsv(conversion, csv, options, input, streams);
    }
    if (!line.inputs.empty()) {
        kivodt::LineReader arguments(line.inputs, {});
        return kivodt::runLines(conversion, arguments, options, streams);
    }
    kivodt::LineReader lines(input);
    return kivodt::runLines(conversion, lines, options, streams);
}

int runCommandLine(int argc, char** argv) {
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    kivodt::CommandLine line;
    std::string error;
    if (!kivodt::parseCommandLine(arguments, line, error)) {
        return usageError(error);
    }
    if (line.help) {
        std::fputs(USAGE, stdout);
        return closeStandardOutput(kivodt::EXIT_OK, false);
    }
    // Checked before any input is read, like the options: a bad variable would otherwise surface only
    // when a call first reads its option, in the middle of the output.
    if (!kivodt::checkEnvironment(kivo::rejectedEnvironment(), error)) {
        std::fprintf(stderr, "kivodt: %s\n", error.c_str());
        return kivodt::EXIT_USAGE;
    }
    if (!kivodt::applySettings(line, kivo::getFallbackServiceCreator(), error)) {
        return usageError(error);
    }
    if (line.command == "list") {
        kivodt::printCatalog(stdout);
        return closeStandardOutput(kivodt::EXIT_OK, false);
    }
    const int status = run(line);
    return status == kivodt::EXIT_USAGE ? status : closeStandardOutput(status, std::ferror(stdout) != 0);
}

}  // namespace

// Memory runs out only when the machine has none to give (every buffer of a run is bounded); the run
// then ends with one line, as on any other fault, rather than an abort.
int main(int argc, char** argv) {
    try {
        return runCommandLine(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("kivodt: out of memory\n", stderr);
        return kivodt::EXIT_STREAM_FAILED;
    }
}
