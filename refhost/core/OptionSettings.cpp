#include "kivox/OptionSettings.h"

#include <cstdlib>
#include <cstring>

#include "kivox/CharTables.h"

namespace kivo {

namespace {

// The date styles in the option's spelling; the locale's own style is one of the first six.
constexpr const char* DATE_STYLES[] = {"dmy", "dym", "mdy", "myd", "ydm", "ymd", "locale"};
constexpr std::size_t LOCALE_STYLES = 6;

// Whole-text comparison through the host's lower-case table, as the reader of the option compares.
bool equalsIgnoringCase(const char* text, const char* lowerName) noexcept {
    const unsigned char* lower = sbcs::detail::tolowerTable_;
    for (; *lowerName != '\0'; ++text, ++lowerName) {
        if (lower[static_cast<unsigned char>(*text)] != static_cast<unsigned char>(*lowerName)) {
            return false;
        }
    }
    return *text == '\0';
}

bool isDateStyle(const char* text, std::size_t styles) noexcept {
    for (std::size_t i = 0; i < styles; ++i) {
        if (equalsIgnoringCase(text, DATE_STYLES[i])) {
            return true;
        }
    }
    return false;
}

bool applyDateStyle(ServiceLocator& locator, const char* text) {
    return isDateStyle(text, std::size(DATE_STYLES)) && locator.systemOptions().setOption("datestyle", text);
}

bool applyYearCutoff(ServiceLocator& locator, const char* text) {
    return locator.systemOptions().setOption("yearcutoff", text);
}

bool applyLocaleDateStyle(ServiceLocator& locator, const char* text) {
    if (!isDateStyle(text, LOCALE_STYLES)) {
        return false;
    }
    locator.nationalLanguageSupport().setDateStyle(text);
    return true;
}

bool applyMissingChar(ServiceLocator& locator, const char* text) {
    if (std::strlen(text) != 1) {
        return false;
    }
    locator.env().setMissingChar(text[0]);
    return true;
}

bool applyToday(ServiceLocator& locator, const char* text) { return locator.systemOptions().setOption("today", text); }

}  // namespace

namespace settings {
const OptionSetting DATE_STYLE{"dmy, dym, mdy, myd, ydm, ymd or locale", applyDateStyle};
const OptionSetting YEAR_CUTOFF{"a year from 1582 to 19900", applyYearCutoff};
const OptionSetting LOCALE_DATE_STYLE{"dmy, dym, mdy, myd, ydm or ymd", applyLocaleDateStyle};
const OptionSetting MISSING_CHAR{"one character", applyMissingChar};
const OptionSetting TODAY{"a day YYYY-MM-DD from 1582-01-01 to 20000-12-31, or nothing for the clock", applyToday};
}  // namespace settings

std::span<const EnvironmentVariable> environmentVariables() {
    static const EnvironmentVariable variables[] = {
        {"KIVO_DATESTYLE", &settings::DATE_STYLE},
        {"KIVO_YEARCUTOFF", &settings::YEAR_CUTOFF},
        {"KIVO_LOCALE_DATESTYLE", &settings::LOCALE_DATE_STYLE},
        {"KIVO_MISSING_CHAR", &settings::MISSING_CHAR},
        {"KIVO_TODAY", &settings::TODAY},
    };
    return variables;
}

std::vector<RejectedVariable> applyEnvironment(ServiceLocator& locator) {
    std::vector<RejectedVariable> rejected;
    for (const EnvironmentVariable& variable : environmentVariables()) {
        const char* value = std::getenv(variable.name);
        if (value != nullptr && !variable.setting->apply(locator, value)) {
            rejected.push_back({variable.name, variable.setting->allowed, value});
        }
    }
    return rejected;
}

}  // namespace kivo
