// clsRunOnBootOnceAlways: enters the program into the platform's start-up lists, and takes it
// out again. Every entry is the value VantrellionRunMe, a text: the path given by the caller,
// one blank, and the marker token. Nothing in the program reads the token back.
//
// The lists are keys of the access layer (modRegAPI), which keeps them in the autostart
// folders; a refused write is told by the layer ("Could not open key", "Could not set value")
// and the operation goes on. Every operation answers 0.
#pragma once

#include <cstdint>
#include <string>

#include "core/SharedState.h"

namespace vantrellion {

inline constexpr const char* RunMeValueName = "VantrellionRunMe";
inline constexpr const char* RunMeToken = "k704mq29vbn516 0x00d3e1f4";

// The start-up lists, named with a separator on each end, as writes name their keys.
inline constexpr const char* RunKey = "\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run\\";
inline constexpr const char* RunOnceKey =
    "\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce\\";
inline constexpr const char* RunServicesKey =
    "\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunServices\\";
inline constexpr const char* RunOnceServicesKey =
    "\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnceServices\\";
inline constexpr const char* RunServicesOnceKey =
    "\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunServicesOnce\\";

// The entry under Run at the machine-wide root.
int16_t SetRunMeAlways(System& s, const std::string& path);
// The entry under RunOnce at the machine-wide root.
int16_t SetRunMeOnce(System& s, const std::string& path);
// Removes the entry from Run, RunOnce, RunServices and RunOnceServices, at the machine-wide root
// and then at the current-user root: eight checks. A missing key or value is passed over
// without a word. RunServicesOnce is not among them.
int16_t SetRunMeNever(System& s);
// The entry under Run at the machine-wide root, the same key as SetRunMeAlways.
int16_t SetRunMeAlwaysServices(System& s, const std::string& path);
// The entry under RunServicesOnce at the machine-wide root.
int16_t SetRunMeOnceServices(System& s, const std::string& path);

}  // namespace vantrellion
