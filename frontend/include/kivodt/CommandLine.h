#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kivodt/CsvRunner.h"
#include "kivox/OptionSettings.h"
#include "kivox/Services.h"

namespace kivodt {

struct CommandLine;

// The commands, as bits, so that an option can say which it goes with.
enum Command : unsigned {
    FORMAT = 1,
    INFORMAT = 2,
    CONVERT = 4,
    LIST = 8,
    HELP = 16,
    GUESS = 32,
    CONVERTING = FORMAT | INFORMAT | CONVERT,
    READING = CONVERTING | GUESS,  // the commands that read texts, a CSV's among them
    EVERY_COMMAND = FORMAT | INFORMAT | CONVERT | LIST | HELP | GUESS,
};

// The command words, in the order the usage lists them, each with its bit.
struct CommandWord {
    std::string_view word;
    Command command;
};
std::span<const CommandWord> commandWords();

// An option of kivodt: its name, the commands it goes with and what it does, one of: set the host option
// its argument names, turn on a switch of the command line, or give the command line a value of its own.
struct CommandLineOption {
    std::string_view name;                                // "--datestyle"
    unsigned goesWith;                                    // Command bits
    const kivo::OptionSetting* setting;                   // the host option its argument sets
    bool CommandLine::*turnsOn;                           // the switch it turns on
    std::optional<std::string_view> CommandLine::*gives;  // the value its argument gives

    bool takesArgument() const noexcept { return setting != nullptr || gives != nullptr; }
};

// Every option, in the order the usage text lists them (-h and --help, --version first).
std::span<const CommandLineOption> commandLineOptions();

// kivodt [OPTIONS] COMMAND [OPTIONS] SPEC [VALUE...], or convert INFORMAT FORMAT [TEXT...], list, or help
// [COMMAND]. Options may stand before or after the command word, with the same meaning, but not after
// SPEC (convert: FORMAT): from there on every argument is a value or text, even "-5" or one that begins
// with "--".
struct CommandLine {
    struct Setting {
        const CommandLineOption* option;
        std::string_view argument;
    };

    bool help = false;  // -h, --help or the help command
    bool version = false;
    bool markdown = false;   // list: the reference in Markdown
    bool hex = false;        // both sides
    bool hexInput = false;   // the informat's texts only
    bool hexOutput = false;  // the format's fields only
    bool keep = false;
    bool keepBlanks = false;
    bool noHeader = false;
    std::optional<std::string_view> csv;  // the columns
    std::optional<std::string_view> delimiter;
    std::optional<std::string_view> threads;  // the threads that convert standard input
    std::string_view command;                 // "format", "informat", "convert", "list" or "help"
    Command commandBit = FORMAT;
    std::string_view helpTopic;   // help COMMAND: the command
    std::string_view spec;        // convert: the informat
    std::string_view formatSpec;  // convert: the format
    std::span<const std::string_view> inputs;
    std::vector<Setting> settings;  // the options that set a host option, in the order given
};

// False, with a one-line reason in error, for an unknown command or option (with the names it may have
// meant), an option that does not go with the command, a missing argument or SPEC, and arguments a
// command does not take. Stops at -h, --help and --version. The command's inputs point into arguments.
bool parseCommandLine(std::span<const std::string_view> arguments, CommandLine& line, std::string& error);

// Sets the options on locator in the order given; false, with the option's name, what it takes and the
// text refused, at the first one its option cannot take.
bool applySettings(const CommandLine& line, kivo::ServiceLocator& locator, std::string& error);

// The CSV options of the command line, with --csv's columns in choices (csv.columns points to them).
// False, with a one-line reason, for a bad column list or delimiter, a CSV option without --csv, or
// --keep with neither convert nor --csv.
bool csvOptionsOf(const CommandLine& line, CsvOptions& csv, std::vector<ColumnChoice>& choices, std::string& error);

// False, with the variable's name, what it takes and its value, when an environment variable was
// refused (the first of them).
bool checkEnvironment(std::span<const kivo::RejectedVariable> rejected, std::string& error);

}  // namespace kivodt
