// Texts in memory are UTF-8, as are file names and paths, which go to the system as they
// stand. Text files (Run Files, logs) keep the classic Latin-1 bytes whenever every character
// fits, and are written in UTF-8 only when one does not; a reader tells the two apart by the
// bytes.
#pragma once

#include <string>
#include <string_view>

namespace vantrellion {

enum class TextFileEncoding { Latin1, Utf8 };

// True when the bytes are well-formed UTF-8 (an empty or plain ASCII text is).
bool IsValidUtf8(std::string_view bytes);
bool IsAscii(std::string_view bytes);

// How the bytes of a text file are to be read: UTF-8 when they are valid UTF-8 with at least
// one multi-byte sequence, else Latin-1. A multi-byte sequence cut by the end of the bytes
// counts as valid, so that the start of a longer file can be judged.
TextFileEncoding DetectTextFileEncoding(std::string_view bytes);

// Each byte as the Latin-1 character it stands for.
std::string Latin1ToUtf8(std::string_view latin1);
// The file's bytes as a text in memory, by the rule of DetectTextFileEncoding.
std::string DecodeTextFile(std::string_view bytes);

// A log's bytes as a text in memory, line by line: a line that is valid UTF-8 is taken as
// UTF-8, any other as Latin-1. A day's log may hold Latin-1 lines written before the first
// line that needed UTF-8, and any later line of an older program.
std::string DecodeLogText(std::string_view bytes);

// True when the text is valid UTF-8 and every character is in Latin-1 (U+0000 to U+00FF).
bool FitsLatin1(std::string_view utf8);
// The bytes that stand for the text in a text file: Latin-1 when every character fits,
// otherwise the UTF-8 as it stands.
std::string EncodeTextFileBytes(std::string_view utf8, TextFileEncoding& used);
std::string EncodeTextFileBytes(std::string_view utf8);

// The first count characters of a UTF-8 text, never cutting one in two.
std::string Utf8Prefix(std::string_view utf8, size_t count);

}  // namespace vantrellion
