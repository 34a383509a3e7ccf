#include "kivoconvert/Conversion.h"

#include <climits>
#include <cstring>

#include "kivoconvert/Values.h"
#include "kivox/Missing.h"

namespace kivoconvert {

namespace {

// Room for a value printed as the shortest decimal that reads back to it (at most 24 characters).
constexpr std::size_t PRINTED_VALUE_ROOM = 32;
constexpr std::string_view INVALID = "invalid";

// A text whose length an informat's int cannot hold.
constexpr std::size_t LONGEST_TEXT = INT_MAX;

}  // namespace

Conversion Conversion::formatting(const ResolvedSpec<FormatEntry>& format, HexSides hex) {
    Conversion conversion;
    conversion.format_ = format;
    conversion.hex_ = hex;
    return conversion;
}

Conversion Conversion::reading(const ResolvedSpec<InformatEntry>& informat, HexSides hex) {
    Conversion conversion;
    conversion.informat_ = informat;
    conversion.hex_ = hex;
    return conversion;
}

bool Conversion::converting(const ResolvedSpec<InformatEntry>& informat, const ResolvedSpec<FormatEntry>& format,
                            HexSides hex, Conversion& conversion, std::string& error) {
    const KindStep step = kindStep(informat.entry->kind, format.entry->kind);
    if (step == KindStep::REFUSED) {
        error = joined({informat.entry->name, " reads ", kindName(informat.entry->kind), ", which ", format.entry->name,
                        " cannot show (it shows ", kindName(format.entry->kind), ")"});
        return false;
    }
    conversion = formatting(format, hex);
    conversion.informat_ = informat;
    conversion.step_ = step;
    return true;
}

std::size_t Conversion::outputSize() const noexcept {
    if (format_.entry == nullptr) {
        return PRINTED_VALUE_ROOM;
    }
    const auto width = static_cast<std::size_t>(format_.width);
    return hex_.output ? 2 * width : width;
}

inline Note Conversion::readText(std::string_view text, double& value, std::string& decoded) const {
    if (isBlankText(text)) {
        return Note::LEFT_OUT;
    }
    if (informat_.entry == nullptr) {
        return parseValue(text, value) ? Note::NONE : Note::NOT_A_VALUE;
    }
    if (hex_.input) {
        if (!decodeHex(text, decoded)) {
            return Note::NOT_HEX;
        }
        text = decoded;
    }
    return readField(text, value);
}

// The output of one text, at `output`; returns its length.
inline std::size_t Conversion::writeOutput(double value, Note note, char* output) const {
    if (note == Note::LEFT_OUT) {
        return 0;
    }
    if (format_.entry == nullptr) {
        if (!keepsValue(note)) {
            std::memcpy(output, INVALID.data(), INVALID.size());
            return INVALID.size();
        }
        return printValue(value, output);
    }
    const auto width = static_cast<std::size_t>(format_.width);
    char field[MAX_FIELD];
    char* const written = hex_.output ? field : output;
    if (keepsValue(note)) {
        format_.entry->function(written, format_.width, format_.decimals, value);
    } else {
        std::memset(written, ' ', width);
    }
    if (hex_.output) {
        encodeHex(field, width, output);
        return 2 * width;
    }
    return width;
}

inline Note Conversion::convertInline(std::string_view text, char* output, std::size_t& length,
                                      std::string& decoded) const {
    double value = kivo::lum_numeric::MISSING;
    const Note note = readText(text, value, decoded);
    length = writeOutput(handedOver(value), note, output);
    return note;
}

Note Conversion::convertText(std::string_view text, char* output, std::size_t& length, std::string& decoded) const {
    return convertInline(text, output, length, decoded);
}

void Conversion::convert(std::span<const std::string_view> texts, ConvertedBlock& out, const Fanout& fanout) const {
    out.resize(texts.size(), outputSize());
    fanout.run(texts.size(), [&](std::size_t begin, std::size_t end) {
        std::string decoded;
        for (std::size_t i = begin; i < end; ++i) {
            std::size_t length = 0;
            out.notes_[i] = convertInline(texts[i], out.slots_.data() + i * out.slotSize_, length, decoded);
            out.lengths_[i] = static_cast<unsigned char>(length);
        }
    });
}

void Conversion::read(std::span<const std::string_view> texts, std::span<double> values, std::span<Note> notes,
                      const Fanout& fanout) const {
    fanout.run(texts.size(), [&](std::size_t begin, std::size_t end) {
        std::string decoded;
        for (std::size_t i = begin; i < end; ++i) {
            double value = kivo::lum_numeric::MISSING;
            notes[i] = readText(texts[i], value, decoded);
            values[i] = handedOver(value);
        }
    });
}

void Conversion::write(std::span<const double> values, char* fields, const Fanout& fanout) const {
    const std::size_t size = outputSize();
    fanout.run(values.size(), [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            writeOutput(values[i], Note::NONE, fields + i * size);
        }
    });
}

std::string Conversion::describe(Note note, std::string_view text) const {
    switch (note) {
        case Note::NOT_HEX:
            return "not hex pairs";
        case Note::NOT_A_VALUE:
            return "not a number or missing value";
        case Note::REJECTED:
        case Note::FOUND_NOTHING:
            return joined({"not read by ", informat_.entry->name});
        case Note::PAST_WIDTH: {
            std::string decoded;
            const std::size_t length = hex_.input && decodeHex(text, decoded) ? decoded.size() : text.size();
            const std::size_t past = length - static_cast<std::size_t>(informat_.width);
            return joined({std::to_string(past), past == 1 ? " byte" : " bytes", " past the width ",
                           std::to_string(informat_.width), ": give a wider width or none"});
        }
        case Note::TOO_LONG:
            return tooLongText(LONGEST_TEXT);
        case Note::DAY_ZERO:
            return "read as day 0 (01JAN1960)";
        case Note::TIME_ZERO:
            return "read as time 0 (00:00:00): a date has no time of day";
        case Note::NONE:
        case Note::LEFT_OUT:
            break;
    }
    return "";
}

Note Conversion::readField(std::string_view text, double& value) const {
    if (text.size() > LONGEST_TEXT) {
        return Note::TOO_LONG;
    }
    const auto width = static_cast<std::size_t>(informat_.width);
    const std::size_t fieldSize = informat_.widthGiven && text.size() > width ? width : text.size();
    if (fieldSize < text.size() && !isBlankText(text.substr(fieldSize))) {
        return Note::PAST_WIDTH;
    }
    double result = kivo::lum_numeric::MISSING;
    const InformatEntry& entry = *informat_.entry;
    if (entry.function(text.data(), static_cast<int>(fieldSize), static_cast<int>(text.size()), informat_.decimals,
                       &result) == 0) {
        return Note::REJECTED;
    }
    value = result;
    return entry.reading == Reading::ANY_LAYOUT ? freeFormNote(text.substr(0, fieldSize), result) : Note::NONE;
}

Note Conversion::freeFormNote(std::string_view field, double result) const {
    if (isMissingValue(result)) {
        return isMissingNotation(field) ? Note::NONE : Note::FOUND_NOTHING;
    }
    if (result != 0) {
        return Note::NONE;
    }
    // A 0 from ANYDTDTE or ANYDTTME is a real day or time only when the kind found was the informat's own.
    const ValueKind kind = informat_.entry->kind;
    kivo::AnydtType type = kivo::ANYDT_DATETIME;
    if ((kind != ValueKind::DAY && kind != ValueKind::TIME) || !freeFormType(field, type)) {
        return Note::NONE;
    }
    if (kind == ValueKind::DAY) {
        return type == kivo::ANYDT_TIME || type == kivo::ANYDT_MISSING ? Note::DAY_ZERO : Note::NONE;
    }
    return type == kivo::ANYDT_DATE ? Note::TIME_ZERO : Note::NONE;
}

void ConvertedBlock::resize(std::size_t count, std::size_t slotSize) {
    slotSize_ = slotSize;
    slots_.resize(count * slotSize + SLOT_SLACK);
    lengths_.resize(count);
    notes_.resize(count);
}

}  // namespace kivoconvert
