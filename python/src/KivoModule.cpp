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

#include "kivodt/Batch.h"
#include "kivodt/Catalog.h"
#include "kivodt/Spec.h"
#include "kivox/OptionSettings.h"
#include "kivox/Services.h"

namespace py = pybind11;

namespace {

int threadCount(std::size_t values) {
    // Small arrays are not worth a thread's start.
    constexpr std::size_t PER_THREAD = 16384;
    const auto cores = static_cast<std::size_t>(std::max(1u, std::thread::hardware_concurrency()));
    return static_cast<int>(std::clamp<std::size_t>(values / PER_THREAD, 1, cores));
}

const char* valueKindName(kivodt::ValueKind kind) {
    switch (kind) {
        case kivodt::ValueKind::DAY:
            return "day";
        case kivodt::ValueKind::DATETIME:
            return "datetime";
        case kivodt::ValueKind::TIME:
            return "time";
        case kivodt::ValueKind::NUMBER:
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
kivodt::ResolvedSpec<Entry> resolved(const std::string& spec,
                                     bool (*resolve)(std::string_view, kivodt::ResolvedSpec<Entry>&, std::string&)) {
    kivodt::ResolvedSpec<Entry> result;
    std::string error;
    if (!resolve(spec, result, error)) {
        throw py::value_error(error);
    }
    return result;
}

py::dict describeFormat(const std::string& spec) {
    const auto format = resolved<kivodt::FormatEntry>(spec, kivodt::resolveFormat);
    py::dict d;
    d["name"] = std::string(format.entry->name);
    d["width"] = format.width;
    d["decimals"] = format.decimals;
    d["kind"] = valueKindName(format.entry->kind);
    d["writes_bytes"] = format.entry->writesBytes;
    return d;
}

py::dict describeInformat(const std::string& spec) {
    const auto informat = resolved<kivodt::InformatEntry>(spec, kivodt::resolveInformat);
    py::dict d;
    d["name"] = std::string(informat.entry->name);
    d["width"] = informat.width;
    d["width_given"] = informat.widthGiven;
    d["decimals"] = informat.decimals;
    d["kind"] = valueKindName(informat.entry->kind);
    d["reads_bytes"] = informat.entry->readsBytes;
    return d;
}

// values (float64) to a numpy array of fixed-width fields: '<U{width}' text, or 'S{width}' bytes for the
// formats that write bytes. The fields are written side by side and, for text, widened to the array's
// four-byte characters without the interpreter's lock.
py::array formatValues(const std::string& spec, py::array_t<double, py::array::c_style | py::array::forcecast> values,
                       std::optional<std::string> missingChar) {
    const auto format = resolved<kivodt::FormatEntry>(spec, kivodt::resolveFormat);
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
        kivodt::formatBatch(*format.entry, format.width, format.decimals,
                            std::span<const double>(values.data(), count), text.data(), threadCount(count),
                            services.locator());
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
    const auto informat = resolved<kivodt::InformatEntry>(spec, kivodt::resolveInformat);
    CallServices services;
    services.set(kivo::settings::DATE_STYLE, "datestyle", datestyle);
    services.set(kivo::settings::YEAR_CUTOFF, "yearcutoff", yearcutoff);
    const std::string_view bytes = column;
    const std::size_t count = offsets.size() > 0 ? static_cast<std::size_t>(offsets.size()) - 1 : 0;
    py::array_t<double> results(static_cast<py::ssize_t>(count));
    py::array_t<unsigned char> accepted(static_cast<py::ssize_t>(count));
    {
        py::gil_scoped_release unlocked;
        const kivodt::TextColumn texts{bytes.data(), std::span<const std::size_t>(offsets.data(), offsets.size())};
        kivodt::informatBatch(*informat.entry, informat.widthGiven ? informat.width : kivodt::WHOLE_TEXT,
                              informat.decimals, texts, std::span<double>(results.mutable_data(), count),
                              std::span<unsigned char>(accepted.mutable_data(), count), threadCount(count),
                              services.locator());
    }
    return py::make_tuple(results, accepted);
}

py::list catalog() {
    py::list rows;
    const auto add = [&rows](const char* kind, const auto& entry) {
        const kivodt::Limits& limits = entry.limits;
        py::dict row;
        row["kind"] = kind;
        row["name"] = entry.name.empty() ? std::string("w.d") : std::string(entry.name);
        row["min_width"] = limits.minWidth;
        row["max_width"] = limits.maxWidth;
        row["default_width"] = limits.defaultWidth;
        row["max_decimals"] = kivodt::maxDecimals(limits, kivodt::MAX_FIELD);
        row["decimals_below_width"] =
            limits.decimals == kivodt::Decimals::MISSING_POSITION || limits.decimals == kivodt::Decimals::LAYOUT;
        row["value_kind"] = valueKindName(entry.kind);
        rows.append(row);
    };
    for (const kivodt::FormatEntry& entry : kivodt::formatCatalog()) {
        add("format", entry);
    }
    for (const kivodt::InformatEntry& entry : kivodt::informatCatalog()) {
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
