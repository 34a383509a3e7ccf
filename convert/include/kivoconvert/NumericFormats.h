#pragma once

// The numeric formats of the engine, built on the library's real layouts. Each follows the entry
// steps of the date formats: a missing value (or NaN, infinity) through writeMissing first, then the
// layout, and a field of "*" when the layout says the number does not fit.
namespace kivoconvert::numeric {

// BESTw.: as many significant digits as fit, exponent notation when needed.
int bestFormat(char* field, int width, int decimals, double value);
// Dw.p: about p significant decimals, aligned so that a column of values lines up.
int dFormat(char* field, int width, int decimals, double value);
// Ew.: scientific notation with a signed exponent.
int eFormat(char* field, int width, int decimals, double value);
// w.d: a fixed number of decimals.
int blankFormat(char* field, int width, int decimals, double value);
// PERCENTw.d: the value times 100 followed by "%", a negative value in parentheses; a non-negative
// value keeps a blank in the parenthesis' place so that the "%" signs of a column line up.
int percentFormat(char* field, int width, int decimals, double value);

}  // namespace kivoconvert::numeric
