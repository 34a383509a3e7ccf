#include "kivodt/CommandLine.h"

#include "kivodt/Values.h"

namespace kivodt {

namespace {

const CommandLineOption OPTIONS[] = {
    {"--help", nullptr},
    {"--hex", nullptr},
    {"--datestyle", &kivo::settings::DATE_STYLE},
    {"--yearcutoff", &kivo::settings::YEAR_CUTOFF},
    {"--missing-char", &kivo::settings::MISSING_CHAR},
    {"--today", &kivo::settings::TODAY},
};

const CommandLineOption* findOption(std::string_view name) {
    for (const CommandLineOption& option : OPTIONS) {
        if (option.name == name) {
            return &option;
        }
    }
    return nullptr;
}

bool isCommand(std::string_view word) { return word == "format" || word == "informat" || word == "list"; }

// Takes the options that start at arguments[next], leaving next at the first other argument.
bool takeOptions(std::span<const std::string_view> arguments, std::size_t& next, CommandLine& line,
                 std::string& error) {
    for (; next < arguments.size() && arguments[next].starts_with("--"); ++next) {
        const CommandLineOption* option = findOption(arguments[next]);
        if (option == nullptr) {
            error = "unknown option " + quotedForMessage(arguments[next]);
            return false;
        }
        if (option->name == "--help") {
            line.help = true;
            return true;
        }
        if (option->name == "--hex") {
            line.hex = true;
            continue;
        }
        if (next + 1 == arguments.size()) {
            error = std::string(option->name) + " needs an argument";
            return false;
        }
        line.settings.push_back({option, arguments[++next]});
    }
    return true;
}

std::string refusal(std::string_view name, const char* allowed, std::string_view text) {
    return std::string(name) + " takes " + allowed + ", not " + quotedForMessage(text);
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
        error = "unknown command " + quotedForMessage(line.command);
        return false;
    }
    if (!takeOptions(arguments, next, line, error)) {
        return false;
    }
    if (line.help || line.command == "list") {
        return true;
    }
    if (next == arguments.size()) {
        error = std::string(line.command) + " needs a SPEC";
        return false;
    }
    line.spec = arguments[next++];
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

bool checkEnvironment(std::span<const kivo::RejectedVariable> rejected, std::string& error) {
    if (rejected.empty()) {
        return true;
    }
    error = refusal("environment variable " + std::string(rejected[0].name), rejected[0].allowed, rejected[0].value);
    return false;
}

}  // namespace kivodt
