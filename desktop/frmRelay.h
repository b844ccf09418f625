// The main screen: eight relay rows stacked in one column, the menus above and StatusBar1
// below. It renders what the core paints (RowDisplay for the tick, MainScreenView for the
// rest) and turns Qt events into calls of the core.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QStatusBar>
#include <QStringList>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/MainScreenView.h"
#include "core/SharedState.h"
#include "desktop/QtFormWindow.h"
#include "desktop/frmTime.h"

namespace vantrellion {

// shpOnOffLight: a plain filled shape whose background and fill are the relay's colour.
class OnOffLight : public QWidget {
  public:
    explicit OnOffLight(QWidget* parent) : QWidget(parent) {}
    void SetColor(Color c);
    QColor ColorShown() const { return color_; }

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    int64_t shown_ = -1;  // the colour last set, -1 before the first
    QColor color_{Qt::black};
};

// The widest texts that the row controls of one name can show; the run-time fonts are chosen
// so that each fits.
struct RowCaptions {
    const char* control;
    QStringList texts;
};
const std::vector<RowCaptions>& RowCaptionsByControl();
// The width in pixels that a label or a line edit has for its text.
int TextRoom(const QWidget* w);

class frmRelay : public QMainWindow, public RowDisplay, public MainScreenView {
    Q_OBJECT
  public:
    explicit frmRelay(System& s, QWidget* parent = nullptr);
    ~frmRelay() override;

    // Control arrays, by the names of the system.
    std::array<QFrame*, 8> fraRelayGroup{};
    std::array<QLineEdit*, 8> txtDisplayName{}, txtDaysOfWeek{}, txtDayHrEvenOdd{};
    std::array<OnOffLight*, 8> shpOnOffLight{};
    std::array<QLabel*, 8> imgIDIcon{}, imgHardStop{};
    std::array<QLabel*, 8> lblManual{}, lblInvert{}, lblTotalTime{}, lblCounter{};
    std::array<QLineEdit*, PairSlots> txtStartTime{}, txtEndTime{};
    QStatusBar* StatusBar1 = nullptr;
    std::array<QLabel*, 5> StatusPanel{};  // panels 1 to 5

    // The menu items by name; arrays hold one entry per index.
    QAction* Menu(const QString& name, int index = 0) const;
    QMenu* SubMenu(const QString& name, int index = 0) const;

    // RowDisplay
    void SetOnOffLight(int i, Color c) override;
    void SetTimePairBackground(int k, Color c) override;
    void SetDayHrEvenOddBackground(int i, Color c) override;
    void SetManualBackground(int i, Color c) override;
    void SetInvertBackground(int i, Color c) override;
    void SetInvertCaption(int i, const std::string& text) override;
    void SetTotalTimeBackground(int i, Color c) override;
    void SetTotalTimeCaption(int i, const std::string& text) override;
    void SetCounterBackground(int i, Color c) override;
    void SetCounterCaption(int i, const std::string& text) override;
    void SetStateDisplayCaption(int b, const std::string& text) override;
    void SetInputDisplayCaption(int b, const std::string& text) override;
    bool IsMinimized() const override;
    void SetStatusTime(const std::string& text) override;
    void SetTimeWindowCaption(const std::string& text) override;

    // MainScreenView
    void SetTitle(const std::string& text) override;
    void SetText(Control c, int index, const std::string& text) override;
    std::string Text(Control c, int index) const override;
    void SetBackColor(Control c, int index, Color color) override;
    void SetEnabled(Control c, int index, bool enabled) override;
    void SetChecked(Control c, int index, bool checked) override;
    void SetVisible(Control c, int index, bool visible) override;
    void ClearPicture(Control c, int index) override;
    bool LoadPicture(Control c, int index, const std::string& path, std::string& error) override;
    void LoadResourcePicture(Control c, int index, int resourceId) override;
    void SetStatusFont(int size, bool bold) override;
    void SetWindowIcon(int resourceId) override;
    void StackRelayGroups() override;
    void SizeFormToRows() override;
    void ApplyRunTimeFonts() override;
    void ScaleRowTexts(double ratio) override;
    FormWindow* Window() override { return window_.get(); }

    // Runs a menu command; the desktop wires the commands of each menu item here.
    void OnMenu(const QString& name, std::function<void(int)> command);
    // Asked before every menu command and before the close path: validates the field with the
    // focus (desktop/FieldValidation.h). False drops the command or the close.
    std::function<bool()> ValidateBeforeCommand;

    // The floating clock, created on first use and not shown by that.
    frmTime* TimeWindow() const { return frmTime_; }
    frmTime* OpenTimeWindow();
    void CloseTimeWindow();

    // The close path: QueryUnload answers true to cancel the close; Unload runs once the
    // close goes on.
    std::function<bool()> QueryUnload;
    std::function<void()> Unload;
    // Every change of the window's size.
    std::function<void()> Resized;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void BuildRows();
    void BuildMenus();
    void BuildStatusBar();
    void FitClockPanel();
    void FitHintPanel();
    // Fits every family of row controls, or only the one of that control name.
    void FitRowFonts(const char* only = nullptr);
    void FitRowFont(const RowCaptions& family);
    // A caption of two lines (a pause and its end) in a font where both lines fit the label;
    // one line in the font of its family.
    void FitCaptionLines(QLabel* label, const QString& text);
    QWidget* Widget(Control c, int index) const;
    QAction* AddItem(QMenu* menu, const QString& name, const QString& caption, int index = 0);

    // What the core last set on each control, by control and index, so that an unchanged
    // colour or caption costs one comparison and no call into Qt.
    static constexpr int64_t kNoColor = -1;
    int64_t& LastColor(Control c, int index);
    std::string& LastText(Control c, int index);
    void SetMenuCaption(std::array<std::string, 4>& shown, const char* name, int b,
                        const std::string& t);
    std::array<std::vector<int64_t>, kControlCount> lastColor_;
    std::array<std::vector<std::string>, kControlCount> lastText_;
    std::array<std::string, 4> stateCaptions_, inputCaptions_;
    std::string timeWindowText_{std::string(1, '\0')};
    // The run-time font of each family of row controls, and the ratio they are scaled by.
    std::map<std::string, QFont> rowFonts_;
    std::map<std::string, QFont> fittedFonts_;  // each family's font as FitRowFont chose it
    double textScale_ = 1.0;

    System& s_;
    std::multimap<QString, QAction*> actions_;
    std::multimap<QString, QMenu*> menus_;
    frmTime* frmTime_ = nullptr;
    std::unique_ptr<QtFormWindow> window_;  // the window as the geometry and resize see it
};

}  // namespace vantrellion
