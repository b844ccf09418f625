#include "configuration/screens/ConfigScreenLogic.h"

#include "configuration/DefaultConfiguration.h"
#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "configuration/screens/ConfigScreenFields.h"

namespace vantrellion {

namespace {

int16_t CheckBoxOf(Flag shared) {
    return shared == 0 ? 0 : 1;
}

}  // namespace

void ConfigForm_Load(System& s, ConfigScreen& f) {
    s.modRelay.FileVersion = ConfigurationLoadVersionFromReg(s);
    if (!IsRegSentinel(s.modRelay.FileVersion)) {
        // A stored shape always names at least board 0, so the controls come from the shared
        // state as the start-up check loaded it.
        FormValuesFromShared(s, f);
    } else {
        // Nothing is configured: every control takes its default. The check boxes' clicks
        // store 1 where the shared state holds 0, which marks the screen changed and so
        // enables Save for a user who accepts everything.
        FormDefaultAddresses(f, 0);
        FormDefaultNames(f, 0);
        FormDefaultColors(f);
        // A screen without colour buttons (the board screen of a small display) stores the
        // colours of the shared state with its Save, and the colour screen that follows loads
        // them from there: the shared state takes the default colours, or every colour of
        // the first configuration would be black.
        if (!HasColorButtons(f.Kind)) SharedDefaultColors(s);
        FormDefaultBoardLogging(s, f, 0);
        FormDefaultResetOnExit(s, f, 0);
        FormDefaultLogPath(s, f);
        FormDefaultWarnOverlap(s, f);
    }
    // The flag is cleared; the commands keep the state the clicks gave them.
    f.FormChanged = False;
}

void FormValuesFromShared(System& s, ConfigScreen& f) {
    ModRelay& m = s.modRelay;
    if (HasBoardControls(f.Kind)) {
        for (int b = 0; b <= LastBoard; ++b) {
            const BoardRecord& board = m.Board[b];
            f.cmbChipSetType[b].Text = board.ChipSetType;
            for (AddressBox box : AllAddressBoxes)
                AddressCombo(f, box, b).Text = HexText(SharedAddress(s, box, b));
            SetCheckBox(s, f, ConfigCheck::chkLogBoard, b, CheckBoxOf(board.LogBoard));
            SetCheckBox(s, f, ConfigCheck::chkResetOnExit, b, CheckBoxOf(board.ResetOnExit));
            for (int r = 0; r < RelaysPerBoard; ++r)
                f.txtRelayName[RecordIndex(b, r)] = board.RelayName[r];
        }
        f.txtLogFilePath = m.LogFilePath;
        // The shared true is -1 and the box's tick is 1, so with the warning on the click
        // always finds a difference: Save starts enabled.
        SetCheckBox(s, f, ConfigCheck::chkWarnOverlapTime, 0, CheckBoxOf(m.WarnOverLapTime));
    }
    if (HasColorButtons(f.Kind)) {
        for (int i = 0; i < StatusColorCount; ++i)
            f.cmdSetColorIndicator[i] = SharedStatusColor(s, i);
        for (int i = 0; i < GroupColorCount; ++i)
            f.cmdSetColorGroupBkgrnd[i] = m.ColorRelayGroup[i];
    }
}

void FormValuesToShared(System& s, ConfigScreen& f) {
    ModRelay& m = s.modRelay;
    if (HasBoardControls(f.Kind)) {
        for (int b = 0; b <= LastBoard; ++b) {
            BoardRecord& board = m.Board[b];
            board.ChipSetType = f.cmbChipSetType[b].Text;
            for (AddressBox box : AllAddressBoxes) {
                ComboBoxValue& combo = AddressCombo(f, box, b);
                int16_t& shared = SharedAddress(s, box, b);
                if (const auto v = ParseHexAddress(combo.Text))
                    shared = *v;
                else  // not a 16-bit hexadecimal number: the stored value stays, and shows
                    combo.Text = HexText(shared);
            }
            for (int r = 0; r < RelaysPerBoard; ++r)
                board.RelayName[r] = f.txtRelayName[RecordIndex(b, r)];
            board.LogBoard = f.chkLogBoard[b];
            board.ResetOnExit = f.chkResetOnExit[b];
        }
        m.LogFilePath = f.txtLogFilePath;
        m.WarnOverLapTime = f.chkWarnOverlapTime == 0 ? False : True;
    }
    if (HasColorButtons(f.Kind)) {
        for (int i = 0; i < StatusColorCount; ++i)
            SharedStatusColor(s, i) = f.cmdSetColorIndicator[i];
        for (int i = 0; i < GroupColorCount; ++i)
            m.ColorRelayGroup[i] = f.cmdSetColorGroupBkgrnd[i];
    }
}

void FormDefaultAddresses(ConfigScreen& f, int board) {
    if (!HasBoardControls(f.Kind)) return;
    f.cmbChipSetType[board].Text = DefaultChipSetTypeText(board);
    for (size_t n = 0; n < AllAddressBoxes.size(); ++n)
        AddressCombo(f, AllAddressBoxes[n], board).Text =
            DefaultAddressText(static_cast<int>(n), board);
}

void FormDefaultNames(ConfigScreen& f, int board) {
    if (!HasBoardControls(f.Kind)) return;
    for (int r = 0; r < RelaysPerBoard; ++r)
        f.txtRelayName[RecordIndex(board, r)] = DefaultRelayName(r);
}

void FormDefaultColors(ConfigScreen& f) {
    if (!HasColorButtons(f.Kind)) return;
    for (int i = 0; i < StatusColorCount; ++i)
        f.cmdSetColorIndicator[i] = DefaultStatusColor(i);
    for (int i = 0; i < GroupColorCount; ++i)
        f.cmdSetColorGroupBkgrnd[i] = DefaultGroupColor(i);
}

void SharedDefaultColors(System& s) {
    for (int i = 0; i < StatusColorCount; ++i)
        SharedStatusColor(s, i) = DefaultStatusColor(i);
    for (int i = 0; i < GroupColorCount; ++i)
        s.modRelay.ColorRelayGroup[i] = DefaultGroupColor(i);
}

void FormDefaultBoardLogging(System& s, ConfigScreen& f, int board) {
    SetCheckBox(s, f, ConfigCheck::chkLogBoard, board, 1);
}

void FormDefaultResetOnExit(System& s, ConfigScreen& f, int board) {
    SetCheckBox(s, f, ConfigCheck::chkResetOnExit, board, 1);
}

void FormDefaultLogPath(System& s, ConfigScreen& f) {
    if (!HasBoardControls(f.Kind)) return;
    f.txtLogFilePath = DefaultLogFilePath(s);
}

void FormDefaultWarnOverlap(System& s, ConfigScreen& f) {
    SetCheckBox(s, f, ConfigCheck::chkWarnOverlapTime, 0, 1);
}

void mnuResetAll_Click(System& s, ConfigScreen& f) {
    // The log path keeps what it has.
    FormDefaultAddresses(f, 0);
    FormDefaultNames(f, 0);
    FormDefaultColors(f);
    FormDefaultBoardLogging(s, f, 0);
    FormDefaultResetOnExit(s, f, 0);
    FormDefaultWarnOverlap(s, f);
}

void SetCheckBox(System& s, ConfigScreen& f, ConfigCheck check, int board, int16_t value) {
    if (!HasBoardControls(f.Kind)) return;
    int16_t& box = CheckBoxValue(f, check, board);
    if (box == value) return;
    box = value;
    CheckBoxClick(s, f, check, board);
}

void CheckBoxClick(System& s, ConfigScreen& f, ConfigCheck check, int board) {
    const int16_t box = CheckBoxValue(f, check, board);
    Flag* shared = nullptr;
    Flag stored = box;
    switch (check) {
        case ConfigCheck::chkLogBoard:
            shared = &s.modRelay.Board[board].LogBoard;
            break;
        case ConfigCheck::chkResetOnExit:
            shared = &s.modRelay.Board[board].ResetOnExit;
            break;
        case ConfigCheck::chkWarnOverlapTime:
            shared = &s.modRelay.WarnOverLapTime;
            stored = box == 1 ? True : False;
            break;
    }
    if (box == *shared) return;
    *shared = stored;
    FormMarkChanged(f);
}

void FormMarkChanged(ConfigScreen& f) {
    f.FormChanged = True;
    f.SaveEnabled = true;
}

void cmdSave_Click(System& s, ConfigScreen& f) {
    FormValuesToShared(s, f);
    const KeyValueStore::UserChange byUser(s.platform.store);
    ConfigurationSaveToReg(s);
    f.FormChanged = False;
    f.SaveEnabled = false;
}

void cmdCancel_Click(System& s, ConfigScreen& f, FirstRunScreens& screens) {
    // The answer does not matter here: the check has reloaded what the store holds.
    CheckConfigurationAtStart(s, screens);
    f.FormChanged = False;
}

Answer FormAskFileSaveCancel(System& s, ConfigScreen& /*f*/, const std::string& /*argument*/) {
    return s.Message(MessageBoxRequest{"Save File?", Buttons::YesNoCancel, Icon::None, 2, "Save?"});
}

bool ConfigForm_QueryUnload(System& s, ConfigScreen& f, const std::function<void()>& alsoSave) {
    if (f.FormChanged == 0) return false;
    switch (FormAskFileSaveCancel(s, f, "Configuration")) {
        case Answer::Cancel:
            return true;
        case Answer::No:
            ConfigurationLoadFromReg(s);
            break;
        default: {
            // Only what has reached the shared state field by field is stored: the controls
            // are not read on this route.
            const KeyValueStore::UserChange byUser(s.platform.store);
            ConfigurationSaveToReg(s);
            if (alsoSave) alsoSave();
            break;
        }
    }
    return false;
}

std::string ConfigScreenTitle(ConfigScreenKind kind) {
    switch (kind) {
        case ConfigScreenKind::ConfigColors:
            return "Configure Color Preferences";
        case ConfigScreenKind::ConfigBoards:
            return "Configure Board Address & Logging Options";
        case ConfigScreenKind::Configuration:
            break;
    }
    return "Configure";
}

bool ConfigMenuVisible(ConfigScreenKind kind, const std::string& menuName) {
    if (kind == ConfigScreenKind::ConfigColors)
        return menuName != "mnuResetAddressDefaults" && menuName != "mnuResetNamesDefaults" &&
               menuName != "mnuResetBoardLogging" && menuName != "mnuResetResetonExitOption";
    if (kind == ConfigScreenKind::ConfigBoards)
        return menuName != "mnuSetColors" && menuName != "mnuResetColors";
    return true;
}

}  // namespace vantrellion
