// Build constants of this build: one board of eight relays with six time-pairs each.
#pragma once

#include <cstdint>
#include <string>

namespace vantrellion {

inline constexpr int16_t LastBoard = 0;     // highest board index driven by the engine
inline constexpr int16_t LastRelay = 7;     // highest relay index on a board
inline constexpr int16_t LastTimePair = 5;  // highest time-pair index of a relay
inline constexpr int16_t RelaysPerBoard = 8;
inline constexpr int16_t PairsPerRelay = 6;

// Storage keeps room for four boards even though the engine drives only LastBoard.
inline constexpr int BoardSlots = 4;
inline constexpr int RelaySlots = 9;  // records 0 to 8; record 8 is spare
inline constexpr int PairSlots = (LastBoard + 1) * RelaysPerBoard * PairsPerRelay;  // 48

// The product title used in message boxes that carry "the program's title".
inline constexpr const char* AppTitle = "Vantrellion";
// The version of the package, as the build names it.
inline constexpr const char* ProgramVersionText = VANTRELLION_VERSION;

// The version text, composed from its pieces at run time:
// "FV.2001.05.01|.b0.r7.t5" in this build.
std::string ComposeFileVersion();

inline int RecordIndex(int board, int relay) {
    return board * RelaysPerBoard + relay;
}
inline int PairIndex(int record, int pair) {
    return record * PairsPerRelay + pair;
}

}  // namespace vantrellion
