#include "kivodt/Usage.h"

#include "kivodt/CommandLine.h"

namespace kivodt {

namespace {

// Each command's lines of the usage, in the order of the command words.
struct CommandUsage {
    std::string_view word;
    std::string_view text;
};

constexpr CommandUsage COMMAND_USAGE[] = {
    {"format", R"(  kivodt [OPTIONS] format [OPTIONS] SPEC [VALUE...]
      one line per value: exactly the field's bytes
)"},
    {"informat", R"(  kivodt [OPTIONS] informat [OPTIONS] SPEC [TEXT...]
      one line per text: the value read, or "invalid"
)"},
    {"convert", R"(  kivodt [OPTIONS] convert [OPTIONS] INFORMAT FORMAT [TEXT...]
      one line per text: read with INFORMAT, written with FORMAT
)"},
    {"guess", R"(  kivodt [OPTIONS] guess [OPTIONS] [TEXT...]
      which informat reads the texts (one per line, or each column of a CSV with --csv), decided by all
      of them: the first line is what convert takes before FORMAT, then how many it reads, the texts it
      does not, the other informats that read them all and the evidence for the date order
)"},
    {"list", R"(  kivodt list [--markdown]
      every format and informat with its widths and decimals; with --markdown, the reference with
      example fields and texts
)"},
    {"help", R"(  kivodt help [COMMAND], kivodt -h, kivodt --help
      this usage, or one command's; kivodt --version prints the version
)"},
};

constexpr std::string_view SPECS = R"(
SPEC is a name with an optional width, point and decimals, in any case: DATE9. date9 TIME12.3 DATE
(a missing width takes the format's default width).

A VALUE is a decimal number (22356, -0.5, 1e9) or a missing value: . ._ .A ... .Z
With no VALUE or TEXT arguments, they are read from standard input, one per line (at most 1048576
bytes a line; a longer one is named and skipped). An empty or blank line passes as it came.
An informat's field is the first `width` bytes of the text, or the whole text when it is shorter or
when SPEC gives no width; bytes past the width that are not blank leave the text unread. convert gives
a date format the day of a datetime and a datetime format the midnight of a day; a text INFORMAT cannot
read is named and gives a blank field.
)";

constexpr std::string_view OPTIONS = R"(
Options (before or after the command, not after SPEC: there "-5" or "--hex" is a value):
  --hex               write fields / read texts as hex byte pairs (for packed and machine layouts)
  --hex-in, --hex-out read texts / write fields as hex pairs, on one side of convert only
  --datestyle STYLE   the "datestyle" option: dmy dym mdy myd ydm ymd or locale (default locale)
  --yearcutoff YEAR   first year of the window that two-digit years fall into (default 1940)
  --missing-char C    the character printed for an ordinary missing value (default .)
  --today YYYY-MM-DD  the day taken as today (NENGO's last era ends there; default: the machine's clock)
  --keep              convert and --csv: a text that cannot be used is written as it came
  --threads N         convert on up to N threads (default: the online cores); the output is the same
                      for any N
)";

constexpr std::string_view GUESS_OPTIONS = R"(
guess reads with --datestyle (for texts that leave day and month open), --yearcutoff and --today; it
keeps counters, not the texts, so a column of any length takes the same memory. Exit status 0 when the
proposal reads every text that is neither empty nor a missing-value notation, 1 when none does.
)";

constexpr std::string_view CSV = R"(
CSV, with format, informat, convert or guess (RFC 4180 quoting; every byte but the converted fields' is
written back as it came; a record may hold 16 MiB):
  --csv COLUMNS       the columns to convert: numbers from 1 or header names, e.g. 2,shipped; a name
                      that is all digits, or holds a comma, goes in double quotes: --csv '"2021"'
  --no-header         the first row is data, not names
  --delimiter C       the field delimiter (default ,), e.g. ";" or tab
  --keep-blanks       keep the leading blanks of the fields written (by default they are dropped)
A row with another number of fields than the first is named and copied unchanged; an empty field
stays empty.
)";

constexpr std::string_view ENVIRONMENT = R"(
Environment: KIVO_DATESTYLE, KIVO_YEARCUTOFF, KIVO_MISSING_CHAR and KIVO_TODAY give those options their first
values, KIVO_LOCALE_DATESTYLE the locale's date style (default mdy); a bad value is an error.

Exit status: 0 all went well; 1 some value or text could not be used (named on standard error), or
reading the input or writing the output failed; 2 bad command line, spec or environment variable.
)";

std::string wholeUsage() {
    std::string text = "usage:\n";
    for (const CommandUsage& command : COMMAND_USAGE) {
        text.append(command.text);
    }
    return text.append(SPECS).append(OPTIONS).append(GUESS_OPTIONS).append(CSV).append(ENVIRONMENT);
}

}  // namespace

std::string_view usageText() {
    static const std::string text = wholeUsage();
    return text;
}

std::string commandHelp(std::string_view command) {
    for (const CommandUsage& usage : COMMAND_USAGE) {
        if (usage.word != command) {
            continue;
        }
        std::string text = "usage:\n" + std::string(usage.text);
        if (command == "format" || command == "informat" || command == "convert") {
            text.append(SPECS).append(OPTIONS).append(CSV);
        } else if (command == "guess") {
            text.append(GUESS_OPTIONS).append(CSV);
        }
        return text;
    }
    return "";
}

}  // namespace kivodt
