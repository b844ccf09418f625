// The fields of a configuration screen as the user works them: the combo boxes with their
// growing lists and hexadecimal entries, the relay names, the log path, and the colour buttons.
// Handlers named "LostFocus" run when a field is left; one that refuses the entry calls
// keepFocus before its message, and the focus stays in the field.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "configuration/screens/ConfigScreen.h"
#include "core/NumericText.h"

namespace vantrellion {

// ParseHexAddress (core/NumericText.h) reads a numeric box's text.
// Upper-case hexadecimal without prefix or leading zeros; a negative value as its 16-bit
// pattern.
std::string HexText(int16_t value);

// A numeric box whose text is emptied, or left as one blank, shows "0" at once.
std::string NumericBoxChanged(const std::string& text);

// On receiving the focus the lists are filled, and never cleared: each visit adds the items
// once more. The chip types go to the column's own box; the sixteen address rows are split
// into the four numeric boxes of board 0, at list position = row number.
void FormFillChipTypeList(ConfigScreen& f, int board);
void FormFillAddressLists(ConfigScreen& f);

void cmbChipSetType_LostFocus(System& s, ConfigScreen& f, int board);
// False when the entry is refused: not hexadecimal, or a non-zero value out of the box's range
// (hex 200 to 400 for the three addresses, 1 to FF for the port configuration value). The
// shared value and the text then stay as they are.
bool AddressBox_LostFocus(System& s, ConfigScreen& f, AddressBox box, int board,
                          const std::function<void()>& keepFocus);
void txtRelayName_LostFocus(System& s, ConfigScreen& f, int index);
// Leaving the log path field: the field keeps what it shows, and that is what Save stores. A
// typed directory that exists is taken at once, with its closing "/", as the chooser takes
// one. One that does not exist is offered to be made: Yes makes it and takes it, No keeps the
// directory shown before. A text that cannot be a directory (not a full path, a file, one that
// cannot be made) is told, and the directory shown before comes back. An emptied field shows
// that directory again.
void txtLogFilePath_LostFocus(System& s, ConfigScreen& f);
// Runs the directory chooser, which may write LogFilePath; the field takes it, and the screen
// is marked changed in any case.
void cmdLogFilePathBrowse_Click(System& s, ConfigScreen& f,
                                const std::function<void()>& showChooser);

// The chooser of a colour: a title and a start colour in; the chosen colour, or nothing when
// cancelled.
using ChooseColor = std::function<std::optional<Color>(const std::string& title, Color start)>;
// A click on a colour button (or its menu entry): the chooser opens on the button's colour.
// A chosen colour becomes the button's; a group colour also goes to the shared state at once,
// a status colour only with Save. Cancelling, or a chooser that fails, changes nothing.
void ColorButton_Click(System& s, ConfigScreen& f, ColorArray array, int index,
                       const ChooseColor& choose);
std::string ColorChooserTitle(ColorArray array);

}  // namespace vantrellion
