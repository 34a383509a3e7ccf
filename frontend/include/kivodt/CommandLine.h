#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kivox/OptionSettings.h"
#include "kivox/Services.h"

namespace kivodt {

// An option of kivodt: its name and the host option its argument sets.
struct CommandLineOption {
    std::string_view name;               // "--datestyle"
    const kivo::OptionSetting* setting;  // nullptr for --help and --hex, which take no argument
};

// Every option, in the order the usage text lists them.
std::span<const CommandLineOption> commandLineOptions();

// kivodt [OPTIONS] COMMAND [OPTIONS] SPEC [VALUE...]. Options may stand before or after the command
// word, with the same meaning, but not after SPEC: from there on every argument is a value or text,
// even "-5" or one that begins with "--".
struct CommandLine {
    struct Setting {
        const CommandLineOption* option;
        std::string_view argument;
    };

    bool help = false;
    bool hex = false;
    std::string_view command;  // "format", "informat" or "list"
    std::string_view spec;
    std::span<const std::string_view> inputs;
    std::vector<Setting> settings;  // the options with an argument, in the order given
};

// False, with a one-line reason in error, for an unknown command or option, or a missing argument or
// SPEC. Stops at --help. The command's inputs point into arguments.
bool parseCommandLine(std::span<const std::string_view> arguments, CommandLine& line, std::string& error);

// Sets the options on locator in the order given; false, with the option's name, what it takes and the
// text refused, at the first one its option cannot take.
bool applySettings(const CommandLine& line, kivo::ServiceLocator& locator, std::string& error);

// False, with the variable's name, what it takes and its value, when an environment variable was
// refused (the first of them).
bool checkEnvironment(std::span<const kivo::RejectedVariable> rejected, std::string& error);

}  // namespace kivodt
