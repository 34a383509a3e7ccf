// The kivo Python package's native part: whole numpy arrays through one format or informat of kivodt's
// catalog, converted by the front end's batch API without the interpreter's lock, on as many threads
// as the machine has. The Python side (kivo/__init__.py) turns numpy, pandas and datetime64 values into
// the arrays these functions take.
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "kivoconvert/Catalog.h"
#include "kivoconvert/Conversion.h"
#include "kivoconvert/Spec.h"
#include "kivox/OptionSettings.h"
#include "kivox/Services.h"

namespace py = pybind11;

namespace {

int cores() { return static_cast<int>(std::max(1u, std::thread::hardware_concurrency())); }

const char* valueKindName(kivoconvert::ValueKind kind) {
    switch (kind) {
        case kivoconvert::ValueKind::DAY:
            return "day";
        case kivoconvert::ValueKind::DATETIME:
            return "datetime";
        case kivoconvert::ValueKind::TIME:
            return "time";
        case kivoconvert::ValueKind::NUMBER:
            break;
    }
    return "number";
}

// The options of one call, applied to services of its own that only this call's threads use.
class CallServices {
public:
    void set(const kivo::OptionSetting& setting, const char* option, const std::optional<std::string>& text) {
        if (!text) {
            return;
        }
        if (!setting.apply(locator_, text->c_str())) {
            throw py::value_error(std::string(option) + " takes " + setting.allowed + ", not \"" + *text + "\"");
        }
        used_ = true;
    }
    kivo::ServiceLocator* locator() { return used_ ? &locator_ : nullptr; }

private:
    kivo::ServiceLocator locator_;
    bool used_ = false;
};

template <class Entry>
kivoconvert::ResolvedSpec<Entry> resolved(const std::string& spec,
                                     bool (*resolve)(std::string_view, kivoconvert::ResolvedSpec<Entry>&, std::string&)) {
    kivoconvert::ResolvedSpec<Entry> result;
    std::string error;
    if (!resolve(spec, result, error)) {
        throw py::value_error(error);
    }
    return result;
}

py::dict describeFormat(const std::string& spec) {
    const auto format = resolved<kivoconvert::FormatEntry>(spec, kivoconvert::resolveFormat);
    py::dict d;
    d["name"] = std::string(format.entry->name);
    d["width"] = format.width;
    d["decimals"] = format.decimals;
    d["kind"] = valueKindName(format.entry->kind);
    d["writes_bytes"] = format.entry->writesBytes;
    return d;
}

py::dict describeInformat(const std::string& spec) {
    const auto informat = resolved<kivoconvert::InformatEntry>(spec, kivoconvert::resolveInformat);
    py::dict d;
    d["name"] = std::string(informat.entry->name);
    d["width"] = informat.width;
    d["width_given"] = informat.widthGiven;
    d["decimals"] = informat.decimals;
    d["kind"] = valueKindName(informat.entry->kind);
    d["reads_bytes"] = informat.entry->readsBytes();
    return d;
}

// values (float64) to a numpy array of fixed-width fields: '<U{width}' text, or 'S{width}' bytes for the
// formats that write bytes. The fields are written side by side and, for text, widened to the array's
// four-byte characters without the interpreter's lock.
py::array formatValues(const std::string& spec, py::array_t<double, py::array::c_style | py::array::forcecast> values,
                       std::optional<std::string> missingChar) {
    const auto format = resolved<kivoconvert::FormatEntry>(spec, kivoconvert::resolveFormat);
    CallServices services;
    services.set(kivo::settings::MISSING_CHAR, "missing_char", missingChar);
    const auto count = static_cast<std::size_t>(values.size());
    const auto width = static_cast<std::size_t>(format.width);
    const bool bytes = format.entry->writesBytes;
    const std::vector<py::ssize_t> shape{static_cast<py::ssize_t>(count)};
    py::array fields(py::dtype(std::string(bytes ? "S" : "U") + std::to_string(width)), shape);
    {
        py::gil_scoped_release unlocked;
        std::string text(count * width, ' ');
        kivoconvert::Conversion::formatting(format, {}).write(std::span<const double>(values.data(), count),
                                                             text.data(), kivoconvert::Fanout(cores(), services.locator()));
        if (bytes) {
            std::copy(text.begin(), text.end(), static_cast<char*>(fields.mutable_data()));
        } else {
            auto* wide = static_cast<std::uint32_t*>(fields.mutable_data());
            std::transform(text.begin(), text.end(), wide, [](char c) { return static_cast<unsigned char>(c); });
        }
    }
    return fields;
}

// Texts laid end to end (bytes, offsets) read into (values, accepted).
py::tuple informatTexts(const std::string& spec, const py::bytes& column,
                        py::array_t<std::size_t, py::array::c_style | py::array::forcecast> offsets,
                        std::optional<std::string> datestyle, std::optional<std::string> yearcutoff) {
    const auto informat = resolved<kivoconvert::InformatEntry>(spec, kivoconvert::resolveInformat);
    CallServices services;
    services.set(kivo::settings::DATE_STYLE, "datestyle", datestyle);
    services.set(kivo::settings::YEAR_CUTOFF, "yearcutoff", yearcutoff);
    const std::string_view bytes = column;
    const std::size_t count = offsets.size() > 0 ? static_cast<std::size_t>(offsets.size()) - 1 : 0;
    py::array_t<double> results(static_cast<py::ssize_t>(count));
    py::array_t<unsigned char> accepted(static_cast<py::ssize_t>(count));
    {
        py::gil_scoped_release unlocked;
        std::vector<std::string_view> texts(count);
        const std::size_t* at = offsets.data();
        for (std::size_t i = 0; i < count; ++i) {
            texts[i] = bytes.substr(at[i], at[i + 1] - at[i]);
        }
        std::vector<kivoconvert::Note> notes(count);
        kivoconvert::Conversion::reading(informat, {}).read(texts, std::span<double>(results.mutable_data(), count),
                                                            notes, kivoconvert::Fanout(cores(), services.locator()));
        unsigned char* flags = accepted.mutable_data();
        for (std::size_t i = 0; i < count; ++i) {
            flags[i] = kivoconvert::keepsValue(notes[i]) || notes[i] == kivoconvert::Note::LEFT_OUT;
        }
    }
    return py::make_tuple(results, accepted);
}

py::list catalog() {
    py::list rows;
    const auto add = [&rows](const char* kind, const auto& entry) {
        const kivoconvert::Limits& limits = entry.limits;
        py::dict row;
        row["kind"] = kind;
        row["name"] = entry.name.empty() ? std::string("w.d") : std::string(entry.name);
        row["min_width"] = limits.minWidth;
        row["max_width"] = limits.maxWidth;
        row["default_width"] = limits.defaultWidth;
        row["max_decimals"] = kivoconvert::maxDecimals(limits, kivoconvert::MAX_FIELD);
        row["decimals_below_width"] =
            limits.decimals == kivoconvert::Decimals::MISSING_POSITION || limits.decimals == kivoconvert::Decimals::LAYOUT;
        row["value_kind"] = valueKindName(entry.kind);
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
    module.def("format_values", &formatValues, py::arg("spec"), py::arg("values"), py::arg("missing_char"));
    module.def("informat_texts", &informatTexts, py::arg("spec"), py::arg("column"), py::arg("offsets"),
               py::arg("datestyle"), py::arg("yearcutoff"));
    module.def("catalog", &catalog);
}
