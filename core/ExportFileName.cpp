#include "core/ExportFileName.h"

#include <filesystem>
#include <system_error>

namespace vantrellion {

std::string WithExtension(const std::string& path, const std::string& extension) {
    const size_t slash = path.rfind('/');
    const size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
    if (nameStart >= path.size() || path.find('.', nameStart) != std::string::npos) return path;
    return path + extension;
}

bool NameTheSameFile(const std::string& a, const std::string& b) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path pa = fs::absolute(a, ec).lexically_normal();
    const fs::path pb = fs::absolute(b, ec).lexically_normal();
    if (!ec && pa == pb) return true;
    return fs::exists(a, ec) && fs::exists(b, ec) && fs::equivalent(a, b, ec);
}

std::optional<std::string> AskExportFileName(System& s, const ExportFileRequest& request) {
    if (!s.platform.dialogs) return std::nullopt;
    FileDialogRequest dialog;
    dialog.Title = request.Title;
    dialog.Filter = request.Filter;
    dialog.InitialDirectory = s.platform.documentsDirectory;
    dialog.FileName = request.SuggestedName;
    dialog.Flags = 2;  // ask before replacing a file
    const std::optional<std::string> chosen = s.platform.dialogs->ShowSave(dialog);
    if (!chosen || chosen->empty()) return std::nullopt;
    const std::string path = WithExtension(*chosen, request.Extension);
    std::error_code ec;
    if (path != *chosen && std::filesystem::exists(path, ec)) {
        const Answer a = s.Message({path + " already exists.\r\nDo you want to replace it?",
                                    Buttons::YesNo, Icon::Exclamation, 2, request.Title});
        if (a != Answer::Yes) return std::nullopt;
    }
    return path;
}

}  // namespace vantrellion
