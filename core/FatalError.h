// Errors that end the program: overflow of checked arithmetic, an unreadable time text in the
// tick, a subscript out of range. The desktop layer catches them at every event boundary, shows
// the description and number once and ends the process without the clean-exit path.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace vantrellion {

class FatalError : public std::runtime_error {
  public:
    FatalError(int number, const std::string& description, std::string source = "Vantrellion")
        : std::runtime_error(description), number_(number), source_(std::move(source)) {}
    int Number() const { return number_; }
    const std::string& Source() const { return source_; }

  private:
    int number_;
    std::string source_;
};

// The classic run-time error numbers the system reports.
inline constexpr int ErrOverflow = 6;
inline constexpr int ErrSubscript = 9;
inline constexpr int ErrTypeMismatch = 13;
inline constexpr int ErrFileNotFound = 53;

[[noreturn]] inline void ThrowOverflow() {
    throw FatalError(ErrOverflow, "Overflow");
}

inline int16_t CheckedInt16(int64_t v) {
    if (v < INT16_MIN || v > INT16_MAX) ThrowOverflow();
    return static_cast<int16_t>(v);
}
inline int32_t CheckedInt32(int64_t v) {
    if (v < INT32_MIN || v > INT32_MAX) ThrowOverflow();
    return static_cast<int32_t>(v);
}
inline uint8_t CheckedByte(int64_t v) {
    if (v < 0 || v > 255) ThrowOverflow();
    return static_cast<uint8_t>(v);
}
inline int32_t CheckedAdd32(int32_t a, int32_t b) {
    return CheckedInt32(static_cast<int64_t>(a) + b);
}
inline int16_t CheckedAdd16(int16_t a, int16_t b) {
    return CheckedInt16(static_cast<int32_t>(a) + b);
}

}  // namespace vantrellion
