#pragma once

// The texts of one kivo.informat call, taken out of Python objects in native code. The interpreter's
// lock is held only while the texts are copied out of a list or an object array; a numpy str array is
// encoded, and a bytes array read in place, without it.
#include <pybind11/pybind11.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kivopy {

class TextColumn {
public:
    // texts: a list or tuple, or a one-dimensional C-contiguous numpy array of str ('U'), bytes ('S')
    // or objects. A str is read as UTF-8 and bytes as they are; numpy's trailing NULs are no part of
    // an array's text. None, a float NaN and the objects of `missing` (pandas' NA and NaT) are the
    // empty text, a value left out; any other item is a TypeError naming its position and type.
    TextColumn(pybind11::handle texts, pybind11::tuple missing);

    std::span<const std::string_view> texts() const noexcept { return views_; }

private:
    void addObject(PyObject* item, std::size_t position, pybind11::tuple missing);
    void addUnicode(PyObject* text);
    void endText() { offsets_.push_back(bytes_.size()); }
    void viewCopies();

    std::string bytes_;                   // the copied texts end to end
    std::vector<std::size_t> offsets_{0};  // text i is [offsets_[i], offsets_[i + 1]) of bytes_
    std::vector<std::string_view> views_;
};

}  // namespace kivopy
