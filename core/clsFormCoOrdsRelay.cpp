#include "core/clsFormCoOrdsRelay.h"

#include "core/clsFormCoOrdsGeneral.h"

namespace vantrellion {

namespace {

constexpr const char* kKeyPath = "SOFTWARE\\Vantrellion";
constexpr const char* kSection = "Startup";

// How a window's default text is made.
enum class Rule { Centred, CentredIfFits, Fixed, BesideOwner };
struct DefaultRule {
    const char* name;
    Rule rule;
    const char* tail;  // appended after the computed place: ",width,height"; or the whole text
};

// In the order of lookup.
constexpr DefaultRule kWindows[] = {
    {"frmAbout", Rule::Centred, ""},
    {"frmConfiguration", Rule::CentredIfFits, ""},
    {"frmConfigBoards", Rule::Centred, ",8205,7170"},
    {"frmConfigColors", Rule::Centred, ",7965,3435"},
    {"frmHelpConfiguration", Rule::Centred, ""},
    {"frmHelpGeneral", Rule::Centred, ",10290,8290"},
    {"frmLogFilePath", Rule::Centred, ""},
    {"frmLogFileViewer", Rule::Fixed, "500,500"},
    {"frmLogFileDelete", Rule::Centred, ""},
    {"frmRelay", Rule::CentredIfFits, ""},
    {"frmSplash", Rule::Centred, ",7665,4335"},
    {"frmTime", Rule::BesideOwner, ",2490,990"},
};

std::string Centred(const FormWindow& form) {
    return SingleText((form.ScreenWidth() - form.Width()) / 2) + "," +
           SingleText((form.ScreenHeight() - form.Height()) / 2);
}

// Right of the owner, top edges level, with a small gap; left of it when the screen has no room
// on the right. The clock then never covers the rows of the main screen. A window without an
// owner is centred.
std::string BesideOwner(const FormWindow& form) {
    constexpr float kGap = 150;
    float left = 0, top = 0, width = 0, height = 0;
    if (!form.OwnerPlace(left, top, width, height)) return Centred(form);
    float x = left + width + kGap;
    if (x + form.Width() > form.ScreenWidth() && left - kGap - form.Width() >= 0)
        x = left - kGap - form.Width();
    return SingleText(x) + "," + SingleText(top);
}

// Strictly greater on both sides: a window as wide as the screen does not fit.
bool Fits(const FormWindow& form) {
    return form.ScreenWidth() > form.Width() && form.ScreenHeight() > form.Height();
}

}  // namespace

bool DefaultFormPosition(const FormWindow& form, std::string& text) {
    const std::string name = form.Name();
    for (const DefaultRule& w : kWindows) {
        if (name != w.name) continue;
        switch (w.rule) {
            case Rule::Fixed:
                text = w.tail;
                break;
            case Rule::CentredIfFits:
                text = Fits(form) ? Centred(form) : "0,0";
                break;
            case Rule::Centred:
                text = Centred(form) + w.tail;
                break;
            case Rule::BesideOwner:
                text = BesideOwner(form) + w.tail;
                break;
        }
        return true;
    }
    return false;
}

void GetFormPriorPosition(System& s, FormWindow& form) {
    std::string defaultText;
    if (!DefaultFormPosition(form, defaultText)) {
        MessageBoxRequest box;
        box.Prompt = "Prior Position Not Set";
        box.Title = "Unsupported Form";
        s.Message(box);
        return;
    }
    FormCoOrdsGeneral(s, form, "Get", HKEY_LOCAL_MACHINE, kKeyPath, kSection, defaultText);
}

void SetFormCurrPosition(System& s, FormWindow& form) {
    if (form.State() != WindowState::Normal) return;
    FormCoOrdsGeneral(s, form, "Set", HKEY_LOCAL_MACHINE, kKeyPath, kSection, "");
}

void RestoreFormPosition(System& s, FormWindow& form) {
    GetFormPriorPosition(s, form);
}

void SaveFormPosition(System& s, FormWindow& form) {
    if (form.State() != WindowState::Normal) return;
    SetFormCurrPosition(s, form);
}

}  // namespace vantrellion
