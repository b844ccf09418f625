// The configuration screens frmConfiguration, frmConfigBoards and frmConfigColors as plain
// data: one design, three cuts of it. The model holds what the controls hold (combo box texts
// and lists, check box values, relay names, the log path, the colour buttons' backgrounds),
// the changed flag and the enabled state of the Save and Cancel commands. The window renders
// it; the operations of ConfigScreenLogic.h and ConfigScreenFields.h work on it and on the
// shared state.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/SharedState.h"

namespace vantrellion {

enum class ConfigScreenKind {
    Configuration,  // frmConfiguration: boards and colours
    ConfigBoards,   // frmConfigBoards: boards, names, log path, warn check box
    ConfigColors,   // frmConfigColors: colours only
};

// The window's own name: "frmConfiguration", "frmConfigBoards" or "frmConfigColors".
const char* ConfigScreenName(ConfigScreenKind kind);
// The board columns, relay names, log path and warn check box are on the screen.
bool HasBoardControls(ConfigScreenKind kind);
// The colour buttons and lblBackground are on the screen.
bool HasColorButtons(ConfigScreenKind kind);
// A board column that is filled in; the others stay on the screen, disabled.
inline bool BoardColumnEnabled(int board) {
    return board <= LastBoard;
}

// The client area of each screen, in twips.
struct TwipsSize {
    int Width = 0, Height = 0;
};
TwipsSize ConfigScreenClientSize(ConfigScreenKind kind);

// The four numeric combo boxes of a board column.
enum class AddressBox { cmbBaseAddress, cmbInputAddress, cmbCntlAddress, cmbPortConfigValue };
inline constexpr std::array<AddressBox, 4> AllAddressBoxes = {
    AddressBox::cmbBaseAddress, AddressBox::cmbInputAddress, AddressBox::cmbCntlAddress,
    AddressBox::cmbPortConfigValue};

// The three check boxes whose click compares with the shared state.
enum class ConfigCheck { chkLogBoard, chkResetOnExit, chkWarnOverlapTime };

// The two arrays of colour buttons.
enum class ColorArray { cmdSetColorIndicator, cmdSetColorGroupBkgrnd };
inline constexpr int StatusColorCount = 10;
inline constexpr int GroupColorCount = 8;

// A drop-down with free text: what is typed or chosen, and the items of its list.
struct ComboBoxValue {
    std::string Text;
    std::vector<std::string> List;
};

struct ConfigScreen {
    ConfigScreenKind Kind = ConfigScreenKind::Configuration;

    // Board columns 0 to 3.
    std::array<ComboBoxValue, BoardSlots> cmbChipSetType, cmbBaseAddress, cmbInputAddress,
        cmbCntlAddress, cmbPortConfigValue;
    std::array<int16_t, BoardSlots> chkLogBoard{}, chkResetOnExit{};    // 0 or 1
    std::array<std::string, BoardSlots * RelaysPerBoard> txtRelayName;  // board x 8 + relay
    std::string txtLogFilePath;
    int16_t chkWarnOverlapTime = 0;  // 0 or 1

    // The colour buttons' backgrounds: the ten status colours in the order of the indicator
    // array (name background first), then the eight relay groups.
    std::array<Color, StatusColorCount> cmdSetColorIndicator{};
    std::array<Color, GroupColorCount> cmdSetColorGroupBkgrnd{};

    Flag FormChanged = False;
    // cmdSave, cmdCancel, mnuFileSave and mnuFileCancel are enabled together.
    bool SaveEnabled = false;
};

ConfigScreen NewConfigScreen(ConfigScreenKind kind);

// The combo box of a numeric field, and the shared value behind it.
ComboBoxValue& AddressCombo(ConfigScreen& f, AddressBox box, int board);
int16_t& SharedAddress(System& s, AddressBox box, int board);
// The check box value of a board (the board is ignored for chkWarnOverlapTime).
int16_t& CheckBoxValue(ConfigScreen& f, ConfigCheck check, int board);

// The shared status colour of an index of cmdSetColorIndicator: 0 ColorNameBkgrnd, then
// ColorRelayON, ColorRelayOFF, ColorTimeON, ColorTimeOFF, ColorManualON, ColorManualOFF,
// ColorInputON, ColorInputOFF, ColorTTimeBkgrnd.
Color& SharedStatusColor(System& s, int index);

}  // namespace vantrellion
