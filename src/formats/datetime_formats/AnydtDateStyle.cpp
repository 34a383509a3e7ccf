#include "formats/datetime_formats/AnydtDateStyle.h"

#include "formats/datetime_formats/AnydtFailures.h"
#include "kivox/CharTables.h"
#include "kivox/Fail.h"
#include "kivox/Services.h"

namespace kivo::anydt {

namespace {

constexpr const char* STYLE_NAMES[] = {"dmy", "dym", "mdy", "myd", "ydm", "ymd"};

[[noreturn]] void illegalDateStyle() noexcept {
    format::fail(failure::ILLEGAL_DATESTYLE);
}

// Whole-text comparison through the host's lower-case table; name is already lower case.
bool equalsIgnoringCase(const char* text, const char* name) noexcept {
    const unsigned char* lower = sbcs::detail::tolowerTable_;
    for (; *name != '\0'; ++text, ++name) {
        if (lower[static_cast<unsigned char>(*text)] != static_cast<unsigned char>(*name)) {
            return false;
        }
    }
    return *text == '\0';
}

const char* optionText() noexcept {
    Service* service = currentServiceLocator().getService(SystemOptions::ID, SystemOptions::NAME);
    return service == nullptr ? nullptr : static_cast<SystemOptions*>(service)->getOption("datestyle");
}

const char* localeText() noexcept {
    Service* service =
        currentServiceLocator().getService(NationalLanguageSupport::ID, NationalLanguageSupport::NAME);
    return service == nullptr ? nullptr : static_cast<NationalLanguageSupport*>(service)->dateStyle();
}

bool isEmpty(const char* text) noexcept { return text == nullptr || *text == '\0'; }

}  // namespace

DateStyle readDateStyle() noexcept {
    const char* text = optionText();
    if (isEmpty(text)) {
        illegalDateStyle();
    }
    if (equalsIgnoringCase(text, "locale")) {
        text = localeText();
        if (isEmpty(text)) {
            illegalDateStyle();
        }
    }
    for (int style = DMY; style <= YMD; ++style) {
        if (equalsIgnoringCase(text, STYLE_NAMES[style])) {
            return static_cast<DateStyle>(style);
        }
    }
    illegalDateStyle();
}

}  // namespace kivo::anydt
