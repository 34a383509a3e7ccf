#include "kivodt/CommandLine.h"

#include "kivoconvert/Notes.h"
#include "kivoconvert/Spec.h"

namespace kivodt {

namespace {

constexpr CommandLineOption turnsOn(std::string_view name, unsigned goesWith, bool CommandLine::*flag) {
    return {name, goesWith, nullptr, flag, nullptr};
}
constexpr CommandLineOption sets(std::string_view name, unsigned goesWith, const kivo::OptionSetting& setting) {
    return {name, goesWith, &setting, nullptr, nullptr};
}
constexpr CommandLineOption gives(std::string_view name, unsigned goesWith,
                                  std::optional<std::string_view> CommandLine::*value) {
    return {name, goesWith, nullptr, nullptr, value};
}

const CommandWord COMMANDS[] = {
    {"format", FORMAT}, {"informat", INFORMAT}, {"convert", CONVERT}, {"guess", GUESS}, {"list", LIST}, {"help", HELP},
};

const CommandLineOption OPTIONS[] = {
    turnsOn("-h", EVERY_COMMAND, &CommandLine::help),
    turnsOn("--help", EVERY_COMMAND, &CommandLine::help),
    turnsOn("--version", EVERY_COMMAND, &CommandLine::version),
    turnsOn("--hex", CONVERTING, &CommandLine::hex),
    turnsOn("--hex-in", CONVERTING, &CommandLine::hexInput),
    turnsOn("--hex-out", CONVERTING, &CommandLine::hexOutput),
    sets("--datestyle", READING, kivo::settings::DATE_STYLE),
    sets("--yearcutoff", READING, kivo::settings::YEAR_CUTOFF),
    sets("--missing-char", CONVERTING, kivo::settings::MISSING_CHAR),
    sets("--today", READING, kivo::settings::TODAY),
    turnsOn("--keep", CONVERTING, &CommandLine::keep),
    gives("--csv", READING, &CommandLine::csv),
    turnsOn("--no-header", READING, &CommandLine::noHeader),
    gives("--delimiter", READING, &CommandLine::delimiter),
    turnsOn("--keep-blanks", CONVERTING, &CommandLine::keepBlanks),
    gives("--threads", CONVERTING, &CommandLine::threads),
    turnsOn("--markdown", LIST, &CommandLine::markdown),
};

template <class Item>
std::vector<std::string_view> namesOf(std::span<const Item> items, std::string_view Item::*name) {
    std::vector<std::string_view> names;
    for (const Item& item : items) {
        names.push_back(item.*name);
    }
    return names;
}

const CommandLineOption* findOption(std::string_view name) {
    for (const CommandLineOption& option : OPTIONS) {
        if (option.name == name) {
            return &option;
        }
    }
    return nullptr;
}

const CommandWord* findCommand(std::string_view word) {
    for (const CommandWord& command : COMMANDS) {
        if (command.word == word) {
            return &command;
        }
    }
    return nullptr;
}

bool isOption(std::string_view argument) { return argument.starts_with("--") || argument == "-h"; }

// Takes the options that start at arguments[next], leaving next at the first other argument. The
// options given are kept so that the command, once known, can refuse those that do not go with it.
bool takeOptions(std::span<const std::string_view> arguments, std::size_t& next, CommandLine& line,
                 std::vector<const CommandLineOption*>& given, std::string& error) {
    for (; next < arguments.size() && isOption(arguments[next]); ++next) {
        const CommandLineOption* option = findOption(arguments[next]);
        if (option == nullptr) {
            error = "unknown option " + kivoconvert::quotedForMessage(arguments[next]) +
                    kivoconvert::didYouMean(namesOf(commandLineOptions(), &CommandLineOption::name), arguments[next]);
            return false;
        }
        given.push_back(option);
        if (!option->takesArgument()) {
            line.*option->turnsOn = true;
            if (line.help || line.version) {
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
        error = converting ? "convert needs an INFORMAT and a FORMAT; kivodt help convert shows how"
                           : std::string(line.command) + " needs a SPEC; kivodt help " + std::string(line.command) +
                                 " shows how";
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

std::span<const CommandWord> commandWords() { return COMMANDS; }

bool parseCommandLine(std::span<const std::string_view> arguments, CommandLine& line, std::string& error) {
    std::size_t next = 0;
    std::vector<const CommandLineOption*> given;
    if (!takeOptions(arguments, next, line, given, error) || line.help || line.version) {
        return error.empty();
    }
    if (next == arguments.size()) {
        error = "no command given; kivodt --help shows the usage";
        return false;
    }
    line.command = arguments[next++];
    const CommandWord* command = findCommand(line.command);
    if (command == nullptr) {
        error = "unknown command " + kivoconvert::quotedForMessage(line.command) +
                kivoconvert::didYouMean(namesOf(commandWords(), &CommandWord::word), line.command);
        return false;
    }
    line.commandBit = command->command;
    if (!takeOptions(arguments, next, line, given, error) || line.version || (line.help && line.commandBit != HELP)) {
        line.helpTopic = line.command;  // "kivodt format --help" is "kivodt help format"
        return error.empty();
    }
    for (const CommandLineOption* option : given) {
        if ((option->goesWith & line.commandBit) == 0) {
            error = std::string(option->name) + " does not go with " + std::string(line.command);
            return false;
        }
    }
    if (line.commandBit == HELP) {
        line.help = true;
        line.helpTopic = next < arguments.size() ? arguments[next++] : std::string_view();
    } else if ((line.commandBit & CONVERTING) != 0 && !takeSpecs(arguments, next, line, error)) {
        return false;
    }
    line.inputs = arguments.subspan(next);
    if ((line.commandBit & (LIST | HELP)) != 0 && !line.inputs.empty()) {
        error = std::string(line.command) + " takes no " + (line.commandBit == HELP ? "more " : "") +
                "arguments, not " + kivoconvert::quotedForMessage(line.inputs[0]);
        return false;
    }
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
        if (line.keep && line.commandBit != CONVERT) {
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
