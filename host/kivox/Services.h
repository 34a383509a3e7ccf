#pragma once

#include <atomic>
#include <mutex>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "kivox/Export.h"

namespace kivo {

// A text value that many threads read while, rarely, one thread replaces it. Readers get a pointer to
// a NUL-terminated copy that stays valid for the life of the owner, so a reader never needs a lock.
// Each distinct text is copied once and kept: going back to a text seen before allocates nothing, so
// the memory held grows with the number of different texts (an option takes few: seven date styles,
// the years of the cutoff range), never with the number of changes.
class KIVOX_EXPORT PublishedText {
public:
    explicit PublishedText(const char* initial);
    PublishedText(const PublishedText&) = delete;
    PublishedText& operator=(const PublishedText&) = delete;
    ~PublishedText();

    const char* get() const noexcept { return current_.load(std::memory_order_acquire); }
    void set(const char* text);

private:
    std::atomic<const char*> current_;
    std::mutex writers_;
    std::set<std::string, std::less<>> texts_;  // nodes never move, so their texts stay put
};

class KIVOX_EXPORT Service {
public:
    virtual ~Service();
};

// Service 0: the system options. Known options are "datestyle" (default "locale"), "yearcutoff"
// (default "1940", a year from 1582 to 19900) and "today" (default empty: the machine's clock).
class KIVOX_EXPORT SystemOptions : public Service {
public:
    static constexpr int ID = 0;
    static constexpr const char* NAME = "SystemOptions";
    static constexpr int MIN_YEAR_CUTOFF = 1582;
    static constexpr int MAX_YEAR_CUTOFF = 19900;

    SystemOptions();
    // "today", a date written YYYY-MM-DD, stands in for the machine's clock in Date::localDate(), so
    // that what depends on today's date can be run as of a fixed day; the empty text (the default)
    // gives the clock back.
    static constexpr int CLOCK_TODAY = -0x7FFFFFFF - 1;  // the lowest int: no day serial
    // The day serial of the "today" option, or CLOCK_TODAY while the clock decides.
    int todaySerial() const noexcept { return todaySerial_.load(std::memory_order_relaxed); }
    // The option's current text, or nullptr for an unknown option.
    const char* getOption(const char* name) const noexcept;
    // False for an unknown option or a value the option cannot take. The date style is stored as
    // given: checking it is the reader's business. A user's text goes through kivox/OptionSettings.h
    // instead, which refuses a style the reader would not take.
    bool setOption(const char* name, const char* value);
    int yearCutoff() const noexcept { return yearCutoff_.load(std::memory_order_relaxed); }

private:
    PublishedText dateStyle_;
    PublishedText yearCutoffText_;
    std::atomic<int> yearCutoff_;
    PublishedText todayText_;
    std::atomic<int> todaySerial_;
};

// Service 22: what the current locale says. The default English locale writes dates month first.
class KIVOX_EXPORT NationalLanguageSupport : public Service {
public:
    static constexpr int ID = 22;
    static constexpr const char* NAME = "NationalLanguageSupport";

    NationalLanguageSupport();
    const char* dateStyle() const noexcept { return dateStyle_.get(); }
    void setDateStyle(const char* style) { dateStyle_.set(style); }

private:
    PublishedText dateStyle_;
};

// Service 23: the host environment; the character printed for an ordinary missing value.
class KIVOX_EXPORT Env : public Service {
public:
    static constexpr int ID = 23;
    static constexpr const char* NAME = "Env";

    Env() noexcept : missingChar_('.') {}
    char missingChar() const noexcept { return missingChar_.load(std::memory_order_relaxed); }
    void setMissingChar(char c) noexcept { missingChar_.store(c, std::memory_order_relaxed); }

private:
    std::atomic<char> missingChar_;
};

// The services of one session. Each thread may have a current locator of its own; a thread that has
// none uses the process-wide fallback (getFallbackServiceCreator).
class KIVOX_EXPORT ServiceLocator {
public:
    ServiceLocator();
    ServiceLocator(const ServiceLocator&) = delete;
    ServiceLocator& operator=(const ServiceLocator&) = delete;
    ~ServiceLocator();

    // The service registered under id and name, or nullptr when there is none.
    Service* getService(int id, const char* name) noexcept;

    SystemOptions& systemOptions() noexcept { return options_; }
    NationalLanguageSupport& nationalLanguageSupport() noexcept { return nls_; }
    Env& env() noexcept { return env_; }

    // The calling thread's current locator, or nullptr.
    static ServiceLocator* current() noexcept;
    // Makes locator (may be nullptr) the calling thread's current one and returns the previous one.
    static ServiceLocator* setCurrent(ServiceLocator* locator) noexcept;

private:
    SystemOptions options_;
    NationalLanguageSupport nls_;
    Env env_;
};

// An environment variable whose value its option could not take; the option kept its default.
struct RejectedVariable {
    const char* name;     // "KIVO_DATESTYLE"
    const char* allowed;  // what the option takes: "dmy, dym, mdy, myd, ydm, ymd or locale"
    std::string value;    // the value refused
};

// The process-wide locator. Its initial option values may come from the environment variables
// KIVO_DATESTYLE, KIVO_YEARCUTOFF, KIVO_LOCALE_DATESTYLE, KIVO_MISSING_CHAR and KIVO_TODAY, read and
// checked once when it is first used (see kivox/OptionSettings.h).
KIVOX_EXPORT ServiceLocator& getFallbackServiceCreator() noexcept;

// The variables that the process-wide locator refused when it read the environment; empty when all
// were good. A program learns here that a variable was bad, and can say so before it does any work.
KIVOX_EXPORT std::span<const RejectedVariable> rejectedEnvironment();

// The calling thread's locator, or the fallback when it has none.
inline ServiceLocator& currentServiceLocator() noexcept {
    ServiceLocator* locator = ServiceLocator::current();
    return locator != nullptr ? *locator : getFallbackServiceCreator();
}

}  // namespace kivo
