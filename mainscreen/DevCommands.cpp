#include "mainscreen/DevCommands.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "configuration/StringTable.h"
#include "core/CheckTimeControl.h"
#include "core/FatalError.h"
#include "engine/RowTotals.h"
#include "logging/LogFileAppend.h"
#include "logging/LogFileName.h"
#include "mainscreen/PauseMessage.h"

namespace vantrellion {

namespace {

constexpr const char* kNoFile = "No such file or directory";

MessageBoxRequest Box(std::string prompt, Buttons buttons, Icon icon, int defaultButton,
                      std::string title) {
    return MessageBoxRequest{std::move(prompt), buttons, icon, defaultButton, std::move(title)};
}

void ShowAll(System& s, const std::vector<MessageBoxRequest>& boxes) {
    for (const MessageBoxRequest& box : boxes)
        s.Message(box);
}

// Replaces the file with text; every failure is passed over.
void ReplaceFile(const std::string& fullName, const std::string& text) {
    const int fd =
        ::open(fullName.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666);
    if (fd < 0) return;
    size_t written = 0;
    while (written < text.size()) {
        const ssize_t n = ::write(fd, text.data() + written, text.size() - written);
        if (n <= 0) break;
        written += static_cast<size_t>(n);
    }
    ::close(fd);
}

}  // namespace

std::vector<std::string> ResourceListingLines(System& s) {
    const DateTime now = s.clock().Now();
    const std::string stamp = s.clock().ShortDate() + " " + TimeText(now.SecondsOfDay());
    std::vector<std::string> lines;
    lines.push_back(" ------Resources for Vantrellion (String Only)------ " + stamp);
    for (int id = 1; id <= 30000; ++id) {
        const std::optional<std::string> text = StringTableFind(id);
        if (!text) continue;
        char number[8];
        std::snprintf(number, sizeof number, "%04d", id);
        const std::string line = std::string(number) + " " + *text;
        if (line.size() > 5) lines.push_back(line);
    }
    lines.push_back(" ------Resources End Vantrellion-------------------- " + stamp);
    return lines;
}

void mnuDevPrintResourceFile(System& s, const std::string& programDirectory) {
    const CheckTimeHold hold(s);
    std::string text;
    for (const std::string& line : ResourceListingLines(s))
        text += line + "\r\n";
    text.resize(text.size() - 2);  // the log append closes the last line itself
    AppendLogLine(MakeLogFileName(s), text);
    ReplaceFile(programDirectory + "/" + ResourceListFileName, text + "\r\n");
}

void mnuDevTestRoutine(System& s) {
    for (int k = 0; k <= 95; ++k) {
        if (k >= PairSlots) throw FatalError(ErrSubscript, "Subscript out of range");
        RefreshRowTotal(s, k);
    }
}

std::vector<MessageBoxRequest> CautionMessageBoxes() {
    return {
        Box("You are about to completely remove all\r\n"
            "Configuration information for Vantrellion\r\n\r\n"
            "Do you really want to continue?",
            Buttons::OKCancel, Icon::None, 2, "Confirm Removal")};
}

// The error boxes built on the system's message box: each carries the platform's description
// of the error, here a sample one.
std::vector<MessageBoxRequest> ErrorMessageBoxes() {
    const auto file = [](const char* title) {
        return Box(kNoFile, Buttons::OK, Icon::Exclamation, 1, title);
    };
    return {
        file("Open File Error"),
        file("Error Writing Data File"),
        file("Error Writing Time Array"),
        file("Open Run File Error"),
        file("Error Reading Run File"),
        file("Load Time Array Error"),
        Box(std::string(kNoFile) + "\r\n (4) You Should ReSelect Missing Icons\r\n\r\n" +
                "Then Save your Run File to correct\r\n" +
                "  Schedule Load will comtinue in a moment",
            Buttons::OK, Icon::Exclamation, 1, "Load Icon Error "),
        Box("Type mismatch\r\nConfiguration Load Errors\r\n\r\n"
            "Correct the Problem or \r\n\r\n"
            "ReEnter Board Values, ('File, Configuration)\r\n"
            "Then 'Save', to correct",
            Buttons::OK, Icon::Exclamation, 1, "Load Configuration Error "),
        Box("Unable to save resource item to disk!", Buttons::OK, Icon::Critical, 1, AppTitle),
        Box("Subscript out of range\r\n9\r\n", Buttons::OK, Icon::Exclamation, 1, AppTitle),
    };
}

// The other error boxes, the relay conversion box once for each relay.
std::vector<MessageBoxRequest> ErrorMsgBoxes() {
    std::vector<MessageBoxRequest> boxes;
    for (int relay = 0; relay <= 7; ++relay)
        boxes.push_back(Box("Relay Conversion Error, RelayIN:" + std::to_string(relay) +
                                " Result:" + std::to_string(1 << relay),
                            Buttons::OK, Icon::None, 1, "Conversion Error"));
    boxes.push_back(Box("GetANDOR Error, Relay#:8", Buttons::OK, Icon::None, 1, AppTitle));
    boxes.push_back(Box("Error Did Not Evaluate Old / New State Correctly", Buttons::OK, Icon::None,
                        1, AppTitle));
    boxes.push_back(Box("Restart Capability will be Disabled", Buttons::OK, Icon::Exclamation, 1,
                        "Unable to Create Restart File!"));
    boxes.push_back(
        Box("File Load Version Error", Buttons::OK, Icon::Exclamation, 1, "Select a Current File"));
    boxes.push_back(Box("Attempting to Load a file Version that does not exist yet", Buttons::OK,
                        Icon::Information, 1, "Select a Current File"));
    boxes.push_back(Box("Prior Position Not Set", Buttons::OK, Icon::None, 1, "Unsupported Form"));
    boxes.push_back(
        Box("Sorry,\r\n    Required Microsoft Runtime is Missing\r\n"
            "     (The Scripting Runtime comes with IE4 and above)",
            Buttons::OK, Icon::None, 1, "MS Scripting Runtime Not Installed"));
    return boxes;
}

std::vector<MessageBoxRequest> InfoMessageBoxes() {
    return {Box("Save File?", Buttons::YesNoCancel, Icon::None, 2, "Save?"), EditNotCodedBox()};
}

std::vector<MessageBoxRequest> InfoMsgBoxes() {
    const std::string prompt = "When you are ready to Continue, press 'OK' ";
    std::vector<MessageBoxRequest> boxes;
    for (int board = 1; board <= 2; ++board)
        for (const char* word : {"ON", "OFF"})
            boxes.push_back(Box(prompt, Buttons::OK, Icon::None, 1, PauseTitle(board, word)));
    return boxes;
}

void mnuDevStepCautionMessageBox(System& s) {
    ShowAll(s, CautionMessageBoxes());
}
void mnuDevStepErrorMessageBox(System& s) {
    ShowAll(s, ErrorMessageBoxes());
}
void mnuDevStepErrorMsgBox(System& s) {
    ShowAll(s, ErrorMsgBoxes());
}
void mnuDevStepInfoMessageBox(System& s) {
    ShowAll(s, InfoMessageBoxes());
}
void mnuDevStepInfoMsgBox(System& s) {
    ShowAll(s, InfoMsgBoxes());
}

MessageBoxRequest EditNotCodedBox() {
    return Box("Edit has not been coded yet!", Buttons::OK, Icon::None, 1,
               "Function not available");
}

void mnuEdit_Click(System& s) {
    s.Message(EditNotCodedBox());
}

}  // namespace vantrellion
