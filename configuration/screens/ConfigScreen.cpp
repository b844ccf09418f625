#include "configuration/screens/ConfigScreen.h"

namespace vantrellion {

const char* ConfigScreenName(ConfigScreenKind kind) {
    switch (kind) {
        case ConfigScreenKind::ConfigBoards:
            return "frmConfigBoards";
        case ConfigScreenKind::ConfigColors:
            return "frmConfigColors";
        case ConfigScreenKind::Configuration:
            break;
    }
    return "frmConfiguration";
}

bool HasBoardControls(ConfigScreenKind kind) {
    return kind != ConfigScreenKind::ConfigColors;
}

bool HasColorButtons(ConfigScreenKind kind) {
    return kind != ConfigScreenKind::ConfigBoards;
}

TwipsSize ConfigScreenClientSize(ConfigScreenKind kind) {
    switch (kind) {
        case ConfigScreenKind::ConfigBoards:
            return {8115, 6525};
        case ConfigScreenKind::ConfigColors:
            return {7875, 2745};
        case ConfigScreenKind::Configuration:
            break;
    }
    return {8115, 7590};
}

ConfigScreen NewConfigScreen(ConfigScreenKind kind) {
    ConfigScreen f;
    f.Kind = kind;
    return f;
}

ComboBoxValue& AddressCombo(ConfigScreen& f, AddressBox box, int board) {
    switch (box) {
        case AddressBox::cmbInputAddress:
            return f.cmbInputAddress[board];
        case AddressBox::cmbCntlAddress:
            return f.cmbCntlAddress[board];
        case AddressBox::cmbPortConfigValue:
            return f.cmbPortConfigValue[board];
        case AddressBox::cmbBaseAddress:
            break;
    }
    return f.cmbBaseAddress[board];
}

int16_t& SharedAddress(System& s, AddressBox box, int board) {
    BoardRecord& b = s.modRelay.Board[board];
    switch (box) {
        case AddressBox::cmbInputAddress:
            return b.InputAddress;
        case AddressBox::cmbCntlAddress:
            return b.CntlAddress;
        case AddressBox::cmbPortConfigValue:
            return b.PortConfigValue;
        case AddressBox::cmbBaseAddress:
            break;
    }
    return b.BaseAddress;
}

int16_t& CheckBoxValue(ConfigScreen& f, ConfigCheck check, int board) {
    switch (check) {
        case ConfigCheck::chkResetOnExit:
            return f.chkResetOnExit[board];
        case ConfigCheck::chkWarnOverlapTime:
            return f.chkWarnOverlapTime;
        case ConfigCheck::chkLogBoard:
            break;
    }
    return f.chkLogBoard[board];
}

Color& SharedStatusColor(System& s, int index) {
    ModRelay& m = s.modRelay;
    Color* const colors[StatusColorCount] = {&m.ColorNameBkgrnd, &m.ColorRelayON, &m.ColorRelayOFF,
                                             &m.ColorTimeON,     &m.ColorTimeOFF, &m.ColorManualON,
                                             &m.ColorManualOFF,  &m.ColorInputON, &m.ColorInputOFF,
                                             &m.ColorTTimeBkgrnd};
    return *colors[index];
}

}  // namespace vantrellion
