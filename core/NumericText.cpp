#include "core/NumericText.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstring>

#include "core/FatalError.h"

namespace vantrellion {

RunTimeError TypeMismatchError() {
    return {ErrTypeMismatch, "Type mismatch"};
}
RunTimeError OverflowError() {
    return {ErrOverflow, "Overflow"};
}

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// "&H..." or "&O..." with an optional trailing "&"; body is the text without its blanks.
std::optional<double> ParseRadixLiteral(const std::string& body) {
    const char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(body[1])));
    const int radix = kind == 'H' ? 16 : kind == 'O' ? 8 : 0;
    if (radix == 0) return std::nullopt;
    std::string digits = body.substr(2);
    bool long32 = false;
    if (!digits.empty() && digits.back() == '&') {
        long32 = true;
        digits.pop_back();
    }
    if (digits.empty()) return std::nullopt;
    uint64_t v = 0;
    for (char c : digits) {
        int d;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (c >= 'a' && c <= 'f')
            d = c - 'a' + 10;
        else if (c >= 'A' && c <= 'F')
            d = c - 'A' + 10;
        else
            return std::nullopt;
        if (d >= radix) return std::nullopt;
        v = v * radix + d;
        if (v > 0xFFFFFFFFull) return std::nullopt;  // wider than any literal of 32 bits
    }
    // Up to four hexadecimal (six octal) digits without "&" make a 16-bit literal.
    if (!long32 && v <= 0xFFFF && digits.size() <= (radix == 16 ? 4u : 6u))
        return static_cast<double>(static_cast<int16_t>(static_cast<uint16_t>(v)));
    return static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(v)));
}

// Sign, digits with at most one decimal point, and an optional exponent ("E" or "D").
std::optional<double> ParseDecimal(const std::string& body) {
    size_t i = 0;
    if (i < body.size() && (body[i] == '+' || body[i] == '-')) ++i;
    size_t digits = 0;
    while (i < body.size() && std::isdigit(static_cast<unsigned char>(body[i])))
        ++i, ++digits;
    if (i < body.size() && body[i] == '.') {
        ++i;
        while (i < body.size() && std::isdigit(static_cast<unsigned char>(body[i])))
            ++i, ++digits;
    }
    if (digits == 0) return std::nullopt;
    std::string text = body.substr(0, i);
    if (i < body.size() && std::strchr("eEdD", body[i])) {
        size_t j = i + 1;
        if (j < body.size() && (body[j] == '+' || body[j] == '-')) ++j;
        size_t expDigits = 0;
        while (j < body.size() && std::isdigit(static_cast<unsigned char>(body[j])))
            ++j, ++expDigits;
        if (expDigits == 0) return std::nullopt;
        text += 'e';
        text += body.substr(i + 1, j - i - 1);
        i = j;
    }
    if (i != body.size()) return std::nullopt;
    // from_chars reads "." as the decimal point whatever the locale; it refuses a leading "+".
    const char* first = text.c_str();
    if (*first == '+') ++first;
    double v = 0;
    const auto [end, ec] = std::from_chars(first, text.c_str() + text.size(), v);
    if (ec != std::errc() || end != text.c_str() + text.size() || !std::isfinite(v))
        return std::nullopt;
    return v;
}

// Rounds half to even (2.5 to 2, 3.5 to 4), the rounding of every conversion to an integer.
double RoundHalfEven(double v) {
    const double r = std::round(v);
    if (std::fabs(v - std::trunc(v)) == 0.5) return 2.0 * std::round(v / 2.0);
    return r;
}

template <typename T>
Converted<T> ToInteger(const std::string& text, double lo, double hi) {
    Converted<T> out;
    const auto v = ParseNumericText(text);
    if (!v) {
        out.Error = TypeMismatchError();
        return out;
    }
    const double r = RoundHalfEven(*v);
    if (r < lo || r > hi) {
        out.Error = OverflowError();
        return out;
    }
    out.Ok = true;
    out.Value = static_cast<T>(r);
    return out;
}

}  // namespace

std::optional<double> ParseNumericText(const std::string& text) {
    size_t b = 0, e = text.size();
    while (b < e && IsBlank(text[b]))
        ++b;
    while (e > b && IsBlank(text[e - 1]))
        --e;
    const std::string body = text.substr(b, e - b);
    if (body.empty()) return std::nullopt;
    if (body[0] == '&') return body.size() >= 2 ? ParseRadixLiteral(body) : std::nullopt;
    return ParseDecimal(body);
}

Converted<int16_t> TextToInt16(const std::string& text) {
    return ToInteger<int16_t>(text, INT16_MIN, INT16_MAX);
}

Converted<int32_t> TextToInt32(const std::string& text) {
    return ToInteger<int32_t>(text, INT32_MIN, INT32_MAX);
}

Converted<double> TextToDouble(const std::string& text) {
    Converted<double> out;
    const auto v = ParseNumericText(text);
    if (!v) {
        out.Error = TypeMismatchError();
        return out;
    }
    out.Ok = true;
    out.Value = *v;
    return out;
}

std::optional<int16_t> ParseHexAddress(const std::string& text) {
    size_t b = 0, e = text.size();
    while (b < e && text[b] == ' ')
        ++b;
    while (e > b && text[e - 1] == ' ')
        --e;
    if (b == e) return std::nullopt;
    for (size_t i = b; i < e; ++i)
        if (!std::isxdigit(static_cast<unsigned char>(text[i]))) return std::nullopt;
    // The system's own conversion of "&H" + digits: four digits or fewer are a 16-bit pattern,
    // more digits a 32-bit number that must still fit 16 bits.
    const auto v = TextToInt16("&H" + text.substr(b, e - b));
    if (!v.Ok) return std::nullopt;
    return v.Value;
}

}  // namespace vantrellion
