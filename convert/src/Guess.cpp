#include "kivoconvert/Guess.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <tuple>

#include "kivoconvert/Values.h"
#include "kivox/Services.h"

namespace kivoconvert {

namespace {

// The fixed layouts a column may be read with, each with how many other shapes it accepts beside its
// own (fewer comes first) and the formats that write its layout, which a text may be written back with.
struct CandidateRule {
    std::string_view informat;
    int otherShapes;
    std::string_view writers;  // format names, blank between them
};

constexpr CandidateRule FIXED_LAYOUTS[] = {
    // One separator and four-digit years only.
    {"CANDATE", 0, ""},
    {"CANTIME", 0, ""},
    {"CANSTAMP", 0, ""},
    // One layout each, with a few spellings.
    {"DATE", 1, "DATE"},
    {"MINGUO", 1, "MINGUO"},
    {"NENGO", 1, "NENGO"},
    {"MONYY", 1, "MONYY"},
    {"YYMMN", 1, "YYMMN"},
    {"JULIAN", 1, "JULIAN"},
    {"YYQ", 1, "YYQ"},
    {"HHMMSS", 1, ""},
    {"DATETIME", 1, "DATETIME"},
    {"MDYAMPM", 1, "MDYAMPM"},
    {"DMYAMPM", 1, "DMYAMPM"},
    {"MONDYTM", 1, "MONDYTM"},
    {"WEEKU", 1, "WEEKU"},
    {"WEEKV", 1, "WEEKV"},
    {"WEEKW", 1, "WEEKW"},
    // Any separator, two- or four-digit years; times with or without seconds, AM or PM.
    {"DDMMYY", 2, "DDMMYY DDMMYYB DDMMYYC DDMMYYD DDMMYYN DDMMYYP DDMMYYS"},
    {"MMDDYY", 2, "MMDDYY MMDDYYB MMDDYYC MMDDYYD MMDDYYN MMDDYYP MMDDYYS"},
    {"YYMMDD", 2, "YYMMDD YYMMDDB YYMMDDC YYMMDDD YYMMDDN YYMMDDP YYMMDDS"},
    {"YMDDTTM", 2, ""},
    {"TIME", 2, "TIME"},
};

// The order of day and month each day-month-year layout reads.
DateOrder orderOfLayout(std::string_view informat) {
    if (informat == "DDMMYY") return DateOrder::DMY;
    if (informat == "MMDDYY") return DateOrder::MDY;
    if (informat == "YYMMDD") return DateOrder::YMD;
    return DateOrder::NONE;
}

std::string plural(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

// The digits after the point of a text, which a layout with decimals writes back.
int decimalsOf(std::string_view text) {
    const std::size_t point = text.rfind('.');
    return point == std::string_view::npos ? 0 : static_cast<int>(text.size() - point - 1);
}

// Whether the format writes the value back as the text stands, at the text's width.
bool writesBack(const FormatEntry& format, double value, std::string_view text) {
    const int width = static_cast<int>(text.size());
    const int decimals = format.limits.decimals == Decimals::LAYOUT ? decimalsOf(text) : 0;
    if (width < format.limits.minWidth || width > format.limits.maxWidth ||
        decimals > maxDecimals(format.limits, width)) {
        return false;
    }
    char field[MAX_FIELD];
    format.function(field, width, decimals, value);
    return std::string_view(field, text.size()) == text;
}

// Whether an informat of a kind reads a text whose kind the free-form reader found without misreading
// it: a time informat does not read a date (TIME takes 17/03/2021 for 17 hours), a date informat does
// not read a datetime (it would drop the time of day), and only a time informat reads a bare time.
bool takesKind(ValueKind kind, kivo::AnydtType found) {
    switch (found) {
        case kivo::ANYDT_DATE:
            return kind != ValueKind::TIME;
        case kivo::ANYDT_DATETIME:
            return kind == ValueKind::DATETIME;
        case kivo::ANYDT_TIME:
            return kind == ValueKind::TIME;
        case kivo::ANYDT_MISSING:
            break;
    }
    return true;
}

void keepExample(std::vector<UnreadText>& examples, std::size_t position, std::string_view text) {
    if (examples.size() < ColumnGuesser::EXAMPLES) {
        examples.push_back({position, std::string(text.substr(0, SHOWN_TEXT_BYTES + 1))});
    }
}

// The locale's date style, or the "datestyle" option when it names one.
std::string sessionDateStyle(kivo::ServiceLocator& locator) {
    const std::string option = locator.systemOptions().getOption("datestyle");
    return option == "locale" ? std::string(locator.nationalLanguageSupport().dateStyle()) : option;
}

DateOrder orderOfStyle(std::string_view style) {
    for (int order = 1; order <= static_cast<int>(DateOrder::YMD); ++order) {
        if (styleName(static_cast<DateOrder>(order)) == style) {
            return static_cast<DateOrder>(order);
        }
    }
    return DateOrder::NONE;
}

}  // namespace

struct ColumnGuesser::Candidate {
    const InformatEntry* entry = nullptr;
    Conversion reading;
    int otherShapes = 0;
    std::vector<const FormatEntry*> writers;
    std::vector<bool> writesBack;  // per writer: every text read so far, written back as it stands
    std::size_t read = 0;
    std::size_t unread = 0;
    std::vector<UnreadText> examples;

    bool readsEvery() const { return unread == 0 && read > 0; }
    bool writesEveryBack() const { return std::find(writesBack.begin(), writesBack.end(), true) != writesBack.end(); }
};

struct ColumnGuesser::Evidence {
    std::array<std::size_t, 8> orders{};  // texts by the DateOrder they show
    std::array<std::vector<UnreadText>, 8> firstOf;
    std::size_t leftOut = 0;
    std::size_t longest = 0;
    std::size_t dates = 0;
    std::size_t datetimes = 0;
    std::size_t times = 0;
    std::size_t twoDigitYears = 0;
    std::string localeStyle;
    int yearCutoff = 0;

    std::size_t count(DateOrder order) const { return orders[static_cast<int>(order)]; }
    // The order of day and month the texts show where a reading needs it, with the year last: day first
    // (DMY), month first (MDY), or NONE when no text tells them apart or as many say either.
    DateOrder shown() const {
        const std::size_t dayFirst = count(DateOrder::DMY), monthFirst = count(DateOrder::MDY);
        return dayFirst > monthFirst ? DateOrder::DMY : monthFirst > dayFirst ? DateOrder::MDY : DateOrder::NONE;
    }
    // The order that settles a text the texts leave open: theirs, else the locale's.
    DateOrder preferred() const { return shown() != DateOrder::NONE ? shown() : orderOfStyle(localeStyle); }
};

ColumnGuesser::ColumnGuesser(kivo::ServiceLocator* locator)
    : locator_(locator != nullptr                           ? locator
               : kivo::ServiceLocator::current() != nullptr ? kivo::ServiceLocator::current()
                                                            : &kivo::getFallbackServiceCreator()),
      shifted_(std::make_unique<kivo::ServiceLocator>()),
      evidence_(std::make_unique<Evidence>()) {
    kivo::SystemOptions& options = locator_->systemOptions();
    evidence_->yearCutoff = options.yearCutoff();
    evidence_->localeStyle = sessionDateStyle(*locator_);
    // A century away in whichever direction the host allows: every two-digit year then reads otherwise.
    const int cutoff = evidence_->yearCutoff - 100 >= kivo::SystemOptions::MIN_YEAR_CUTOFF
                           ? evidence_->yearCutoff - 100
                           : evidence_->yearCutoff + 100;
    shifted_->systemOptions().setOption("yearcutoff", std::to_string(cutoff).c_str());
    shifted_->systemOptions().setOption("datestyle", options.getOption("datestyle"));
    shifted_->systemOptions().setOption("today", options.getOption("today"));
    shifted_->nationalLanguageSupport().setDateStyle(locator_->nationalLanguageSupport().dateStyle());
    for (const InformatEntry& entry : informatCatalog()) {
        const auto rule = std::find_if(std::begin(FIXED_LAYOUTS), std::end(FIXED_LAYOUTS),
                                       [&](const CandidateRule& r) { return r.informat == entry.name; });
        if (entry.reading != Reading::ANY_LAYOUT && rule == std::end(FIXED_LAYOUTS)) {
            continue;  // the binary informats, and STIMER's elapsed times, are no column layouts
        }
        Candidate& candidate = candidates_.emplace_back();
        candidate.entry = &entry;
        candidate.reading = Conversion::reading({&entry, entry.limits.defaultWidth, 0, false}, {});
        if (rule != std::end(FIXED_LAYOUTS)) {
            candidate.otherShapes = rule->otherShapes;
            for (std::string_view names = rule->writers; !names.empty();) {
                const std::string_view name = names.substr(0, names.find(' '));
                names.remove_prefix(std::min(names.size(), name.size() + 1));
                candidate.writers.push_back(findFormat(name));
            }
            candidate.writesBack.assign(candidate.writers.size(), true);
        }
    }
}

ColumnGuesser::~ColumnGuesser() = default;

void ColumnGuesser::add(std::span<const std::string_view> texts, std::span<const std::size_t> positions) {
    std::vector<std::string_view> kept;
    std::vector<std::size_t> keptPositions;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (isBlankText(texts[i]) || isMissingNotation(texts[i])) {
            ++evidence_->leftOut;
        } else {
            kept.push_back(texts[i]);
            keptPositions.push_back(positions[i]);
        }
    }
    kivo::ServiceLocator* const previous = kivo::ServiceLocator::setCurrent(locator_);
    weigh(kept, keptPositions);
    for (Candidate& candidate : candidates_) {
        tally(candidate, kept, keptPositions);
    }
    kivo::ServiceLocator::setCurrent(previous);
}

void ColumnGuesser::tally(Candidate& candidate, std::span<const std::string_view> texts,
                          std::span<const std::size_t> positions) {
    values_.resize(texts.size());
    notes_.resize(texts.size());
    candidate.reading.read(texts, values_, notes_, Fanout(1));
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (notes_[i] != Note::NONE || !takesKind(candidate.entry->kind, kinds_[i])) {
            ++candidate.unread;
            keepExample(candidate.examples, positions[i], texts[i]);
            continue;
        }
        ++candidate.read;
        for (std::size_t w = 0; w < candidate.writers.size(); ++w) {
            if (candidate.writesBack[w] && !writesBack(*candidate.writers[w], values_[i], texts[i])) {
                candidate.writesBack[w] = false;
            }
        }
    }
}

// What the texts say of themselves: their date order, their kind, their length, their two-digit years
// (those a free-form reading places otherwise under a year-cutoff a century away).
void ColumnGuesser::weigh(std::span<const std::string_view> texts, std::span<const std::size_t> positions) {
    Evidence& evidence = *evidence_;
    const Conversion datetimes = Conversion::reading({findInformat("ANYDTDTM"), 0, 0, false}, {});
    std::vector<double> here(texts.size()), shifted(texts.size());
    std::vector<Note> notes(texts.size());
    kinds_.assign(texts.size(), kivo::ANYDT_MISSING);
    datetimes.read(texts, here, notes, Fanout(1));
    datetimes.read(texts, shifted, notes, Fanout(1, shifted_.get()));
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const DateOrder order = dateOrderOf(texts[i]);
        ++evidence.orders[static_cast<int>(order)];
        keepExample(evidence.firstOf[static_cast<int>(order)], positions[i], texts[i]);
        evidence.longest = std::max(evidence.longest, texts[i].size());
        evidence.twoDigitYears += std::bit_cast<std::uint64_t>(here[i]) != std::bit_cast<std::uint64_t>(shifted[i]);
        kivo::AnydtType type = kivo::ANYDT_MISSING;
        if (freeFormType(texts[i].substr(0, MAX_FIELD), type)) {
            kinds_[i] = type;
            evidence.dates += type == kivo::ANYDT_DATE;
            evidence.datetimes += type == kivo::ANYDT_DATETIME;
            evidence.times += type == kivo::ANYDT_TIME;
        }
    }
}

Guess ColumnGuesser::guess() const {
    Guess guess;
    std::vector<Alternative> alternatives;
    if (const Candidate* fixed = chooseFixed(alternatives)) {
        guess.informat = specOf(*fixed);
        guess.read = fixed->read;
        guess.readsEvery = true;
    } else {
        proposeFreeForm(guess);
    }
    guess.leftOut = evidence_->leftOut;
    guess.alternatives = std::move(alternatives);
    describeEvidence(guess);
    return guess;
}

// A candidate's spec: a fixed layout carries the width of the longest text, when it takes that width.
std::string ColumnGuesser::specOf(const Candidate& candidate) const {
    const Limits& limits = candidate.entry->limits;
    const auto width = static_cast<int>(evidence_->longest);
    const bool widthTaken =
        candidate.entry->reading != Reading::ANY_LAYOUT && width >= limits.minWidth && width <= limits.maxWidth;
    return std::string(candidate.entry->name) + (widthTaken ? std::to_string(width) + "." : "");
}

// The fixed layout that reads every text, ranked; the others that do go into the alternatives.
const ColumnGuesser::Candidate* ColumnGuesser::chooseFixed(std::vector<Alternative>& alternatives) const {
    std::vector<const Candidate*> every;
    for (const Candidate& candidate : candidates_) {
        if (candidate.readsEvery() && candidate.entry->reading != Reading::ANY_LAYOUT) {
            every.push_back(&candidate);
        }
    }
    const DateOrder preferred = evidence_->preferred();
    const auto rank = [preferred](const Candidate* c) {
        return std::tuple(!c->writesEveryBack(), c->otherShapes, orderOfLayout(c->entry->name) != preferred);
    };
    std::stable_sort(every.begin(), every.end(),
                     [&](const Candidate* a, const Candidate* b) { return rank(a) < rank(b); });
    if (every.empty()) {
        return nullptr;
    }
    const Candidate* chosen = every.front();
    for (const Candidate* other : every) {
        if (other == chosen) {
            continue;
        }
        const auto [otherWrites, otherShapes, otherOrder] = rank(other);
        const auto [writes, shapes, order] = rank(chosen);
        const DateOrder otherReads = orderOfLayout(other->entry->name);
        const std::string why =
            otherWrites != writes   ? "its format does not write the texts back as they stand"
            : otherShapes != shapes ? "it accepts more other shapes"
            : otherReads != DateOrder::NONE && otherOrder != order
                ? "it reads " + std::string(styleName(otherReads)) + " where the texts leave the order open"
                : "it ties with " + std::string(chosen->entry->name) + ", which comes first in the catalog";
        alternatives.push_back({std::string(other->entry->name), why});
    }
    for (const Candidate& candidate : candidates_) {
        if (candidate.readsEvery() && candidate.entry->reading == Reading::ANY_LAYOUT) {
            alternatives.push_back({std::string(candidate.entry->name), "free-form: a fixed layout comes first"});
        }
    }
    return chosen;
}

// A column of several layouts: the free-form informat of its kind, with the date style its texts show.
// A text whose order contradicts that style is unread. When even that leaves texts unread, the
// candidate that reads most is proposed instead.
void ColumnGuesser::proposeFreeForm(Guess& guess) const {
    const Evidence& evidence = *evidence_;
    const char* name = evidence.datetimes > 0 || (evidence.dates > 0 && evidence.times > 0) ? "ANYDTDTM"
                       : evidence.dates == 0 && evidence.times > 0                          ? "ANYDTTME"
                                                                                            : "ANYDTDTE";
    const auto named =
        std::find_if(candidates_.begin(), candidates_.end(), [&](const Candidate& c) { return c.entry->name == name; });
    const DateOrder shown = evidence.shown();
    const DateOrder against = shown == DateOrder::DMY   ? DateOrder::MDY
                              : shown == DateOrder::MDY ? DateOrder::DMY
                                                        : DateOrder::NONE;
    const std::size_t contradicting = against == DateOrder::NONE ? 0 : evidence.count(against);
    guess.datestyle = std::string(styleName(shown));
    guess.informat = name;
    guess.read = named->read - std::min(named->read, contradicting);
    guess.unread = named->unread + contradicting;
    guess.examples = named->examples;
    if (against != DateOrder::NONE) {
        const auto& contradictions = evidence.firstOf[static_cast<int>(against)];
        guess.examples.insert(guess.examples.end(), contradictions.begin(), contradictions.end());
        std::sort(guess.examples.begin(), guess.examples.end(),
                  [](const UnreadText& a, const UnreadText& b) { return a.position < b.position; });
        guess.examples.resize(std::min(guess.examples.size(), EXAMPLES));
    }
    // Reading the most, a fixed layout before a free-form one.
    const auto most =
        std::max_element(candidates_.begin(), candidates_.end(), [](const Candidate& a, const Candidate& b) {
            return std::pair(a.read, a.entry->reading != Reading::ANY_LAYOUT) <
                   std::pair(b.read, b.entry->reading != Reading::ANY_LAYOUT);
        });
    const bool fixed = most->entry->reading != Reading::ANY_LAYOUT;
    if (guess.unread > 0 && (most->read > guess.read || (most->read == guess.read && fixed))) {
        guess = Guess{};
        guess.informat = specOf(*most);
        guess.read = most->read;
        guess.unread = most->unread;
        guess.examples = most->examples;
        return;
    }
    guess.readsEvery = guess.unread == 0;
}

void ColumnGuesser::describeEvidence(Guess& guess) const {
    const Evidence& evidence = *evidence_;
    const std::size_t dayFirst = evidence.count(DateOrder::DMY), monthFirst = evidence.count(DateOrder::MDY);
    if (dayFirst + monthFirst > 0) {
        guess.evidence.push_back("date order: " + plural(dayFirst, "text has", "texts have") +
                                 " a first number above 12 (day first), " + std::to_string(monthFirst) +
                                 " a second one (month first)");
    }
    // Open dates matter to a reading that takes its order from the date style.
    const bool orderFromStyle = guess.informat.starts_with("DDMMYY") || guess.informat.starts_with("MMDDYY") ||
                                (guess.informat.starts_with("ANYDT") && guess.datestyle.empty());
    if (evidence.shown() == DateOrder::NONE && evidence.count(DateOrder::OPEN) > 0 && orderFromStyle) {
        const bool localeDayFirst = evidence.localeStyle.starts_with('d');
        guess.evidence.push_back("date order: ambiguous, no text tells day from month (" +
                                 plural(evidence.count(DateOrder::OPEN), "text could", "texts could") +
                                 " be either); read " + (localeDayFirst ? "day" : "month") +
                                 " first, as the locale's date style " + evidence.localeStyle +
                                 " has it, where --datestyle " + (localeDayFirst ? "mdy" : "dmy") +
                                 " would read them " + (localeDayFirst ? "month" : "day") + " first");
    }
    if (evidence.twoDigitYears > 0) {
        guess.evidence.push_back("two-digit years: " + plural(evidence.twoDigitYears, "text", "texts") + ", read in " +
                                 std::to_string(evidence.yearCutoff) + "-" + std::to_string(evidence.yearCutoff + 99) +
                                 " (--yearcutoff " + std::to_string(evidence.yearCutoff) + ")");
    }
}

std::string Guess::arguments() const { return (datestyle.empty() ? "" : "--datestyle " + datestyle + " ") + informat; }

std::string Guess::report(const char* place) const {
    std::string text = readsEvery ? "reads all " + std::to_string(read) + " texts"
                                  : "no informat reads every text; " + informat + " reads " + std::to_string(read) +
                                        " of " + std::to_string(read + unread);
    if (leftOut > 0) {
        text += " (" + std::to_string(leftOut) + " empty or missing left out)";
    }
    text += "\n";
    for (const UnreadText& example : examples) {
        text += "  not read, " + std::string(place) + " " + std::to_string(example.position) + ": " +
                quotedForMessage(example.text) + "\n";
    }
    for (const Alternative& alternative : alternatives) {
        text += "also reads every text: " + alternative.informat + ", but " + alternative.why + "\n";
    }
    for (const std::string& line : evidence) {
        text += line + "\n";
    }
    return text;
}

}  // namespace kivoconvert
