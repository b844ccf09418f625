#include "runfile/RunFileFields.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace vantrellion {

namespace {

constexpr size_t ChunkSize = 64 * 1024;

bool IsLineEnd(int c) {
    return c == '\r' || c == '\n';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

FieldReader::FieldReader(int fd, TextFileEncoding encoding) : fd_(fd), encoding_(encoding) {}

FieldReader::FieldReader(std::string bytes, TextFileEncoding encoding)
    : encoding_(encoding), buf_(std::move(bytes)), eof_(true) {}

int FieldReader::Peek() {
    if (pos_ < buf_.size()) return static_cast<unsigned char>(buf_[pos_]);
    if (eof_) return -1;
    // Refill: the consumed bytes are dropped so that memory stays bounded by one chunk.
    buf_.resize(ChunkSize);
    pos_ = 0;
    for (;;) {
        const ssize_t n = ::read(fd_, buf_.data(), ChunkSize);
        if (n > 0) {
            buf_.resize(static_cast<size_t>(n));
            return static_cast<unsigned char>(buf_[0]);
        }
        if (n < 0 && errno == EINTR) continue;
        buf_.clear();
        eof_ = true;
        if (n < 0) throw FieldReadError(std::strerror(errno));
        return -1;
    }
}

void FieldReader::Skip() {
    const char c = buf_[pos_++];
    if (c == '\r' || (c == '\n' && !afterCr_)) ++line_;
    afterCr_ = c == '\r';
}

bool FieldReader::AtEnd() {
    return Peek() < 0;
}

void FieldReader::SkipBlanks() {
    while (Peek() == ' ')
        Skip();
}

void FieldReader::EndField() {
    const int c = Peek();
    if (c == ',' || c == '\n') {
        Skip();
    } else if (c == '\r') {
        Skip();
        if (Peek() == '\n') Skip();
    }
}

void FieldReader::BeginField() {
    fieldLine_ = line_;
    if (AtEnd()) throw FieldReadError(ErrTextPastEnd);
}

void FieldReader::Append(std::string& value, int c) const {
    if (value.size() >= MaxFieldLength) throw FieldReadError(ErrTextFieldTooLong);
    if (encoding_ == TextFileEncoding::Latin1 && c >= 0x80) {
        value.push_back(static_cast<char>(0xC0 | (c >> 6)));
        value.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        return;
    }
    value.push_back(static_cast<char>(c));
}

std::string FieldReader::ReadText() {
    BeginField();
    SkipBlanks();
    std::string value;
    int c = Peek();
    if (c == '"') {
        Skip();
        for (;;) {
            while ((c = Peek()) >= 0 && c != '"') {
                Append(value, c);
                Skip();
            }
            if (c != '"') break;
            Skip();
            // Two quotes in a row inside a quoted text stand for one quote of the text.
            if (Peek() != '"') break;
            Append(value, '"');
            Skip();
        }
        // Whatever follows the closing quote up to the delimiter is not part of the value.
        while ((c = Peek()) >= 0 && c != ',' && !IsLineEnd(c))
            Skip();
        EndField();
        return value;
    }
    while ((c = Peek()) >= 0 && c != ',' && !IsLineEnd(c)) {
        Append(value, c);
        Skip();
    }
    EndField();
    return value;
}

int16_t FieldReader::ReadNumber() {
    BeginField();
    SkipBlanks();
    std::string token;
    int c;
    while ((c = Peek()) >= 0 && c != ' ' && c != ',' && !IsLineEnd(c)) {
        Append(token, c);
        Skip();
    }
    SkipBlanks();
    EndField();
    return NumberFieldValue(token);
}

int16_t NumberFieldValue(const std::string& token) {
    if (token.empty()) return 0;
    size_t i = 0;
    bool negative = false;
    if (token[i] == '+' || token[i] == '-') negative = token[i++] == '-';
    // Whole part, kept from growing past anything that could still fit 16 bits.
    int32_t whole = 0;
    size_t digits = 0;
    for (; i < token.size() && IsDigit(token[i]); ++i, ++digits) {
        if (whole <= 100000) whole = whole * 10 + (token[i] - '0');
    }
    // Fraction: only its first digit and whether anything non-zero follows decide the rounding.
    int firstFraction = 0;
    bool restNonZero = false;
    if (i < token.size() && token[i] == '.') {
        ++i;
        for (size_t f = 0; i < token.size() && IsDigit(token[i]); ++i, ++f, ++digits) {
            if (f == 0) {
                firstFraction = token[i] - '0';
            } else if (token[i] != '0') {
                restNonZero = true;
            }
        }
    }
    if (digits == 0 || i != token.size()) throw FieldReadError(ErrTextTypeMismatch);
    if (firstFraction > 5 || (firstFraction == 5 && (restNonZero || whole % 2 != 0))) ++whole;
    const int32_t value = negative ? -whole : whole;
    if (value < INT16_MIN || value > INT16_MAX) throw FieldReadError(ErrTextOverflow);
    return static_cast<int16_t>(value);
}

}  // namespace vantrellion
