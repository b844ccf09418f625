#include "core/clsFormCoOrdsGeneral.h"

#include <cctype>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <vector>

#include "core/NumericText.h"

namespace vantrellion {

namespace {

std::vector<std::string> SplitAtCommas(const std::string& text) {
    std::vector<std::string> pieces;
    std::string::size_type from = 0;
    for (;;) {
        const auto comma = text.find(',', from);
        pieces.push_back(text.substr(from, comma - from));
        if (comma == std::string::npos) return pieces;
        from = comma + 1;
    }
}

// A piece as a single-precision number; false when it is none (or does not fit one), so that
// the property it stands for stays as it is.
bool PieceValue(const std::string& piece, float& value) {
    const Converted<double> c = TextToDouble(piece);
    if (!c.Ok || !std::isfinite(c.Value) || std::fabs(c.Value) > FLT_MAX) return false;
    value = static_cast<float>(c.Value);
    return true;
}

std::string ReadStoredText(System& s, RegRoot hive, const std::string& keyPath,
                           const std::string& section, const std::string& name) {
    if (!s.platform.windowPlaces) return {};
    return s.platform.windowPlaces->ReadPlace(hive, keyPath, section, name);
}

std::string Upper(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

void ApplyText(FormWindow& form, const std::string& text) {
    if (text.empty()) return;
    const std::vector<std::string> pieces = SplitAtCommas(text);
    if (pieces.size() < 2) return;
    float v = 0;
    if (form.CanPlace()) {
        if (PieceValue(pieces[0], v)) form.SetLeft(v);
        if (PieceValue(pieces[1], v)) form.SetTop(v);
    }
    if (!form.Sizable()) return;
    if (pieces.size() >= 3 && PieceValue(pieces[2], v)) form.SetWidth(v);
    if (pieces.size() >= 4 && PieceValue(pieces[3], v)) form.SetHeight(v);
}

}  // namespace

std::string SingleText(float v) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.7G", static_cast<double>(v));
    std::string text = buffer;
    if (text == "-0") text = "0";
    return text;
}

Flag FormCoOrdsGeneral(System& s, FormWindow& form, std::string verb, RegRoot hive,
                       std::string keyPath, std::string section, const std::string& defaultText) {
    if (form.State() != WindowState::Normal) return False;
    if (section.empty()) section = "Startup";
    verb = Upper(verb);
    const std::string name = form.Name();

    if (verb != "GET") {
        std::string left = SingleText(form.Left());
        std::string top = SingleText(form.Top());
        if (!form.CanPlace()) {
            // The window system keeps the place to itself: keep the one stored before.
            const std::vector<std::string> old =
                SplitAtCommas(ReadStoredText(s, hive, keyPath, section, name));
            float v = 0;
            if (old.size() >= 2 && PieceValue(old[0], v) && PieceValue(old[1], v)) {
                left = old[0];
                top = old[1];
            }
        }
        const std::string text =
            left + "," + top + "," + SingleText(form.Width()) + "," + SingleText(form.Height());
        if (s.platform.windowPlaces)
            s.platform.windowPlaces->WritePlace(hive, keyPath, section, name, text);
        return False;
    }

    std::string text = ReadStoredText(s, hive, keyPath, section, name);
    if (text.empty()) text = defaultText;
    ApplyText(form, text);
    return False;
}

}  // namespace vantrellion
