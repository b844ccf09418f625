// clsConfiguration: the named loads and saves of the configuration key. It is the only code
// that knows the value names of SOFTWARE\Vantrellion\Config; it keeps no data of its own and
// moves values between the store (through modRegAPI) and the shared state. Every value on file
// is text, numbers and flags included.
//
// The operations stand in the class's order.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/NumericText.h"
#include "core/SharedState.h"

namespace vantrellion {

// Reads name the key without separators around it, writes with them; both reach one key.
inline constexpr const char* ConfigKeyRead = "SOFTWARE\\Vantrellion\\Config";
inline constexpr const char* ConfigKeyWrite = "\\SOFTWARE\\Vantrellion\\Config\\";
inline constexpr const char* StartupKeyRead = "SOFTWARE\\Vantrellion\\Startup";
inline constexpr const char* StartupKeyWrite = "\\SOFTWARE\\Vantrellion\\Startup\\";

// Defaults that a full save fills in for empty texts.
inline constexpr const char* DefaultLogFileName = "VantrellionLog.Log";
inline constexpr const char* DefaultDataFileName = "New.run";
// The default log directory: the machine directory, with its trailing "/".
std::string DefaultLogFilePath(System& s);

// InstallPath, InstallName and ConfigVersion, or a sentinel, with no box.
std::string ConfigurationLoadInstallPath(System& s);
std::string ConfigurationLoadInstallName(System& s);
// Changes no shared state: the caller keeps the result.
std::string ConfigurationLoadVersionFromReg(System& s);

// Deletes the key ...\Config; always 0.
int16_t ConfigurationDeleteFromReg(System& s);
// Deletes the key ...\Startup of the window positions.
void ConfigurationDeleteLastPos(System& s);

// Reads LoggingOnOff (RunNoBoards) into flag: a text equal to the number 0 gives false, to 1
// true, any other number leaves the flag. A text that is not a number leaves it too and gives
// the conversion's error to the caller.
std::optional<RunTimeError> ConfigurationFlagLoggingLoad(System& s, Flag& flag);
std::optional<RunTimeError> ConfigurationFlagRunNoBoardsLoad(System& s, Flag& flag);

// BoardConnection1 ... BoardConnection4 of board 0 to 3: the text, "" when it is missing.
std::string ConfigurationBoardConnectionLoad(System& s, int board);
void ConfigurationBoardConnectionSave(System& s, int board, const std::string& text);

// A text value of the configuration key by its name (the remote status settings): the text,
// "" when it is missing.
std::string ConfigurationTextLoad(System& s, const char* name);
void ConfigurationTextSave(System& s, const char* name, const std::string& text);

void ConfigurationInstallPathSave(System& s, const std::string& path);
void ConfigurationInstallNameSave(System& s, const std::string& name);
// false as "0", true as "1".
void ConfigurationFlagLoggingSave(System& s, Flag flag);
void ConfigurationFlagRunNoBoardsSave(System& s, Flag flag);
// Each writes its value from the shared state.
// True when the store took the value; quiet shows no box (a retry of a told failure).
bool ConfigurationLogFileNameSave(System& s, bool quiet = false);
void ConfigurationLogFilePathSave(System& s);
void ConfigurationDataFileNameSave(System& s);
void ConfigurationDataFilePathSave(System& s);

// Loads the whole key into the shared state, bounded by the shape of the stored version. The
// first value that cannot be converted shows the one "Load Configuration Error " box of the
// load; that value keeps its earlier content and the load goes on.
void ConfigurationLoadFromReg(System& s);

// Writes the whole key from the shared state, stamping the current version; empty paths and
// names take their defaults and empty texts a single blank, in the shared state too. Always 0.
int32_t ConfigurationSaveToReg(System& s);

}  // namespace vantrellion
