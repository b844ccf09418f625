// Conversions from text to number for the stored configuration and the default tables. The
// parser is locale-independent and accepts what a stored value can hold: blanks around the
// number, a sign, a decimal fraction, an exponent, and hexadecimal ("&H1F", "&HFF00&") or octal
// ("&O17") literals. A conversion that fails reports the run-time error it stands for, so that
// a caller can show its description.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vantrellion {

// A run-time error of a conversion: its number and description ("Type mismatch", 13, or
// "Overflow", 6).
struct RunTimeError {
    int Number = 0;
    std::string Description;
};

RunTimeError TypeMismatchError();
RunTimeError OverflowError();

// The value of a numeric text, or nothing when the text is not a number. A hexadecimal or
// octal literal of up to four digits without a trailing "&" is a 16-bit number ("&HFFFF" is -1);
// with more digits, or with the trailing "&", a 32-bit one ("&HFFFF&" is 65535).
std::optional<double> ParseNumericText(const std::string& text);

// The result of a conversion: a value, or the error that stopped it.
template <typename T>
struct Converted {
    bool Ok = false;
    T Value{};
    RunTimeError Error;
};

// Text to a signed 16-bit or 32-bit number, rounded half to even.
Converted<int16_t> TextToInt16(const std::string& text);
Converted<int32_t> TextToInt32(const std::string& text);

// An address box's text as a signed 16-bit number, read as hexadecimal without prefix: up to
// four digits give the 16-bit pattern ("FFFF" is -1), blanks around are ignored. Nothing when
// the text is not hexadecimal or its value does not fit 16 bits.
std::optional<int16_t> ParseHexAddress(const std::string& text);

// Text to a number as it stands, for the numeric compares of the stored flags ("1", " 1" and
// "1.0" all equal 1).
Converted<double> TextToDouble(const std::string& text);

}  // namespace vantrellion
