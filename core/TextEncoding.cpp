#include "core/TextEncoding.h"

namespace vantrellion {

namespace {

// The length of the well-formed UTF-8 sequence at pos, 0 when there is none. truncatedOk lets
// a sequence that the end of the bytes cuts short count, as far as it goes.
size_t SequenceLength(std::string_view b, size_t pos, bool truncatedOk) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(b[i]); };
    const unsigned char c = byte(pos);
    if (c < 0x80) return 1;
    size_t n;
    unsigned char lo = 0x80, hi = 0xBF;  // the range of the second byte
    if (c >= 0xC2 && c <= 0xDF) {
        n = 2;
    } else if (c >= 0xE0 && c <= 0xEF) {
        n = 3;
        if (c == 0xE0) lo = 0xA0;  // no overlong forms
        if (c == 0xED) hi = 0x9F;  // no surrogates
    } else if (c >= 0xF0 && c <= 0xF4) {
        n = 4;
        if (c == 0xF0) lo = 0x90;
        if (c == 0xF4) hi = 0x8F;  // nothing above U+10FFFF
    } else {
        return 0;
    }
    for (size_t k = 1; k < n; ++k) {
        if (pos + k >= b.size()) return truncatedOk ? b.size() - pos : 0;
        const unsigned char d = byte(pos + k);
        if (d < (k == 1 ? lo : 0x80) || d > (k == 1 ? hi : 0xBF)) return 0;
    }
    return n;
}

// Walks the bytes as UTF-8; false at the first malformed sequence.
bool ScanUtf8(std::string_view b, bool truncatedOk, bool& multiByte) {
    multiByte = false;
    for (size_t pos = 0; pos < b.size();) {
        const size_t n = SequenceLength(b, pos, truncatedOk);
        if (n == 0) return false;
        if (n > 1) multiByte = true;
        pos += n;
    }
    return true;
}

}  // namespace

bool IsValidUtf8(std::string_view bytes) {
    bool multiByte;
    return ScanUtf8(bytes, false, multiByte);
}

bool IsAscii(std::string_view bytes) {
    for (char c : bytes)
        if (static_cast<unsigned char>(c) >= 0x80) return false;
    return true;
}

TextFileEncoding DetectTextFileEncoding(std::string_view bytes) {
    bool multiByte;
    return ScanUtf8(bytes, true, multiByte) && multiByte ? TextFileEncoding::Utf8
                                                         : TextFileEncoding::Latin1;
}

std::string Latin1ToUtf8(std::string_view latin1) {
    std::string out;
    out.reserve(latin1.size());
    for (char ch : latin1) {
        const auto c = static_cast<unsigned char>(ch);
        if (c < 0x80) {
            out += ch;
        } else {
            out += static_cast<char>(0xC0 | (c >> 6));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

std::string DecodeTextFile(std::string_view bytes) {
    if (DetectTextFileEncoding(bytes) == TextFileEncoding::Utf8) return std::string(bytes);
    return Latin1ToUtf8(bytes);
}

bool FitsLatin1(std::string_view utf8) {
    if (!IsValidUtf8(utf8)) return false;
    // Every character up to U+00FF has a lead byte below 0xC4.
    for (char c : utf8)
        if (static_cast<unsigned char>(c) >= 0xC4) return false;
    return true;
}

std::string EncodeTextFileBytes(std::string_view utf8, TextFileEncoding& used) {
    if (IsAscii(utf8) || !FitsLatin1(utf8)) {
        used = IsAscii(utf8) ? TextFileEncoding::Latin1 : TextFileEncoding::Utf8;
        return std::string(utf8);
    }
    used = TextFileEncoding::Latin1;
    std::string out;
    out.reserve(utf8.size());
    for (size_t i = 0; i < utf8.size(); ++i) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        if (c < 0x80) {
            out += utf8[i];
        } else {
            const auto next = static_cast<unsigned char>(utf8[++i]);
            out += static_cast<char>(((c & 0x03) << 6) | (next & 0x3F));
        }
    }
    return out;
}

std::string EncodeTextFileBytes(std::string_view utf8) {
    TextFileEncoding used;
    return EncodeTextFileBytes(utf8, used);
}

std::string DecodeLogText(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const size_t end = bytes.find('\n');
        const std::string_view line =
            bytes.substr(0, end == std::string_view::npos ? end : end + 1);
        text += IsValidUtf8(line) ? std::string(line) : Latin1ToUtf8(line);
        bytes.remove_prefix(line.size());
    }
    return text;
}

std::string Utf8Prefix(std::string_view utf8, size_t count) {
    size_t pos = 0;
    for (size_t chars = 0; chars < count && pos < utf8.size(); ++chars) {
        const size_t n = SequenceLength(utf8, pos, true);
        pos += n == 0 ? 1 : n;  // a stray byte counts as one character
    }
    return std::string(utf8.substr(0, pos));
}

}  // namespace vantrellion
