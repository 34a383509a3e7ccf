#include "kivox/Services.h"

#include <cstring>
#include <string_view>

#include "kivox/Calendar.h"
#include "kivox/OptionSettings.h"

namespace kivo {

namespace {

thread_local ServiceLocator* currentLocator = nullptr;

// Reads `count` digits at text as a number; false at the first byte that is not a digit.
bool readDigits(const char* text, int count, int& value) noexcept {
    value = 0;
    for (int i = 0; i < count; ++i) {
        if (text[i] < '0' || text[i] > '9') {
            return false;
        }
        value = value * 10 + (text[i] - '0');
    }
    return true;
}

// A "today" date: YYYY-MM-DD (a year past 9999 with its fifth digit), a real day of the calendar's
// range. The empty text stands for the clock.
bool parseToday(const char* text, int& serial) noexcept {
    if (*text == '\0') {
        serial = SystemOptions::CLOCK_TODAY;
        return true;
    }
    const std::size_t length = std::strlen(text);
    const int yearDigits = static_cast<int>(length) - 6;
    if (yearDigits != 4 && yearDigits != 5) {
        return false;
    }
    const char* monthDay = text + yearDigits;
    int year = 0;
    int month = 0;
    int day = 0;
    if (!readDigits(text, yearDigits, year) || monthDay[0] != '-' || !readDigits(monthDay + 1, 2, month) ||
        monthDay[3] != '-' || !readDigits(monthDay + 4, 2, day)) {
        return false;
    }
    const Date date(year, month, day);
    if (!date.isValid()) {
        return false;
    }
    serial = static_cast<int>(date);
    return true;
}

// A year cutoff is a whole number of years in the supported range, written in plain digits.
bool parseYearCutoff(const char* text, int& year) noexcept {
    if (text == nullptr || *text == '\0' || std::strlen(text) > 5) {
        return false;
    }
    int value = 0;
    for (const char* p = text; *p != '\0'; ++p) {
        if (*p < '0' || *p > '9') {
            return false;
        }
        value = value * 10 + (*p - '0');
    }
    if (value < SystemOptions::MIN_YEAR_CUTOFF || value > SystemOptions::MAX_YEAR_CUTOFF) {
        return false;
    }
    year = value;
    return true;
}

// The process-wide locator and what its reading of the environment refused. Never destroyed: formats
// may run on other threads while the process exits.
struct Fallback {
    ServiceLocator* locator;
    std::vector<RejectedVariable> rejected;
};

const Fallback& fallback() {
    static const Fallback* const made = [] {
        auto* locator = new ServiceLocator();
        return new Fallback{locator, applyEnvironment(*locator)};
    }();
    return *made;
}

}  // namespace

PublishedText::PublishedText(const char* initial) : current_(nullptr) { set(initial); }

PublishedText::~PublishedText() = default;

void PublishedText::set(const char* text) {
    const std::string_view wanted(text);
    const std::lock_guard<std::mutex> lock(writers_);
    auto kept = texts_.find(wanted);
    if (kept == texts_.end()) {
        kept = texts_.emplace(wanted).first;
    }
    current_.store(kept->c_str(), std::memory_order_release);
}

Service::~Service() = default;

SystemOptions::SystemOptions()
    : dateStyle_("locale"), yearCutoffText_("1940"), yearCutoff_(1940), todayText_(""), todaySerial_(CLOCK_TODAY) {}

const char* SystemOptions::getOption(const char* name) const noexcept {
    if (std::strcmp(name, "datestyle") == 0) {
        return dateStyle_.get();
    }
    if (std::strcmp(name, "yearcutoff") == 0) {
        return yearCutoffText_.get();
    }
    if (std::strcmp(name, "today") == 0) {
        return todayText_.get();
    }
    return nullptr;
}

bool SystemOptions::setOption(const char* name, const char* value) {
    if (std::strcmp(name, "datestyle") == 0) {
        dateStyle_.set(value);
        return true;
    }
    if (std::strcmp(name, "yearcutoff") == 0) {
        int year = 0;
        if (!parseYearCutoff(value, year)) {
            return false;
        }
        yearCutoffText_.set(value);
        yearCutoff_.store(year, std::memory_order_relaxed);
        return true;
    }
    if (std::strcmp(name, "today") == 0) {
        int serial = 0;
        if (!parseToday(value, serial)) {
            return false;
        }
        todayText_.set(value);
        todaySerial_.store(serial, std::memory_order_relaxed);
        return true;
    }
    return false;
}

NationalLanguageSupport::NationalLanguageSupport() : dateStyle_("mdy") {}

ServiceLocator::ServiceLocator() = default;

ServiceLocator::~ServiceLocator() = default;

Service* ServiceLocator::getService(int id, const char* name) noexcept {
    switch (id) {
        case SystemOptions::ID:
            return std::strcmp(name, SystemOptions::NAME) == 0 ? &options_ : nullptr;
        case NationalLanguageSupport::ID:
            return std::strcmp(name, NationalLanguageSupport::NAME) == 0 ? &nls_ : nullptr;
        case Env::ID:
            return std::strcmp(name, Env::NAME) == 0 ? &env_ : nullptr;
        default:
            return nullptr;
    }
}

ServiceLocator* ServiceLocator::current() noexcept { return currentLocator; }

ServiceLocator* ServiceLocator::setCurrent(ServiceLocator* locator) noexcept {
    ServiceLocator* previous = currentLocator;
    currentLocator = locator;
    return previous;
}

ServiceLocator& getFallbackServiceCreator() noexcept { return *fallback().locator; }

std::span<const RejectedVariable> rejectedEnvironment() { return fallback().rejected; }

}  // namespace kivo
