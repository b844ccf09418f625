// The numeric codes of DayHrEvenOdd ("## Cyclic Minutes"): the test for a number and its
// value in whole minutes.
#include <string>

#include "core/FatalError.h"
#include "engine/CheckTimePairs.h"

namespace vantrellion {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The parts of a decimal number: blanks around it, an optional sign, digits with at most one
// decimal point, at least one digit in all.
struct DecimalText {
    bool negative = false;
    std::string whole;     // digits before the point
    std::string fraction;  // digits after the point
};

bool SplitDecimal(const std::string& code, DecimalText& out) {
    size_t b = 0, e = code.size();
    while (b < e && IsBlank(code[b]))
        ++b;
    while (e > b && IsBlank(code[e - 1]))
        --e;
    if (b < e && (code[b] == '+' || code[b] == '-')) {
        out.negative = code[b] == '-';
        ++b;
    }
    bool point = false;
    for (size_t n = b; n < e; ++n) {
        char c = code[n];
        if (c == '.' && !point) {
            point = true;
        } else if (IsDigit(c)) {
            (point ? out.fraction : out.whole) += c;
        } else {
            return false;
        }
    }
    return !out.whole.empty() || !out.fraction.empty();
}

}  // namespace

// A code is numeric when it reads as a plain decimal number: blanks (space or tab) around it
// are allowed, then an optional "+" or "-", digits, and at most one decimal point, with at
// least one digit. So "5", "10", " 5", "5 ", "-3", "+3", "1.5", ".5" and "5." are numeric;
// "", " ", "  ", "-", ".", "1e", "$5", "&H" and every letter code are not. A blank typed in
// the field arrives as "0", and "00" is numeric as well. The field holds two characters at
// most, so in practice the values run from -9 to 99.
bool IsNumericCode(const std::string& code) {
    DecimalText d;
    return SplitDecimal(code, d);
}

// The code as a whole number of minutes: rounded to the nearest whole, a tie going to the
// even number ("1.5" gives 2, "2.5" gives 2, ".5" gives 0, "-1.5" gives -2). The rounding is
// done on the decimal digits, so no tie is lost to binary fractions. A value beyond 16 bits
// ends the program with an overflow; a text that is not numeric with a type mismatch.
int16_t NumericCodeValue(const std::string& code) {
    DecimalText d;
    if (!SplitDecimal(code, d)) throw FatalError(ErrTypeMismatch, "Type mismatch");

    int64_t whole = 0;
    for (char c : d.whole) {
        whole = whole * 10 + (c - '0');
        if (whole > INT16_MAX + 1) ThrowOverflow();
    }
    if (!d.fraction.empty()) {
        char first = d.fraction[0];
        bool restNonZero = d.fraction.find_first_not_of('0', 1) != std::string::npos;
        bool roundUp = first > '5' || (first == '5' && (restNonZero || whole % 2 == 1));
        if (roundUp) ++whole;
    }
    return CheckedInt16(d.negative ? -whole : whole);
}

}  // namespace vantrellion
