// The kivo Python package's native part: blocks of values and texts through the conversion engine, on
// the machine's cores, with the interpreter's lock released while they convert. The Python side
// (kivo/_convert.py) sorts numpy, pandas and Python objects into the arrays these functions take and
// gives the results back in the shape they came in.
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "ExactSerials.h"
#include "TextIntake.h"
#include "kivoconvert/Catalog.h"
#include "kivoconvert/Conversion.h"
#include "kivoconvert/Guess.h"
#include "kivoconvert/Spec.h"
#include "kivoconvert/Values.h"
#include "kivox/OptionSettings.h"
#include "kivox/Services.h"

namespace py = pybind11;

namespace {

using kivoconvert::ValueKind;

using DoubleArray = py::array_t<double, py::array::c_style | py::array::forcecast>;

int cores() { return static_cast<int>(std::max(1u, std::thread::hardware_concurrency())); }

// The kinds in the words of the package: "day", "datetime", "time", "number" (catalog() and
// describe_*()), and "a date" ... for messages about a user's values.
constexpr const char* KIND_NAMES[] = {"day", "datetime", "time", "number"};
constexpr const char* KIND_WORDS[] = {"a date", "a datetime", "a time", "a number"};

const char* packageKindName(ValueKind kind) { return KIND_NAMES[static_cast<int>(kind)]; }

ValueKind kindNamed(const std::string& name) {
    for (int kind = 0; kind < 4; ++kind) {
        if (name == KIND_NAMES[kind]) {
            return static_cast<ValueKind>(kind);
        }
    }
    throw py::value_error("no kind of value \"" + name + "\"");
}

// The options of one call, on services of its own that only this call's threads use. They start from
// the environment variables, as the process-wide services do; a call with no option uses those. A
// variable the host refused stops every call, as it stops kivodt, rather than leave an option at its
// default unsaid.
class CallServices {
public:
    CallServices() {
        for (const kivo::RejectedVariable& variable : kivo::rejectedEnvironment()) {
            throw py::value_error(std::string(variable.name) + " takes " + variable.allowed + ", not \"" +
                                  variable.value + "\"");
        }
    }

    void set(const kivo::OptionSetting& setting, const char* option, const std::optional<std::string>& text) {
        if (!text) {
            return;
        }
        if (text->find('\0') != std::string::npos) {
            throw py::value_error(std::string(option) + " holds a NUL character");
        }
        if (!used_) {
            kivo::applyEnvironment(locator_);
            used_ = true;
        }
        if (!setting.apply(locator_, text->c_str())) {
            throw py::value_error(std::string(option) + " takes " + setting.allowed + ", not \"" + *text + "\"");
        }
    }

    kivo::ServiceLocator* locator() { return used_ ? &locator_ : nullptr; }
    kivoconvert::Fanout fanout() { return kivoconvert::Fanout(cores(), locator()); }

private:
    kivo::ServiceLocator locator_;
    bool used_ = false;
};

template <class Entry>
kivoconvert::ResolvedSpec<Entry> resolved(const std::string& spec,
                                          bool (*resolve)(std::string_view, kivoconvert::ResolvedSpec<Entry>&,
                                                          std::string&)) {
    kivoconvert::ResolvedSpec<Entry> result;
    std::string error;
    if (spec.find('\0') != std::string::npos) {
        throw py::value_error("a spec holds no NUL character");
    }
    if (!resolve(spec, result, error)) {
        throw py::value_error(error);
    }
    return result;
}

kivoconvert::ResolvedSpec<kivoconvert::FormatEntry> resolvedFormat(const std::string& spec) {
    return resolved<kivoconvert::FormatEntry>(spec, kivoconvert::resolveFormat);
}

kivoconvert::ResolvedSpec<kivoconvert::InformatEntry> resolvedInformat(const std::string& spec) {
    return resolved<kivoconvert::InformatEntry>(spec, kivoconvert::resolveInformat);
}

template <class Entry>
py::dict described(const kivoconvert::ResolvedSpec<Entry>& spec) {
    py::dict d;
    d["name"] = std::string(spec.entry->name);
    d["width"] = spec.width;
    d["width_given"] = spec.widthGiven;
    d["decimals"] = spec.decimals;
    d["kind"] = packageKindName(spec.entry->kind);
    return d;
}

py::dict describeFormat(const std::string& spec) {
    const auto format = resolvedFormat(spec);
    py::dict d = described(format);
    d["writes_bytes"] = format.entry->writesBytes;
    return d;
}

py::dict describeInformat(const std::string& spec) {
    const auto informat = resolvedInformat(spec);
    py::dict d = described(informat);
    d["reads_bytes"] = informat.entry->readsBytes();
    return d;
}

// Counts of a datetime64 (kind "day" for the units of a day or more, else "datetime") or timedelta64
// ("time") as the serials the format takes, exactly; the kind decides as in kivodt convert. `what`
// names the values for the message when the format cannot show them ("timedelta64[D] values").
DoubleArray serials(const std::string& spec,
                    py::array_t<std::int64_t, py::array::c_style | py::array::forcecast> counts,
                    const std::string& unitCode, std::int64_t multiplier, const std::string& kind,
                    const std::string& what) {
    const auto format = resolvedFormat(spec);
    const ValueKind read = kindNamed(kind);
    const kivoconvert::KindStep step = kivoconvert::kindStep(read, format.entry->kind);
    if (step == kivoconvert::KindStep::REFUSED) {
        throw py::value_error(spec + " shows " + KIND_WORDS[static_cast<int>(format.entry->kind)] + ", not " +
                              KIND_WORDS[static_cast<int>(read)] + " (" + what + ")");
    }
    kivopy::CountUnit unit;
    if (!kivopy::countUnit(unitCode, multiplier, unit)) {
        throw py::value_error("no numpy time unit \"" + unitCode + "\"");
    }
    const auto count = static_cast<std::size_t>(counts.size());
    DoubleArray result(static_cast<py::ssize_t>(count));
    {
        py::gil_scoped_release unlocked;
        kivopy::serialsOfCounts({counts.data(), count}, unit, read, step, {result.mutable_data(), count});
    }
    return result;
}

// Fields side by side (width bytes each) as a numpy array: '<U{width}' text, or 'S{width}' bytes for
// the formats that write bytes; with objects, an object array of str or bytes, each exactly the field.
// The fields are latin-1: a missing character of one byte shows as the character of that code.
py::array fieldArray(const std::string& fields, std::size_t count, std::size_t width, bool bytes, bool objects) {
    const std::vector<py::ssize_t> shape{static_cast<py::ssize_t>(count)};
    if (objects) {
        py::array result(py::dtype("O"), shape);
        auto** items = static_cast<PyObject**>(result.mutable_data());
        for (std::size_t i = 0; i < count; ++i) {
            const char* field = fields.data() + i * width;
            const auto size = static_cast<py::ssize_t>(width);
            items[i] = bytes ? PyBytes_FromStringAndSize(field, size) : PyUnicode_DecodeLatin1(field, size, nullptr);
            if (items[i] == nullptr) {
                throw py::error_already_set();
            }
        }
        return result;
    }
    py::array result(py::dtype(std::string(bytes ? "S" : "U") + std::to_string(width)), shape);
    if (bytes) {
        std::memcpy(result.mutable_data(), fields.data(), fields.size());
    } else {
        auto* wide = static_cast<std::uint32_t*>(result.mutable_data());
        py::gil_scoped_release unlocked;
        std::transform(fields.begin(), fields.end(), wide, [](char c) { return static_cast<unsigned char>(c); });
    }
    return result;
}

// Serials (float64, one dimension) to the fields of a format.
py::array formatValues(const std::string& spec, DoubleArray values, std::optional<std::string> missingChar,
                       bool objects) {
    const auto format = resolvedFormat(spec);
    CallServices services;
    services.set(kivo::settings::MISSING_CHAR, "missing_char", missingChar);
    const auto count = static_cast<std::size_t>(values.size());
    const auto width = static_cast<std::size_t>(format.width);
    std::string fields(count * width, ' ');
    {
        py::gil_scoped_release unlocked;
        kivoconvert::Conversion::formatting(format, {}).write({values.data(), count}, fields.data(), services.fanout());
    }
    return fieldArray(fields, count, width, format.entry->writesBytes, objects);
}

// Texts read with an informat: float64 values, one dimension. A named note (a rejected text, bytes
// past the width, a free-form read of nothing, day 0) gives NaN, or with raiseErrors a ValueError
// naming the first such text, its position and the engine's words for the note; a text left out gives
// the missing value, never an error.
DoubleArray informatTexts(const std::string& spec, py::handle texts, py::tuple missing,
                          std::optional<std::string> datestyle, std::optional<std::string> yearcutoff,
                          bool raiseErrors) {
    const auto informat = resolvedInformat(spec);
    CallServices services;
    services.set(kivo::settings::DATE_STYLE, "datestyle", datestyle);
    services.set(kivo::settings::YEAR_CUTOFF, "yearcutoff", yearcutoff);
    const kivopy::TextColumn column(texts, missing, kivoconvert::Fanout(cores()));
    const std::span<const std::string_view> views = column.texts();
    const std::size_t count = views.size();
    DoubleArray values(static_cast<py::ssize_t>(count));
    const std::span<double> out(values.mutable_data(), count);
    std::vector<kivoconvert::Note> notes(count);
    const auto conversion = kivoconvert::Conversion::reading(informat, {});
    std::size_t firstNamed = count;
    {
        py::gil_scoped_release unlocked;
        conversion.read(views, out, notes, services.fanout());
        for (std::size_t i = 0; i < count; ++i) {
            if (kivoconvert::isNamed(notes[i])) {
                out[i] = std::numeric_limits<double>::quiet_NaN();
                firstNamed = std::min(firstNamed, i);
            }
        }
    }
    if (raiseErrors && firstNamed < count) {
        const std::string_view text = views[firstNamed];
        throw py::value_error(kivoconvert::quotedForMessage(text) + " at position " + std::to_string(firstNamed) +
                              ": " + conversion.describe(notes[firstNamed], text));
    }
    return values;
}

// Which informat reads a column of texts, decided by all of them (kivoconvert::ColumnGuesser): its
// fields for kivo.Guess. Positions are the texts' flat positions.
py::dict guessTexts(py::handle texts, py::tuple missing, std::optional<std::string> datestyle,
                    std::optional<std::string> yearcutoff) {
    CallServices services;
    services.set(kivo::settings::DATE_STYLE, "datestyle", datestyle);
    services.set(kivo::settings::YEAR_CUTOFF, "yearcutoff", yearcutoff);
    const kivopy::TextColumn column(texts, missing, kivoconvert::Fanout(cores()));
    kivoconvert::Guess guess;
    {
        py::gil_scoped_release unlocked;
        std::vector<std::size_t> positions(column.texts().size());
        std::iota(positions.begin(), positions.end(), std::size_t{0});
        kivoconvert::ColumnGuesser guesser(services.locator());
        guesser.add(column.texts(), positions);
        guess = guesser.guess();
    }
    py::dict fields;
    fields["informat"] = guess.informat;
    fields["datestyle"] = guess.datestyle.empty() ? py::object(py::none()) : py::object(py::str(guess.datestyle));
    fields["read"] = guess.read;
    fields["unread"] = guess.unread;
    fields["left_out"] = guess.leftOut;
    fields["reads_every"] = guess.readsEvery;
    py::list examples, alternatives;
    for (const kivoconvert::UnreadText& example : guess.examples) {
        examples.append(py::make_tuple(example.position, py::bytes(example.text).attr("decode")("utf-8", "replace")));
    }
    for (const kivoconvert::Alternative& alternative : guess.alternatives) {
        alternatives.append(py::make_tuple(alternative.informat, alternative.why));
    }
    fields["examples"] = examples;
    fields["alternatives"] = alternatives;
    fields["arguments"] = guess.arguments();
    fields["report"] = guess.report("position");
    return fields;
}

// Serials of an informat's kind as datetime64 / timedelta64 counts (see countsOfSerials): the counts
// and the position of the first value they cannot hold, or -1.
py::tuple datetimeCounts(DoubleArray values, const std::string& kind, std::int64_t perSecond) {
    const ValueKind read = kindNamed(kind);
    const auto count = static_cast<std::size_t>(values.size());
    py::array_t<std::int64_t> counts(static_cast<py::ssize_t>(count));
    std::size_t firstBad = 0;
    {
        py::gil_scoped_release unlocked;
        firstBad = kivopy::countsOfSerials({values.data(), count}, read, perSecond, {counts.mutable_data(), count});
    }
    return py::make_tuple(counts, firstBad < count ? static_cast<py::ssize_t>(firstBad) : -1);
}

// The engine's missing-value code of each value or text, as a '<U1' array ("" for none).
template <class Item>
py::array missingCodes(std::span<const Item> items) {
    py::array_t<std::uint32_t> codes(static_cast<py::ssize_t>(items.size()));
    std::transform(items.begin(), items.end(), codes.mutable_data(),
                   [](const Item& item) { return static_cast<unsigned char>(kivoconvert::missingCode(item)); });
    return codes.view("U1");
}

py::array missingCodesOfValues(DoubleArray values) {
    return missingCodes<double>({values.data(), static_cast<std::size_t>(values.size())});
}

py::array missingCodesOfTexts(py::handle texts, py::tuple missing) {
    const kivopy::TextColumn column(texts, missing, kivoconvert::Fanout(cores()));
    return missingCodes<std::string_view>(column.texts());
}

py::list catalog() {
    py::list rows;
    const auto add = [&rows](const char* kind, const auto& entry) {
        const kivoconvert::Limits& limits = entry.limits;
        py::dict row;
        row["kind"] = kind;
        row["name"] = std::string(kivoconvert::shownName(entry.name));
        row["min_width"] = limits.minWidth;
        row["max_width"] = limits.maxWidth;
        row["default_width"] = limits.defaultWidth;
        row["max_decimals"] = kivoconvert::maxDecimals(limits, kivoconvert::MAX_FIELD);
        row["decimals_below_width"] = kivoconvert::decimalsBelowWidth(limits);
        row["value_kind"] = packageKindName(entry.kind);
        rows.append(row);
    };
    for (const kivoconvert::FormatEntry& entry : kivoconvert::formatCatalog()) {
        add("format", entry);
    }
    for (const kivoconvert::InformatEntry& entry : kivoconvert::informatCatalog()) {
        add("informat", entry);
    }
    return rows;
}

}  // namespace

PYBIND11_MODULE(_kivo, module) {
    module.doc() = "Native conversions of the kivo package";
    module.def("describe_format", &describeFormat, py::arg("spec"));
    module.def("describe_informat", &describeInformat, py::arg("spec"));
    module.def("serials", &serials, py::arg("spec"), py::arg("counts"), py::arg("unit"), py::arg("multiplier"),
               py::arg("kind"), py::arg("what"));
    module.def("format_values", &formatValues, py::arg("spec"), py::arg("values"), py::arg("missing_char"),
               py::arg("objects"));
    module.def("informat_texts", &informatTexts, py::arg("spec"), py::arg("texts"), py::arg("missing"),
               py::arg("datestyle"), py::arg("yearcutoff"), py::arg("raise_errors"));
    module.def("datetime_counts", &datetimeCounts, py::arg("values"), py::arg("kind"), py::arg("per_second"));
    module.def("missing_codes_of_values", &missingCodesOfValues, py::arg("values"));
    module.def("missing_codes_of_texts", &missingCodesOfTexts, py::arg("texts"), py::arg("missing"));
    module.def("catalog", &catalog);
    module.def("guess_texts", &guessTexts, py::arg("texts"), py::arg("missing"), py::arg("datestyle"),
               py::arg("yearcutoff"));
}
