#pragma once

#include <string>
#include <string_view>

namespace kivodt {

// What `kivodt --help` prints: every command and every option.
std::string_view usageText();

// What `kivodt help COMMAND` prints: the command's lines of the usage and the options it takes; empty
// for a word that is no command.
std::string commandHelp(std::string_view command);

}  // namespace kivodt
