#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kivo/AnydtInformats.h"
#include "kivoconvert/Conversion.h"
#include "kivoconvert/DateOrder.h"

namespace kivo {
class ServiceLocator;
}

namespace kivoconvert {

// A text the proposal does not read, and where it stands (its line or row).
struct UnreadText {
    std::size_t position;
    std::string text;
};

// Another informat that reads every text too, and why the proposal comes first.
struct Alternative {
    std::string informat;
    std::string why;
};

// Which informat reads a column, decided by all of its texts.
struct Guess {
    std::string datestyle;  // the date style the reading needs ("dmy"), or empty
    std::string informat;   // the spec: "DDMMYY10.", "ANYDTDTE"
    bool readsEvery = false;
    std::size_t read = 0;              // texts that are neither empty nor a missing-value notation, read
    std::size_t unread = 0;            // and not read
    std::size_t leftOut = 0;           // empty texts and missing-value notations: neither evidence nor failures
    std::vector<UnreadText> examples;  // the first unread texts, at most five
    std::vector<Alternative> alternatives;
    std::vector<std::string> evidence;  // lines on the date order and two-digit years

    // What convert takes before its FORMAT: "--datestyle dmy ANYDTDTE", "DDMMYY10.".
    std::string arguments() const;
    // The lines after them: the counts, the unread texts, the alternatives and the evidence.
    std::string report(const char* place) const;
};

// Reads a column's texts, a block at a time, with every candidate informat (the text, week and free-form
// informats; not the binary ones) under the engine's rules, keeping counters per candidate rather than
// the texts, so that memory is bounded by the candidates, not the column. The rules it decides by:
//   - a text is read when the engine names nothing of it (not rejected, not read as nothing, not
//     ANYDTDTE's day 0) and the informat's kind takes what the free-form reader finds in it (a time
//     informat reads no date, a date informat no datetime); empty texts and missing-value notations
//     count neither way;
//   - a fixed layout that reads every text comes before the free-form informats; among fixed layouts,
//     first the one whose format writes the texts back as they stand, then the one that accepts fewer
//     other shapes (one separator over any, four-digit years over two);
//   - the date order comes from the texts (dateOrderOf): a column whose texts put the day first is
//     day-first, one that puts it second is month-first; with no such text the locale's date style
//     decides, and the report says that both readings were possible;
//   - a column of several layouts gets the free-form informat of its kind (ANYDTDTM once a text holds a
//     time of day) with the date style the evidence supports; a text that contradicts it is unread;
//   - texts with two-digit years are counted, with the year-cutoff window that reads them.
// The options (datestyle, yearcutoff, today) are those of the locator given, or the caller's current.
class ColumnGuesser {
public:
    explicit ColumnGuesser(kivo::ServiceLocator* locator = nullptr);
    ColumnGuesser(const ColumnGuesser&) = delete;
    ColumnGuesser& operator=(const ColumnGuesser&) = delete;
    ~ColumnGuesser();

    // The texts of one block and the position of each.
    void add(std::span<const std::string_view> texts, std::span<const std::size_t> positions);
    Guess guess() const;

    static constexpr std::size_t EXAMPLES = 5;

private:
    struct Candidate;
    struct Evidence;

    void tally(Candidate& candidate, std::span<const std::string_view> texts, std::span<const std::size_t> positions);
    void weigh(std::span<const std::string_view> texts, std::span<const std::size_t> positions);
    const Candidate* chooseFixed(std::vector<Alternative>& alternatives) const;
    std::string specOf(const Candidate& candidate) const;
    void proposeFreeForm(Guess& guess) const;
    void describeEvidence(Guess& guess) const;

    kivo::ServiceLocator* locator_;
    std::unique_ptr<kivo::ServiceLocator> shifted_;  // the same options, the year-cutoff a century away
    std::vector<Candidate> candidates_;
    std::unique_ptr<Evidence> evidence_;
    std::vector<double> values_;  // a block's, reused
    std::vector<Note> notes_;
    std::vector<kivo::AnydtType> kinds_;  // the kind of value the free-form reader finds in each text
};

}  // namespace kivoconvert
