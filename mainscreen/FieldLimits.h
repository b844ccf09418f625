// How many characters a user can type into the schedule fields of a row, fixed when the screen
// is built. The configuration screen's relay names take no more than a row's name field, so
// that a name chosen there reaches the rows whole.
#pragma once

namespace vantrellion {

inline constexpr int DisplayNameMaxLength = 9;

// 0 stands for no limit: row 0's name field has none, by a deliberate exception.
inline int DisplayNameLimit(int row) {
    return row == 0 ? 0 : DisplayNameMaxLength;
}
inline int DaysOfWeekLimit(int row) {
    return row == 0 ? 9 : 8;
}
inline constexpr int DayHrEvenOddMaxLength = 2;

}  // namespace vantrellion
