#pragma once

// The texts of one kivo.informat call, taken out of Python objects in native code. The interpreter's
// lock is held only while the texts are copied out of a list or an object array; a numpy str array is
// encoded, and a bytes array read in place, without it.
#include <pybind11/pybind11.h>

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "kivoconvert/Fanout.h"

namespace kivopy {

class TextColumn {
public:
    // texts: a list or tuple, or a one-dimensional C-contiguous numpy array of str ('U'), bytes ('S')
    // or objects. A str is read as UTF-8 and bytes as they are; numpy's trailing NULs are no part of
    // an array's text. None, a float NaN and the objects of `missing` (pandas' NA and NaT) are the
    // empty text, a value left out; any other item is a TypeError naming its position and type.
    // The texts are copied by the fan-out's runs: the objects are read, never changed, and the
    // caller's hold on the lock keeps every other thread of the interpreter from changing them.
    TextColumn(pybind11::handle texts, pybind11::tuple missing, const kivoconvert::Fanout& fanout);

    std::span<const std::string_view> texts() const noexcept { return views_; }

private:
    // copy(i, out) appends the bytes of text i to out.
    template <class Copy>
    void copyTexts(std::size_t count, const kivoconvert::Fanout& fanout, const Copy& copy);

    std::vector<std::vector<char>> copies_;  // each run's texts end to end
    std::vector<std::string_view> views_;
};

}  // namespace kivopy
