#include "TextIntake.h"

#include <pybind11/numpy.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <mutex>
#include <string>

namespace py = pybind11;

namespace kivopy {

namespace {

// Code points to UTF-8. A lone surrogate, which a Python str may hold, is written as its three bytes
// like any other code point below 0x10000: no informat reads it, and a message shows its bytes.
template <class CodeUnit>
void appendUtf8(const CodeUnit* text, std::size_t length, std::vector<char>& out) {
    for (std::size_t i = 0; i < length; ++i) {
        const auto c = static_cast<std::uint32_t>(text[i]);
        if (c < 0x80) {
            out.push_back(static_cast<char>(c));
        } else if (c < 0x800) {
            out.insert(out.end(), {static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))});
        } else if (c < 0x10000) {
            out.insert(out.end(), {static_cast<char>(0xE0 | (c >> 12)), static_cast<char>(0x80 | ((c >> 6) & 0x3F)),
                                   static_cast<char>(0x80 | (c & 0x3F))});
        } else {
            out.insert(out.end(), {static_cast<char>(0xF0 | (c >> 18)), static_cast<char>(0x80 | ((c >> 12) & 0x3F)),
                                   static_cast<char>(0x80 | ((c >> 6) & 0x3F)), static_cast<char>(0x80 | (c & 0x3F))});
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

// Reads the object's memory only, so that a run on a thread of its own may call it.
void appendUnicode(PyObject* text, std::vector<char>& out) {
#if PY_VERSION_HEX < 0x030C0000
    if (!PyUnicode_IS_READY(text)) {  // made by an old C interface; readying it would allocate
        throw py::type_error("kivo.informat reads no str of the old, unready form");
    }
#endif
    const auto length = static_cast<std::size_t>(PyUnicode_GET_LENGTH(text));
    const void* data = PyUnicode_DATA(text);
    switch (PyUnicode_KIND(text)) {
        case PyUnicode_1BYTE_KIND:
            if (PyUnicode_IS_ASCII(text)) {
                const auto* ascii = static_cast<const char*>(data);
                out.insert(out.end(), ascii, ascii + length);
            } else {
                appendUtf8(static_cast<const Py_UCS1*>(data), length, out);
            }
            break;
        case PyUnicode_2BYTE_KIND:
            appendUtf8(static_cast<const Py_UCS2*>(data), length, out);
            break;
        default:
            appendUtf8(static_cast<const Py_UCS4*>(data), length, out);
            break;
    }
}

bool isLeftOut(PyObject* item, std::span<PyObject* const> missing) {
    return item == Py_None || (PyFloat_Check(item) && std::isnan(PyFloat_AS_DOUBLE(item))) ||
           std::find(missing.begin(), missing.end(), item) != missing.end();
}

void appendObject(PyObject* item, std::size_t position, std::span<PyObject* const> missing, std::vector<char>& out) {
    if (PyUnicode_Check(item)) {
        appendUnicode(item, out);
    } else if (PyBytes_Check(item)) {
        const char* bytes = PyBytes_AS_STRING(item);
        out.insert(out.end(), bytes, bytes + PyBytes_GET_SIZE(item));
    } else if (!isLeftOut(item, missing)) {
        throw py::type_error("kivo.informat reads text; item " + std::to_string(position) + " is " +
                             Py_TYPE(item)->tp_name);
    }
}

}  // namespace

template <class Copy>
void TextColumn::copyTexts(std::size_t count, const kivoconvert::Fanout& fanout, const Copy& copy) {
    views_.resize(count);
    std::mutex copiesLock;
    fanout.run(count, [&](std::size_t begin, std::size_t end) {
        std::vector<char> bytes;
        bytes.reserve((end - begin) * 16);
        for (std::size_t i = begin; i < end; ++i) {
            const std::size_t before = bytes.size();
            copy(i, bytes);
            views_[i] = {nullptr, bytes.size() - before};
        }
        // The run's bytes stay where they are from here on: the vector that holds them is moved, never copied.
        const char* at = bytes.data();
        for (std::size_t i = begin; i < end; ++i) {
            views_[i] = {at, views_[i].size()};
            at += views_[i].size();
        }
        const std::lock_guard<std::mutex> lock(copiesLock);
        copies_.push_back(std::move(bytes));
    });
}

TextColumn::TextColumn(py::handle texts, py::tuple missing, const kivoconvert::Fanout& fanout) {
    std::vector<PyObject*> missingObjects;
    for (const py::handle object : missing) {
        missingObjects.push_back(object.ptr());
    }
    const std::span<PyObject* const> missingSpan(missingObjects);
    if (PyList_Check(texts.ptr()) || PyTuple_Check(texts.ptr())) {
        PyObject** objects = PySequence_Fast_ITEMS(texts.ptr());
        const auto count = static_cast<std::size_t>(PySequence_Fast_GET_SIZE(texts.ptr()));
        copyTexts(count, fanout,
                  [&](std::size_t i, std::vector<char>& out) { appendObject(objects[i], i, missingSpan, out); });
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
        auto* const* objects = static_cast<PyObject* const*>(array.data());
        copyTexts(count, fanout,
                  [&](std::size_t i, std::vector<char>& out) { appendObject(objects[i], i, missingSpan, out); });
    } else if (kind == 'S') {
        // Read in place: the caller keeps the array alive while the views are used.
        views_.resize(count);
        const auto* base = static_cast<const char*>(array.data());
        for (std::size_t i = 0; i < count; ++i) {
            views_[i] = {base + i * itemSize, paddedLength(base + i * itemSize, itemSize)};
        }
    } else if (kind == 'U') {
        const auto* base = static_cast<const std::uint32_t*>(array.data());
        const std::size_t chars = itemSize / 4;
        py::gil_scoped_release unlocked;
        copyTexts(count, fanout, [&](std::size_t i, std::vector<char>& out) {
            const std::uint32_t* item = base + i * chars;
            appendUtf8(item, paddedLength(item, chars), out);
        });
    } else {
        throw py::type_error("kivo.informat reads text, not " + std::string(py::str(array.dtype())) +
                             " values; kivo.format takes values");
    }
}

}  // namespace kivopy
