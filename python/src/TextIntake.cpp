#include "TextIntake.h"

#include <pybind11/numpy.h>

#include <cmath>
#include <cstdint>

namespace py = pybind11;

namespace kivopy {

namespace {

// Code points to UTF-8. A lone surrogate, which a Python str may hold, is written as its three bytes
// like any other code point below 0x10000: no informat reads it, and a message shows its bytes.
template <class CodeUnit>
void appendUtf8(const CodeUnit* text, std::size_t length, std::string& out) {
    for (std::size_t i = 0; i < length; ++i) {
        const auto c = static_cast<std::uint32_t>(text[i]);
        if (c < 0x80) {
            out.push_back(static_cast<char>(c));
        } else if (c < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (c >> 6)));
            out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        } else if (c < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (c >> 12)));
            out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (c >> 18)));
            out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        }
    }
}

// The length of a numpy item without the NULs that pad it.
template <class CodeUnit>
std::size_t paddedLength(const CodeUnit* item, std::size_t size) {
    while (size > 0 && item[size - 1] == 0) {
        --size;
    }
    return size;
}

bool isLeftOut(PyObject* item, py::tuple missing) {
    if (item == Py_None || (PyFloat_Check(item) && std::isnan(PyFloat_AS_DOUBLE(item)))) {
        return true;
    }
    for (const py::handle object : missing) {
        if (item == object.ptr()) {
            return true;
        }
    }
    return false;
}

}  // namespace

TextColumn::TextColumn(py::handle texts, py::tuple missing) {
    if (PyList_Check(texts.ptr()) || PyTuple_Check(texts.ptr())) {
        const py::sequence items = py::reinterpret_borrow<py::sequence>(texts);
        const std::size_t count = items.size();
        offsets_.reserve(count + 1);
        PyObject** objects = PySequence_Fast_ITEMS(texts.ptr());
        for (std::size_t i = 0; i < count; ++i) {
            addObject(objects[i], i, missing);
        }
        viewCopies();
        return;
    }
    if (!py::isinstance<py::array>(texts)) {
        throw py::type_error(std::string("kivo.informat reads text, not ") + Py_TYPE(texts.ptr())->tp_name);
    }
    const auto array = py::reinterpret_borrow<py::array>(texts);
    if (array.ndim() != 1 || !(array.flags() & py::array::c_style)) {
        throw py::value_error("texts must be a one-dimensional C-contiguous array here");
    }
    const auto count = static_cast<std::size_t>(array.size());
    const auto itemSize = static_cast<std::size_t>(array.itemsize());
    const char kind = array.dtype().kind();
    if (kind == 'O') {
        offsets_.reserve(count + 1);
        auto* const* objects = static_cast<PyObject* const*>(array.data());
        for (std::size_t i = 0; i < count; ++i) {
            addObject(objects[i], i, missing);
        }
        viewCopies();
    } else if (kind == 'S') {
        // Read in place: the caller keeps the array alive while the views are used.
        views_.resize(count);
        const auto* base = static_cast<const char*>(array.data());
        py::gil_scoped_release unlocked;
        for (std::size_t i = 0; i < count; ++i) {
            views_[i] = {base + i * itemSize, paddedLength(base + i * itemSize, itemSize)};
        }
    } else if (kind == 'U') {
        const auto* base = static_cast<const std::uint32_t*>(array.data());
        const std::size_t chars = itemSize / 4;
        py::gil_scoped_release unlocked;
        offsets_.reserve(count + 1);
        bytes_.reserve(count * chars);
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint32_t* item = base + i * chars;
            appendUtf8(item, paddedLength(item, chars), bytes_);
            endText();
        }
        viewCopies();
    } else {
        throw py::type_error("kivo.informat reads text, not " + std::string(py::str(array.dtype())) +
                             " values; kivo.format takes values");
    }
}

void TextColumn::addObject(PyObject* item, std::size_t position, py::tuple missing) {
    if (PyUnicode_Check(item)) {
        addUnicode(item);
    } else if (PyBytes_Check(item)) {
        bytes_.append(PyBytes_AS_STRING(item), static_cast<std::size_t>(PyBytes_GET_SIZE(item)));
    } else if (!isLeftOut(item, missing)) {
        throw py::type_error("kivo.informat reads text; item " + std::to_string(position) + " is " +
                             Py_TYPE(item)->tp_name);
    }
    endText();
}

void TextColumn::addUnicode(PyObject* text) {
#if PY_VERSION_HEX < 0x030C0000
    if (PyUnicode_READY(text) < 0) {
        throw py::error_already_set();
    }
#endif
    const auto length = static_cast<std::size_t>(PyUnicode_GET_LENGTH(text));
    const void* data = PyUnicode_DATA(text);
    switch (PyUnicode_KIND(text)) {
        case PyUnicode_1BYTE_KIND:
            if (PyUnicode_IS_ASCII(text)) {
                bytes_.append(static_cast<const char*>(data), length);
            } else {
                appendUtf8(static_cast<const Py_UCS1*>(data), length, bytes_);
            }
            break;
        case PyUnicode_2BYTE_KIND:
            appendUtf8(static_cast<const Py_UCS2*>(data), length, bytes_);
            break;
        default:
            appendUtf8(static_cast<const Py_UCS4*>(data), length, bytes_);
            break;
    }
}

void TextColumn::viewCopies() {
    const std::size_t count = offsets_.size() - 1;
    views_.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        views_[i] = std::string_view(bytes_).substr(offsets_[i], offsets_[i + 1] - offsets_[i]);
    }
}

}  // namespace kivopy
