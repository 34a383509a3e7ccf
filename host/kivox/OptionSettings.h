#pragma once

#include <span>
#include <string>
#include <vector>

#include "kivox/Export.h"
#include "kivox/Services.h"

namespace kivo {

// One option set from a user's text, as a command-line option or an environment variable sets it: what
// the text may be, and the step that checks the text and sets the option. Unlike
// SystemOptions::setOption, which stores any date style for the reader to judge, a setting refuses a
// text its option cannot take, so that the user hears of it at once, not from the first call that
// reads the option.
struct OptionSetting {
    const char* allowed;  // for messages: "dmy, dym, mdy, myd, ydm, ymd or locale"
    // False, leaving the option as it was, for a text the option cannot take.
    bool (*apply)(ServiceLocator& locator, const char* text);
};

namespace settings {
KIVOX_EXPORT extern const OptionSetting DATE_STYLE;         // "datestyle": a date style or "locale"
KIVOX_EXPORT extern const OptionSetting YEAR_CUTOFF;        // "yearcutoff": a year in the cutoff range
KIVOX_EXPORT extern const OptionSetting LOCALE_DATE_STYLE;  // the locale's date style: not "locale"
KIVOX_EXPORT extern const OptionSetting MISSING_CHAR;       // the missing-value character: one byte
KIVOX_EXPORT extern const OptionSetting TODAY;              // "today": a day YYYY-MM-DD, or empty
}  // namespace settings

// An environment variable that gives an option its first value.
struct EnvironmentVariable {
    const char* name;
    const OptionSetting* setting;
};

// KIVO_DATESTYLE, KIVO_YEARCUTOFF, KIVO_LOCALE_DATESTYLE, KIVO_MISSING_CHAR and KIVO_TODAY, in that
// order.
KIVOX_EXPORT std::span<const EnvironmentVariable> environmentVariables();

// Sets locator's options from those variables that are set. Each is checked like an option given on
// a command line; a refused one leaves its option as it was and is returned, in table order.
KIVOX_EXPORT std::vector<RejectedVariable> applyEnvironment(ServiceLocator& locator);

}  // namespace kivo
