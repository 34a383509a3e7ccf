#pragma once

// The order in which an ambiguous all-digit date is read, from the host's "datestyle" option.
namespace kivo::anydt {

enum DateStyle : int { DMY = 0, DYM = 1, MDY = 2, MYD = 3, YDM = 4, YMD = 5 };

// The calling thread's date style, read afresh from the option service on each call (a change of the
// option takes effect at once). "locale" takes the style of the current locale. A style that is not
// one of the six orders stops the process through kivoFail ("illegal datestyle").
DateStyle readDateStyle() noexcept;

}  // namespace kivo::anydt
