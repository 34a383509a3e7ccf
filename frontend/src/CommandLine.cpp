#include "kivodt/CommandLine.h"

#include "kivoconvert/Notes.h"

namespace kivodt {

namespace {

constexpr CommandLineOption turnsOn(std::string_view name, bool CommandLine::*flag) {
    return {name, nullptr, flag, nullptr};
}
constexpr CommandLineOption sets(std::string_view name, const kivo::OptionSetting& setting) {
    return {name, &setting, nullptr, nullptr};
}
constexpr CommandLineOption gives(std::string_view name, std::optional<std::string_view> CommandLine::*value) {
    return {name, nullptr, nullptr, value};
}

const CommandLineOption OPTIONS[] = {
    turnsOn("--help", &CommandLine::help),
    turnsOn("--hex", &CommandLine::hex),
    turnsOn("--hex-in", &CommandLine::hexInput),
    turnsOn("--hex-out", &CommandLine::hexOutput),
    sets("--datestyle", kivo::settings::DATE_STYLE),
    sets("--yearcutoff", kivo::settings::YEAR_CUTOFF),
    sets("--missing-char", kivo::settings::MISSING_CHAR),
    sets("--today", kivo::settings::TODAY),
    turnsOn("--keep", &CommandLine::keep),
    gives("--csv", &CommandLine::csv),
    turnsOn("--no-header", &CommandLine::noHeader),
    gives("--delimiter", &CommandLine::delimiter),
    turnsOn("--keep-blanks", &CommandLine::keepBlanks),
    gives("--threads", &CommandLine::threads),
};

const CommandLineOption* findOption(std::string_view name) {
    for (const CommandLineOption& option : OPTIONS) {
        if (option.name == name) {
            return &option;
        }
    }
    return nullptr;
}

bool isCommand(std::string_view word) {
    return word == "format" || word == "informat" || word == "convert" || word == "list";
}

// Takes the options that start at arguments[next], leaving next at the first other argument.
bool takeOptions(std::span<const std::string_view> arguments, std::size_t& next, CommandLine& line,
                 std::string& error) {
    for (; next < arguments.size() && arguments[next].starts_with("--"); ++next) {
        const CommandLineOption* option = findOption(arguments[next]);
        if (option == nullptr) {
            error = "unknown option " + kivoconvert::quotedForMessage(arguments[next]);
            return false;
        }
        if (!option->takesArgument()) {
            line.*option->turnsOn = true;
            if (line.help) {
                return true;
            }
            continue;
        }
        if (next + 1 == arguments.size()) {
            error = std::string(option->name) + " needs an argument";
            return false;
        }
        const std::string_view argument = arguments[++next];
        if (option->setting != nullptr) {
            line.settings.push_back({option, argument});
        } else {
            line.*option->gives = argument;
        }
    }
    return true;
}

bool takeSpecs(std::span<const std::string_view> arguments, std::size_t& next, CommandLine& line, std::string& error) {
    const bool converting = line.command == "convert";
    if (arguments.size() - next < (converting ? 2u : 1u)) {
        error = converting ? "convert needs an INFORMAT and a FORMAT" : std::string(line.command) + " needs a SPEC";
        return false;
    }
    line.spec = arguments[next++];
    if (converting) {
        line.formatSpec = arguments[next++];
    }
    return true;
}

std::string refusal(std::string_view name, const char* allowed, std::string_view text) {
    return std::string(name) + " takes " + allowed + ", not " + kivoconvert::quotedForMessage(text);
}

// One byte that cannot open a quoted field or end a record; "tab" for a tab.
bool parseDelimiter(std::string_view text, char& delimiter, std::string& error) {
    if (text == "tab") {
        delimiter = '\t';
        return true;
    }
    if (text.size() != 1 || text[0] == '"' || text[0] == '\n' || text[0] == '\r') {
        error = refusal("--delimiter", "one character other than a quote or newline, or \"tab\"", text);
        return false;
    }
    delimiter = text[0];
    return true;
}

}  // namespace

std::span<const CommandLineOption> commandLineOptions() { return OPTIONS; }

bool parseCommandLine(std::span<const std::string_view> arguments, CommandLine& line, std::string& error) {
    std::size_t next = 0;
    if (!takeOptions(arguments, next, line, error)) {
        return false;
    }
    if (line.help) {
        return true;
    }
    if (next == arguments.size()) {
        error = "no command given";
        return false;
    }
    line.command = arguments[next++];
    if (!isCommand(line.command)) {
        error = "unknown command " + kivoconvert::quotedForMessage(line.command);
        return false;
    }
    if (!takeOptions(arguments, next, line, error)) {
        return false;
    }
    if (line.help || line.command == "list") {
        return true;
    }
    if (!takeSpecs(arguments, next, line, error)) {
        return false;
    }
    line.inputs = arguments.subspan(next);
    return true;
}

bool applySettings(const CommandLine& line, kivo::ServiceLocator& locator, std::string& error) {
    for (const CommandLine::Setting& given : line.settings) {
        const std::string argument(given.argument);
        if (!given.option->setting->apply(locator, argument.c_str())) {
            error = refusal(given.option->name, given.option->setting->allowed, given.argument);
            return false;
        }
    }
    return true;
}

bool csvOptionsOf(const CommandLine& line, CsvOptions& csv, std::vector<ColumnChoice>& choices, std::string& error) {
    if (!line.csv) {
        if (line.noHeader || line.keepBlanks || line.delimiter) {
            error = "--no-header, --delimiter and --keep-blanks go with --csv";
            return false;
        }
        if (line.keep && line.command != "convert") {
            error = "--keep goes with convert or --csv";
            return false;
        }
        return true;
    }
    if (!line.inputs.empty()) {
        error = "--csv reads standard input, so it takes no VALUE or TEXT arguments";
        return false;
    }
    csv.header = !line.noHeader;
    csv.keepBlanks = line.keepBlanks;
    if (line.delimiter && !parseDelimiter(*line.delimiter, csv.delimiter, error)) {
        return false;
    }
    if (!parseColumnChoices(*line.csv, csv.header, choices, error)) {
        return false;
    }
    csv.columns = choices;
    return true;
}

bool checkEnvironment(std::span<const kivo::RejectedVariable> rejected, std::string& error) {
    if (rejected.empty()) {
        return true;
    }
    error = refusal("environment variable " + std::string(rejected[0].name), rejected[0].allowed, rejected[0].value);
    return false;
}

}  // namespace kivodt
