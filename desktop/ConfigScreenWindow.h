// The one design of the three configuration screens: a modal window with the board part, the
// colour part or both, the Save, Cancel and Exit buttons and the screens' menus. It renders the
// screen model of the core and turns the user's focus changes, keys and clicks into the core's
// handlers. frmConfiguration, frmConfigBoards and frmConfigColors are this window in their cut.
#pragma once

#include <QAction>
#include <QDialog>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <map>
#include <memory>

#include "configuration/MachineLocation.h"
#include "configuration/screens/ConfigScreen.h"
#include "desktop/ColorChooser.h"
#include "desktop/ConfigBoardPanel.h"
#include "desktop/ConfigColorPanel.h"

namespace vantrellion {

class ConfigScreenWindow : public QDialog {
    Q_OBJECT
  public:
    // A null chooser means Qt's colour dialog.
    ConfigScreenWindow(System& s, ConfigScreenKind kind, ColorChooser* chooser = nullptr,
                       QWidget* parent = nullptr);
    ~ConfigScreenWindow() override;

    // The parts of the screen; null where the screen has none.
    ConfigBoardPanel* Boards = nullptr;
    ConfigColorPanel* Colors = nullptr;
    QPushButton *cmdSave, *cmdCancel, *cmdExit;

    // A menu item by its name (arrays by index), or a top menu by its name.
    QAction* Menu(const QString& name, int index = 0) const;

    const ConfigScreen& Model() const { return f_; }
    ColorChooser& Chooser() { return *chooser_; }

  public slots:
    // Closes by the route of cmdExit: the question comes if the screen has changed.
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // What a control of the screen is to the handlers.
    struct Field {
        enum Kind { ChipSetType, Address, RelayName, LogFilePath, Other } kind = Other;
        AddressBox box = AddressBox::cmbBaseAddress;
        int index = 0;
    };

    void BuildMenus();
    QAction* AddItem(QMenu* menu, const QString& name, const QString& caption, int index = 0);
    void Watch(QWidget* w, Field field);
    void Wire();
    void Load();

    // The controls' texts into the model, and the model onto the controls.
    void PullTexts();
    void ShowModel();

    // A command of the screen: the texts read first, the model shown after, and any error
    // reported without crossing Qt.
    void Run(const std::function<void()>& command);
    void GotFocus(QWidget* w, const Field& field);
    // False when the entry is refused and the focus stays.
    bool LostFocus(QWidget* w, const Field& field);
    void KeepFocus(QWidget* w);
    void LazyToolTip(QWidget* w);
    void ChooseColor(ColorArray array, int index);
    void Save();
    void CancelChanges();
    // The connection fields: filled from the board set with the boards found, and stored at
    // Save when the user changed them.
    void LoadConnections();
    void SaveConnections();
    void LoadLocation();
    void SaveLocation();

    System& s_;
    ConfigScreen f_;
    std::array<std::string, BoardSlots> shownConnection_;
    LocationTexts shownLocation_;
    std::unique_ptr<ColorChooser> ownChooser_;
    ColorChooser* chooser_;
    QMenuBar* menuBar_;
    std::multimap<QString, QAction*> actions_;
    std::map<QObject*, Field> fields_;

    // The field that last received the focus as the user moves: its leave runs once, when the
    // focus goes elsewhere within the window.
    QPointer<QWidget> entered_;
    bool refocusing_ = false;  // the focus goes back into a field that refused its entry
    bool refusing_ = false;    // a refusal has just kept the focus; the click that left is void
};

}  // namespace vantrellion
