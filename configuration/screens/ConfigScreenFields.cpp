#include "configuration/screens/ConfigScreenFields.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "configuration/StringTable.h"
#include "configuration/clsConfiguration.h"
#include "configuration/screens/ConfigScreenLogic.h"
#include "core/NumericText.h"

namespace vantrellion {

namespace {

bool IsEmptyOrBlank(const std::string& text) {
    return text.empty() || text == " ";
}

MessageBoxRequest OutOfRangeMessage(AddressBox box) {
    const char* text = box == AddressBox::cmbPortConfigValue
                           ? "Enter Address between Hex 0-FF (Dec 0-255)"
                           : "Enter Address between Hex 280-3FF (Dec 640-1024)";
    return {std::string(text) + "\r\n", Buttons::OK, Icon::None, 1,
            "Address Entry is Out of Range!"};
}

MessageBoxRequest LogPathMessage(const std::string& prompt, Icon icon) {
    return {prompt, Buttons::OK, icon, 1, "Log File Location"};
}

MessageBoxRequest NotHexadecimalMessage(const std::string& text) {
    return {"\"" + text +
                "\" is not a hexadecimal number from 0 to FFFF.\r\n"
                "Enter the value in hexadecimal digits (0-9, A-F), without \"&H\" or "
                "\"0x\".",
            Buttons::OK, Icon::Exclamation, 1, "Address Entry is not Hexadecimal!"};
}

// The accepted non-zero values. The three addresses take hex 200 to 400 although the message
// names 280 to 3FF; negative values (hex 8000 to FFFF) are out of range everywhere.
bool InRange(AddressBox box, int16_t v) {
    if (box == AddressBox::cmbPortConfigValue) return v >= 1 && v <= 255;
    return v >= 512 && v <= 1024;
}

}  // namespace

std::string HexText(int16_t value) {
    char buffer[8];
    std::snprintf(buffer, sizeof buffer, "%X", static_cast<unsigned>(static_cast<uint16_t>(value)));
    return buffer;
}

std::string NumericBoxChanged(const std::string& text) {
    return IsEmptyOrBlank(text) ? "0" : text;
}

void FormFillChipTypeList(ConfigScreen& f, int board) {
    for (const std::string& item : ChipTypeList())
        f.cmbChipSetType[board].List.push_back(item);
}

void FormFillAddressLists(ConfigScreen& f) {
    const auto rows = AddressRows();
    for (size_t row = 0; row < rows.size(); ++row) {
        const auto fields = SplitCommaList(rows[row]);
        for (size_t n = 0; n < AllAddressBoxes.size() && n < fields.size(); ++n) {
            auto& list = AddressCombo(f, AllAddressBoxes[n], 0).List;
            list.insert(list.begin() + static_cast<std::ptrdiff_t>(std::min(row, list.size())),
                        fields[n]);
        }
    }
}

void cmbChipSetType_LostFocus(System& s, ConfigScreen& f, int board) {
    std::string& shared = s.modRelay.Board[board].ChipSetType;
    if (f.cmbChipSetType[board].Text == shared) return;
    shared = f.cmbChipSetType[board].Text;
    FormMarkChanged(f);
}

bool AddressBox_LostFocus(System& s, ConfigScreen& f, AddressBox box, int board,
                          const std::function<void()>& keepFocus) {
    ComboBoxValue& combo = AddressCombo(f, box, board);
    if (IsEmptyOrBlank(combo.Text)) combo.Text.assign(1, '0');
    const auto v = ParseHexAddress(combo.Text);
    if (!v) {
        if (keepFocus) keepFocus();
        s.Message(NotHexadecimalMessage(combo.Text));
        return false;
    }
    int16_t& shared = SharedAddress(s, box, board);
    if (*v == shared) return true;
    if (*v != 0 && !InRange(box, *v)) {
        if (keepFocus) keepFocus();
        s.Message(OutOfRangeMessage(box));
        return false;
    }
    shared = *v;
    combo.Text = HexText(*v);
    FormMarkChanged(f);
    return true;
}

void txtRelayName_LostFocus(System& s, ConfigScreen& f, int index) {
    std::string& shared =
        s.modRelay.Board[index / RelaysPerBoard].RelayName[index % RelaysPerBoard];
    if (f.txtRelayName[index] == shared) return;
    shared = f.txtRelayName[index];
    FormMarkChanged(f);
}

void txtLogFilePath_LostFocus(System& s, ConfigScreen& f) {
    std::string& text = f.txtLogFilePath;
    std::string& shared = s.modRelay.LogFilePath;
    // The directory the field showed before: the shared one, or the default on a first run.
    const std::string before = shared.empty() ? DefaultLogFilePath(s) : shared;
    if (text.empty() || text == before) {
        text = before;
        return;
    }
    const std::string typed = text;
    if (text.back() != '/') text += '/';
    if (text == before) return;
    const auto refuse = [&](const std::string& why) {
        s.Message(LogPathMessage(why, Icon::Exclamation));
        text = before;
    };
    if (text.front() != '/')
        return refuse("\"" + typed +
                      "\" is not a full path.\r\nEnter the directory from the root, beginning "
                      "with \"/\".");
    // The name without its closing "/": a file by that name is no directory to be made.
    const std::filesystem::path dir = text.size() > 1 ? text.substr(0, text.size() - 1) : text;
    std::error_code ec;
    if (!std::filesystem::exists(dir, ec)) {
        MessageBoxRequest ask = LogPathMessage(
            "The directory\r\n" + text + "\r\ndoes not exist.\r\n\r\nMake it now?", Icon::Question);
        ask.ButtonSet = Buttons::YesNo;
        if (s.Message(ask) != Answer::Yes) {
            text = before;
            return;
        }
        std::filesystem::create_directories(dir, ec);
        if (ec)
            return refuse("The directory\r\n" + text + "\r\ncould not be made: " + ec.message());
    }
    if (!std::filesystem::is_directory(dir, ec)) return refuse(text + "\r\nis not a directory.");
    // Taken: in effect for the log writer at once, as a directory from the chooser is.
    shared = text;
    FormMarkChanged(f);
}

void cmdLogFilePathBrowse_Click(System& s, ConfigScreen& f,
                                const std::function<void()>& showChooser) {
    if (showChooser) showChooser();
    if (s.modRelay.LogFilePath != f.txtLogFilePath) f.txtLogFilePath = s.modRelay.LogFilePath;
    FormMarkChanged(f);
}

void ColorButton_Click(System& s, ConfigScreen& f, ColorArray array, int index,
                       const ChooseColor& choose) {
    const bool group = array == ColorArray::cmdSetColorGroupBkgrnd;
    Color& button = group ? f.cmdSetColorGroupBkgrnd[index] : f.cmdSetColorIndicator[index];
    std::optional<Color> chosen;
    try {
        if (choose) chosen = choose(ColorChooserTitle(array), button);
    } catch (...) {
        // Whatever goes wrong in the chooser counts as a cancelled choice, with no message.
        chosen.reset();
    }
    if (!chosen) return;
    button = *chosen;
    if (group) s.modRelay.ColorRelayGroup[index] = *chosen;
    FormMarkChanged(f);
}

std::string ColorChooserTitle(ColorArray array) {
    return array == ColorArray::cmdSetColorGroupBkgrnd ? "Select Group Background Color"
                                                       : "Select Status Color";
}

}  // namespace vantrellion
