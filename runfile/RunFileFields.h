// Delimited input of Run Files. The reader takes fields, not lines, and is looser than the
// writer:
// - a text field drops its leading blanks; if it then starts with a double quote its value is
//   what stands up to the next double quote (line ends included), two quotes in a row standing
//   for one quote of the text, and the rest up to the next comma or line end is dropped;
//   otherwise the value ends at the first comma or line end;
// - a number field skips blanks and ends at a blank, a comma or a line end; blanks after it
//   and one comma or line end are consumed as its delimiter;
// - a line ends with CR LF, LF or CR;
// - starting a field at the end of the file is an error.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "core/TextEncoding.h"

namespace vantrellion {

// A field that could not be read. what() is the description shown to the user.
class FieldReadError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The descriptions of the reader's own errors.
inline constexpr const char* ErrTextPastEnd = "Input past end of file";
inline constexpr const char* ErrTextTypeMismatch = "Type mismatch";
inline constexpr const char* ErrTextOverflow = "Overflow";
inline constexpr const char* ErrTextFieldTooLong = "Out of string space";
// A bound that a version line's suffix lacks.
inline constexpr const char* ErrTextSubscript = "Subscript out of range";

class FieldReader {
  public:
    // Reads from an open descriptor, which the caller keeps and closes. Texts come back in
    // UTF-8: bytes of a Latin-1 file are taken as the characters they stand for.
    explicit FieldReader(int fd, TextFileEncoding encoding = TextFileEncoding::Utf8);
    // Reads the given bytes.
    explicit FieldReader(std::string bytes, TextFileEncoding encoding = TextFileEncoding::Utf8);

    // True when no byte is left.
    bool AtEnd();
    // The next text field, bytes as they stand in the file.
    std::string ReadText();
    // The next number field as a 16-bit integer. An empty field reads as 0; a fraction is
    // rounded to the nearest whole, ties to even. Anything else that is not a decimal number
    // is a type mismatch, and a number outside 16 bits an overflow.
    int16_t ReadNumber();
    // The line (from 1) on which the field read last began, or the next one begins when none
    // has been read: where a read error lies.
    int FieldLine() const { return fieldLine_; }

    // A single field longer than this is refused rather than grown without bound.
    static constexpr size_t MaxFieldLength = 1 << 20;

  private:
    int Peek();  // the next byte (0 to 255), or -1 at the end
    // Steps over the byte that Peek returned, counting lines: CR LF, LF and CR each end one.
    void Skip();
    void SkipBlanks();
    // Consumes a comma, or a line end of CR LF, LF or CR, if one is next.
    void EndField();
    void BeginField();
    void Append(std::string& value, int c) const;

    int fd_ = -1;
    TextFileEncoding encoding_ = TextFileEncoding::Utf8;
    std::string buf_;
    size_t pos_ = 0;
    bool eof_ = false;
    int line_ = 1;
    int fieldLine_ = 1;
    bool afterCr_ = false;
};

// The conversion of a number field's token, exposed for tests.
int16_t NumberFieldValue(const std::string& token);

}  // namespace vantrellion
