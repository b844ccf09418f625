#include "configuration/CheckConfigurationAtStart.h"

#include "configuration/StoreAtStart.h"
#include "configuration/VersionShape.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"

namespace vantrellion {

namespace {

constexpr const char* kNotConfiguredTitle = "Vantrellion is not Configured!";

Answer AskToConfigure(System& s, const std::string& prompt, Icon icon) {
    return s.Message(MessageBoxRequest{prompt, Buttons::OKCancel, icon, 1, kNotConfiguredTitle});
}

// A stored configuration of another version or shape: smaller than this build, or not.
Answer AskAboutOtherShape(System& s) {
    const auto b = VersionShapeDigit(s.modRelay.FileVersion, ShapeBoardPosition);
    const auto r = VersionShapeDigit(s.modRelay.FileVersion, ShapeRelayPosition);
    const auto t = VersionShapeDigit(s.modRelay.FileVersion, ShapeTimePairPosition);
    // A shape that cannot be read is never written by the program; it is taken as one that
    // needs configuring, and the save that follows writes a good one.
    const bool smaller = !b || !r || !t || *t < LastTimePair || *r < LastRelay || *b < LastBoard;
    if (smaller)
        return AskToConfigure(s, "You must Configure for the additional boards", Icon::Exclamation);
    return AskToConfigure(s,
                          "Your Configuration is for more boards then this program will support"
                          "\r\n\r\nThe additional board information will be removed",
                          Icon::Information);
}

Answer AskForFirstConfiguration(System& s) {
    return AskToConfigure(s,
                          "You MUST Configure Now\r\n\r\n"
                          "Be sure to SAVE Configuration,\r\n"
                          "      Even if you simply accept all defaults!\r\n\r\n"
                          " You will be able to change the configuration, later",
                          Icon::Critical);
}

}  // namespace

bool CheckConfigurationAtStart(System& s, FirstRunScreens& screens) {
    // A store that another program holds is waited for, never read as an empty one.
    if (!WaitForStoreAtStart(s)) return false;
    for (;;) {
        s.modRelay.FileVersion = ConfigurationLoadVersionFromReg(s);
        if (s.modRelay.FileVersion == ComposeFileVersion()) {
            ConfigurationLoadFromReg(s);
            return true;
        }
        Answer answer;
        if (!IsRegSentinel(s.modRelay.FileVersion)) {
            ConfigurationLoadFromReg(s);
            answer = AskAboutOtherShape(s);
        } else {
            answer = AskForFirstConfiguration(s);
        }
        if (answer == Answer::Cancel) return false;

        if (screens.ScreenHeightTwips() < FirstRunSmallScreenTwips) {
            screens.ShowConfigBoards();
            screens.ShowConfigColors();
        } else {
            screens.ShowConfiguration();
        }
        ForceFirstRunSwitches(s);
        // A screen left without Save has stored no version, and the question comes again.
    }
}

void ForceFirstRunSwitches(System& s) {
    s.modRelay.LoggingOnOff = True;
    s.modRelay.RunNoBoards = True;
    ConfigurationFlagLoggingSave(s, s.modRelay.LoggingOnOff);
    ConfigurationFlagRunNoBoardsSave(s, s.modRelay.RunNoBoards);
}

}  // namespace vantrellion
