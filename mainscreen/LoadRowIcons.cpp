#include "mainscreen/LoadRowIcons.h"

#include <filesystem>
#include <system_error>

namespace vantrellion {

namespace {

void ShowLoadIconError(System& s, const std::string& error) {
    MessageBoxRequest box;
    box.Prompt = error + "\r\n (4) You Should ReSelect Missing Icons\r\n\r\n" +
                 "Then Save your Run File to correct\r\n" +
                 "  Schedule Load will comtinue in a moment";
    box.BoxIcon = Icon::Exclamation;
    box.Title = "Load Icon Error ";
    s.Message(box);
}

}  // namespace

void LoadRowIcons(System& s, bool reportErrors) {
    bool shown = false;
    auto report = [&](const std::string& error) {
        if (shown) return;
        shown = true;
        if (reportErrors) ShowLoadIconError(s, error);
    };
    for (int i = 0; i <= LastRelay; ++i) {
        const std::string& file = s.frmRelay.Relay[i].IconFile;
        if (file.empty()) continue;
        std::error_code ec;
        const auto length = std::filesystem::file_size(file, ec);
        if (ec) {
            report("File not found: " + file);
            continue;
        }
        if (length == 0) continue;
        std::string error;
        if (!s.screen().LoadPicture(Control::imgIDIcon, i, file, error))
            report(error.empty() ? "Invalid picture" : error);
    }
}

}  // namespace vantrellion
