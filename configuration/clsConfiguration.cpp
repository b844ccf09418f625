#include "configuration/clsConfiguration.h"

#include "configuration/modRegAPI.h"
#include "core/MachineDirectory.h"

namespace vantrellion {

namespace {

std::string ReadSentinel(System& s, const char* name) {
    return RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, ConfigKeyRead, name);
}

void WriteText(System& s, const char* name, const std::string& value) {
    RegWriteValue(s, HKEY_LOCAL_MACHINE, ConfigKeyWrite, "String", name, value);
}

std::optional<RunTimeError> LoadFlag(System& s, const char* name, Flag& flag) {
    const auto v = TextToDouble(RegReadWithMessages(s, HKEY_LOCAL_MACHINE, ConfigKeyRead, name));
    if (!v.Ok) return v.Error;
    if (v.Value == 0)
        flag = False;
    else if (v.Value == 1)
        flag = True;
    return std::nullopt;
}

const char* FlagText(Flag flag) {
    return flag == 0 ? "0" : "1";
}

}  // namespace

std::string DefaultLogFilePath(System& s) {
    return s.platform.machineDirectory.empty() ? DefaultMachineDirectory()
                                               : s.platform.machineDirectory;
}

std::string ConfigurationLoadInstallPath(System& s) {
    return ReadSentinel(s, "InstallPath");
}

std::string ConfigurationLoadInstallName(System& s) {
    return ReadSentinel(s, "InstallName");
}

std::string ConfigurationLoadVersionFromReg(System& s) {
    return ReadSentinel(s, "ConfigVersion");
}

int16_t ConfigurationDeleteFromReg(System& s) {
    RegDeleteKey(s, HKEY_LOCAL_MACHINE, ConfigKeyRead);
    return 0;
}

void ConfigurationDeleteLastPos(System& s) {
    RegDeleteKey(s, HKEY_LOCAL_MACHINE, StartupKeyRead);
}

std::optional<RunTimeError> ConfigurationFlagLoggingLoad(System& s, Flag& flag) {
    return LoadFlag(s, "LoggingOnOff", flag);
}

std::optional<RunTimeError> ConfigurationFlagRunNoBoardsLoad(System& s, Flag& flag) {
    return LoadFlag(s, "RunNoBoards", flag);
}

std::string ConfigurationBoardConnectionLoad(System& s, int board) {
    const std::string name = "BoardConnection" + std::to_string(board + 1);
    const std::string v = ReadSentinel(s, name.c_str());
    return v == REGKEYNOTFOUND || v == VALUENAMENOTFOUND ? "" : v;
}

void ConfigurationBoardConnectionSave(System& s, int board, const std::string& text) {
    WriteText(s, ("BoardConnection" + std::to_string(board + 1)).c_str(), text);
}

std::string ConfigurationTextLoad(System& s, const char* name) {
    const std::string v = ReadSentinel(s, name);
    return v == REGKEYNOTFOUND || v == VALUENAMENOTFOUND ? "" : v;
}

void ConfigurationTextSave(System& s, const char* name, const std::string& text) {
    WriteText(s, name, text);
}

void ConfigurationInstallPathSave(System& s, const std::string& path) {
    WriteText(s, "InstallPath", path);
}

void ConfigurationInstallNameSave(System& s, const std::string& name) {
    WriteText(s, "InstallName", name);
}

void ConfigurationFlagLoggingSave(System& s, Flag flag) {
    WriteText(s, "LoggingOnOff", FlagText(flag));
}

void ConfigurationFlagRunNoBoardsSave(System& s, Flag flag) {
    WriteText(s, "RunNoBoards", FlagText(flag));
}

bool ConfigurationLogFileNameSave(System& s, bool quiet) {
    return RegWriteValue(s, HKEY_LOCAL_MACHINE, ConfigKeyWrite, "String", "LogFileName",
                         s.modRelay.LogFileName, quiet);
}

void ConfigurationLogFilePathSave(System& s) {
    WriteText(s, "LogFilePath", s.modRelay.LogFilePath);
}

void ConfigurationDataFileNameSave(System& s) {
    WriteText(s, "DataFileName", s.modRelay.DataFileName);
}

void ConfigurationDataFilePathSave(System& s) {
    WriteText(s, "DataFilePath", s.modRelay.DataFilePath);
}

}  // namespace vantrellion
