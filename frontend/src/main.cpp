// kivodt: the date, time and numeric formats and informats of libkivoudtmf from the command line.
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "kivoconvert/Conversion.h"
#include "kivoconvert/Notes.h"
#include "kivoconvert/Spec.h"
#include "kivodt/CommandLine.h"
#include "kivodt/CsvRunner.h"
#include "kivodt/GuessRunner.h"
#include "kivodt/LineReader.h"
#include "kivodt/Reference.h"
#include "kivodt/Runner.h"
#include "kivodt/Usage.h"
#include "kivox/Services.h"

namespace {

int usageError(const std::string& message) {
    std::fprintf(stderr, "kivodt: %s\n", message.c_str());
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

std::vector<std::string_view> commandNames() {
    std::vector<std::string_view> names;
    for (const kivodt::CommandWord& command : kivodt::commandWords()) {
        names.push_back(command.word);
    }
    return names;
}

// A spec whose name is not in the catalog, with no name close to it either, points to the list.
std::string withListHint(std::string error) {
    if (error.starts_with("unknown ") && error.find("did you mean") == std::string::npos) {
        error += "; kivodt list shows them all";
    }
    return error;
}

// The conversion the command asks for: format, informat or convert.
bool makeConversion(const kivodt::CommandLine& line, kivoconvert::Conversion& conversion, std::string& error) {
    const kivoconvert::HexSides hex{line.hex || line.hexInput, line.hex || line.hexOutput};
    kivoconvert::ResolvedSpec<kivoconvert::InformatEntry> informat;
    kivoconvert::ResolvedSpec<kivoconvert::FormatEntry> format;
    if (line.commandBit == kivodt::FORMAT) {
        if (!kivoconvert::resolveFormat(line.spec, format, error)) {
            return false;
        }
        conversion = kivoconvert::Conversion::formatting(format, hex);
    } else if (!kivoconvert::resolveInformat(line.spec, informat, error)) {
        return false;
    } else if (line.commandBit == kivodt::INFORMAT) {
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

// guess: the informat that reads the texts, or each chosen column of a CSV.
int guess(const kivodt::CommandLine& line, const kivodt::CsvOptions& csv) {
    const kivodt::OutputStreams streams{stdout, stderr};
    kivodt::StreamSource input(stdin);
    if (line.csv) {
        return kivodt::runCsvGuess(csv, input, streams);
    }
    if (!line.inputs.empty()) {
        kivodt::LineReader arguments(line.inputs, {});
        return kivodt::runGuess(arguments, streams);
    }
    kivodt::LineReader lines(input);
    return kivodt::runGuess(lines, streams);
}

int run(const kivodt::CommandLine& line) {
    kivodt::RunOptions options{.keep = line.keep, .aloneFor = line.threads ? 0 : kivodt::DEFAULT_ALONE_BYTES};
    kivodt::CsvOptions csv;
    std::vector<kivodt::ColumnChoice> columns;
    kivoconvert::Conversion conversion;
    std::string error;
    if (!threadCount(line, options.threads, error) || !kivodt::csvOptionsOf(line, csv, columns, error)) {
        return usageError(error);
    }
    if (line.commandBit == kivodt::GUESS) {
        return guess(line, csv);
    }
    if (!makeConversion(line, conversion, error)) {
        return usageError(withListHint(error));
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
    if (line.version) {
        std::fputs("kivodt " KIVODT_VERSION "\n", stdout);
        return closeStandardOutput(kivodt::EXIT_OK, false);
    }
    if (line.help) {
        if (line.helpTopic.empty()) {
            std::fwrite(kivodt::usageText().data(), 1, kivodt::usageText().size(), stdout);
        } else if (const std::string text = kivodt::commandHelp(line.helpTopic); !text.empty()) {
            std::fputs(text.c_str(), stdout);
        } else {
            return usageError("no command " + kivoconvert::quotedForMessage(line.helpTopic) + " to help with" +
                              kivoconvert::didYouMean(commandNames(), line.helpTopic));
        }
        return closeStandardOutput(kivodt::EXIT_OK, false);
    }
    // Checked before any input is read, like the options: a bad variable would otherwise surface only
    // when a call first reads its option, in the middle of the output.
    if (!kivodt::checkEnvironment(kivo::rejectedEnvironment(), error) ||
        !kivodt::applySettings(line, kivo::getFallbackServiceCreator(), error)) {
        return usageError(error);
    }
    if (line.commandBit == kivodt::LIST) {
        if (!line.markdown) {
            kivodt::printCatalog(stdout);
        } else if (!kivodt::printReference(stdout, error)) {
            std::fprintf(stderr, "kivodt: %s\n", error.c_str());
            return kivodt::EXIT_BAD_INPUT;
        }
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
