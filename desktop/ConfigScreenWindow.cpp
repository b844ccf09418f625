#include "desktop/ConfigScreenWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "boardio/BoardSet.h"
#include "configuration/BoardConnections.h"
#include "configuration/KeyValueStore.h"
#include "configuration/screens/ConfigScreenFields.h"
#include "configuration/screens/ConfigScreenLogic.h"
#include "configuration/screens/ConfigScreenToolTips.h"
#include "desktop/EventGuard.h"
#include "desktop/HelpAndLogMenus.h"
#include "desktop/QtConvert.h"
#include "desktop/ShowConfigForms.h"
#include "desktop/TypingLimit.h"
#include "desktop/resources/clsLoadCustomResource.h"

namespace vantrellion {

namespace {

constexpr int kWindowIcon = 205;

// Focus that moves because a popup, the menu bar or another window took it is no visit to a
// field and no leaving of it.
bool MovesWithinWindow(Qt::FocusReason reason) {
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

void ShowCombo(QComboBox* c, const ComboBoxValue& v) {
    const QSignalBlocker block(c);
    if (c->count() != static_cast<int>(v.List.size())) {
        c->clear();
        for (const std::string& item : v.List)
            c->addItem(Q(item));
    }
    // Filling an empty editable list makes its first item the text: the text is set last.
    if (c->currentText() != Q(v.Text)) c->setEditText(Q(v.Text));
}

void ShowText(QLineEdit* e, const std::string& text) {
    const QSignalBlocker block(e);
    SetWholeText(e, Q(text));
}

void ShowCheck(QCheckBox* c, int16_t value) {
    const QSignalBlocker block(c);
    c->setChecked(value != 0);
}

void SelectAll(QWidget* w) {
    if (auto* c = qobject_cast<QComboBox*>(w)) {
        if (c->lineEdit()) c->lineEdit()->selectAll();
    } else if (auto* e = qobject_cast<QLineEdit*>(w)) {
        e->selectAll();
    }
}

}  // namespace

ConfigScreenWindow::ConfigScreenWindow(System& s, ConfigScreenKind kind, ColorChooser* chooser,
                                       QWidget* parent)
    : QDialog(parent), s_(s), f_(NewConfigScreen(kind)) {
    if (!chooser) ownChooser_ = std::make_unique<QtColorChooser>();
    chooser_ = chooser ? chooser : ownChooser_.get();
    setObjectName(ConfigScreenName(kind));
    setModal(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    menuBar_ = new QMenuBar(this);
    layout->setMenuBar(menuBar_);
    // The panels scroll where the screen is lower than they are (a small or a scaled display),
    // so that the window fits the screen with its buttons below in reach.
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* panels = new QWidget(scroll);
    auto* panelLayout = new QVBoxLayout(panels);
    panelLayout->setContentsMargins(0, 0, 0, 0);
    panelLayout->setSpacing(4);
    if (HasBoardControls(kind)) {
        Boards = new ConfigBoardPanel(panels);
        panelLayout->addWidget(Boards);
    }
    if (HasColorButtons(kind)) {
        Colors = new ConfigColorPanel(panels);
        panelLayout->addWidget(Colors);
    }
    scroll->setWidget(panels);
    scroll->setMinimumWidth(panels->minimumSizeHint().width());
    layout->addWidget(scroll, 1);
    auto* buttons = new QHBoxLayout;
    const bool combined = kind == ConfigScreenKind::Configuration;
    cmdSave = new QPushButton("Save", this);
    cmdCancel = new QPushButton(combined ? "Cancel Changes" : "Cancel", this);
    cmdExit = new QPushButton("Exit", this);
    for (auto [b, name] : {std::pair{cmdSave, "cmdSave"}, std::pair{cmdCancel, "cmdCancel"},
                           std::pair{cmdExit, "cmdExit"}}) {
        b->setObjectName(name);
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    layout->addLayout(buttons);
    BuildMenus();

    // The design size, or the size that shows all of the panels where that is more; the screen
    // then sets the limit (desktop/WindowsOnScreen.h).
    const TwipsSize client = ConfigScreenClientSize(kind);
    const QSize whole = sizeHint() - scroll->sizeHint() + panels->sizeHint();
    resize(std::max(Px(client.Width), whole.width()), std::max(Px(client.Height), whole.height()));
    Wire();
    WireConfigScreenHelpAndPrint(s_, *this);
    Load();
    LoadConnections();
    LoadLocation();
}

ConfigScreenWindow::~ConfigScreenWindow() = default;

QAction* ConfigScreenWindow::AddItem(QMenu* menu, const QString& name, const QString& caption,
                                     int index) {
    QAction* a = menu->addAction(caption);
    a->setObjectName(name);
    a->setData(index);
    actions_.emplace(name, a);
    return a;
}

QAction* ConfigScreenWindow::Menu(const QString& name, int index) const {
    auto [first, last] = actions_.equal_range(name);
    for (auto it = first; it != last; ++it)
        if (it->second->data().toInt() == index) return it->second;
    return first != last ? first->second : nullptr;
}

void ConfigScreenWindow::BuildMenus() {
    auto top = [this](const QString& name, const QString& caption) {
        QMenu* m = menuBar_->addMenu(caption);
        m->setObjectName(name);
        m->menuAction()->setObjectName(name);
        actions_.emplace(name, m->menuAction());
        return m;
    };
    QMenu* file = top("mnuFile", "&File");
    AddItem(file, "mnuFilePrintForm", "Print Window");
    AddItem(file, "mnuFilePrintScreen", "Print Screen");
    AddItem(file, "mnuFileSave", "Save Configuration");
    AddItem(file, "mnuFileCancel", "Cancel (Does not Change Configuration)");
    AddItem(file, "mnuFileExit", "Exit");

    QMenu* colors = top("mnuSetColors", "&Set Colors");
    for (int i = 0; i < StatusColorCount; ++i)
        AddItem(colors, StatusColorMenuNames[i], StatusColorMenuCaptions[i]);
    for (int i = 0; i < GroupColorCount; ++i)
        AddItem(colors, "mnuSetColorGroupBkgrnd",
                QString("Set Background color Relay Group %1").arg(i), i);

    QMenu* reset = top("mnuReset", "&Reset");
    AddItem(reset, "mnuResetAddressDefaults", "Reset Address Defaults");
    AddItem(reset, "mnuResetNamesDefaults", "Reset Names Defaults");
    AddItem(reset, "mnuResetColors", "Reset Colors");
    AddItem(reset, "mnuResetBoardLogging", "Reset Board Logging");
    AddItem(reset, "mnuResetResetonExitOption", "Reset Reset on Exit Option");
    AddItem(reset, "mnuResetAll", "Reset ALL DEFAULTS");

    QMenu* help = top("mnuHelp", "&Help");
    AddItem(help, "mnuHelpConfiguration", "&Help Configuration");
    AddItem(help, "mnuHelpGeneral", "Help General");
    AddItem(help, "mnuHelpAbout", "&About");
}

void ConfigScreenWindow::Watch(QWidget* w, Field field) {
    w->installEventFilter(this);
    w->setMouseTracking(true);  // mouse moves arrive without a button held: the tool tips
    fields_[w] = field;
}

void ConfigScreenWindow::Wire() {
    auto connectAction = [this](const char* name, auto&& fn, int index = 0) {
        connect(Menu(name, index), &QAction::triggered, this, fn);
    };
    connect(cmdSave, &QPushButton::clicked, this, [this] { Save(); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { CancelChanges(); });
    connect(cmdExit, &QPushButton::clicked, this, [this] { close(); });
    connectAction("mnuFileSave", [this] { Save(); });
    // mnuFileCancel has no command behind it, whatever its caption says.
    connectAction("mnuFileExit", [this] { close(); });
    for (QPushButton* b : {cmdSave, cmdCancel, cmdExit})
        Watch(b, {});

    connectAction("mnuResetAddressDefaults",
                  [this] { Run([this] { FormDefaultAddresses(f_, 0); }); });
    connectAction("mnuResetNamesDefaults", [this] { Run([this] { FormDefaultNames(f_, 0); }); });
    connectAction("mnuResetColors", [this] { Run([this] { FormDefaultColors(f_); }); });
    connectAction("mnuResetBoardLogging",
                  [this] { Run([this] { FormDefaultBoardLogging(s_, f_, 0); }); });
    connectAction("mnuResetResetonExitOption",
                  [this] { Run([this] { FormDefaultResetOnExit(s_, f_, 0); }); });
    connectAction("mnuResetAll", [this] { Run([this] { mnuResetAll_Click(s_, f_); }); });
    for (int i = 0; i < StatusColorCount; ++i)
        connectAction(StatusColorMenuNames[i],
                      [this, i] { ChooseColor(ColorArray::cmdSetColorIndicator, i); });
    for (int i = 0; i < GroupColorCount; ++i)
        connectAction(
            "mnuSetColorGroupBkgrnd",
            [this, i] { ChooseColor(ColorArray::cmdSetColorGroupBkgrnd, i); }, i);

    if (Boards) {
        ConfigBoardPanel& p = *Boards;
        for (int b = 0; b < BoardSlots; ++b) {
            Watch(p.cmbChipSetType[b], {Field::ChipSetType, AddressBox::cmbBaseAddress, b});
            for (AddressBox box : AllAddressBoxes) {
                QComboBox* c = p.AddressComboBox(box, b);
                Watch(c, {Field::Address, box, b});
                // An emptied box shows "0" at once, before the field is left.
                connect(c, &QComboBox::editTextChanged, this, [c](const QString& text) {
                    const std::string fixed = NumericBoxChanged(S(text));
                    if (fixed != S(text)) c->setEditText(Q(fixed));
                });
            }
            for (auto [box, check] :
                 {std::pair{p.chkLogBoard[b], ConfigCheck::chkLogBoard},
                  std::pair{p.chkResetOnExit[b], ConfigCheck::chkResetOnExit}}) {
                Watch(box, {});
                connect(box, &QCheckBox::clicked, this, [this, check, b](bool on) {
                    Run([&] {
                        CheckBoxValue(f_, check, b) = on ? 1 : 0;
                        CheckBoxClick(s_, f_, check, b);
                    });
                });
            }
        }
        for (int i = 0; i < BoardSlots * RelaysPerBoard; ++i)
            Watch(p.txtRelayName[i], {Field::RelayName, AddressBox::cmbBaseAddress, i});
        Watch(p.txtLogFilePath, {Field::LogFilePath, AddressBox::cmbBaseAddress, 0});
        Watch(p.chkWarnOverlapTime, {});
        connect(p.chkWarnOverlapTime, &QCheckBox::clicked, this, [this](bool on) {
            Run([&] {
                f_.chkWarnOverlapTime = on ? 1 : 0;
                CheckBoxClick(s_, f_, ConfigCheck::chkWarnOverlapTime, 0);
            });
        });
        Watch(p.cmdLogFilePathBrowse, {});
        connect(p.cmdLogFilePathBrowse, &QPushButton::clicked, this, [this] {
            Run([this] {
                cmdLogFilePathBrowse_Click(s_, f_, [this] { ShowLogFilePathForm(s_); });
            });
        });
        for (QLabel* l :
             {p.lblChipSetType, p.lblBaseAddress, p.lblInputAddress, p.lblCntlAddress,
              p.lblPortConfig, p.lblLoggingYN, p.lblResetOnExit, p.lblRelayName, p.lblLogFilePath})
            Watch(l, {});
        for (QLabel* l : p.lblBoard)
            Watch(l, {});
    }
    if (Colors) {
        for (ColorArray array :
             {ColorArray::cmdSetColorIndicator, ColorArray::cmdSetColorGroupBkgrnd}) {
            const int count =
                array == ColorArray::cmdSetColorIndicator ? StatusColorCount : GroupColorCount;
            for (int i = 0; i < count; ++i) {
                ColorButton* b = Colors->Button(array, i);
                Watch(b, {});
                connect(b, &QPushButton::clicked, this,
                        [this, array, i] { ChooseColor(array, i); });
            }
        }
        Watch(Colors->lblBackground, {});
    }
}

void ConfigScreenWindow::Load() {
    setWindowIcon(LoadIconResource(kWindowIcon));
    RunCommand(s_, [this] { ConfigForm_Load(s_, f_); });
    // FormLoadCmbBoxToolTips: the combo boxes of board 1 have theirs from the start.
    if (Boards) {
        for (QComboBox* c :
             {Boards->cmbChipSetType[0], Boards->cmbBaseAddress[0], Boards->cmbInputAddress[0],
              Boards->cmbCntlAddress[0], Boards->cmbPortConfigValue[0]})
            c->setToolTip(Q(ConfigToolTip(S(c->objectName()))));
    }
    // FormSetTitleAndMenus
    setWindowTitle(Q(ConfigScreenTitle(f_.Kind)));
    for (auto& [name, action] : actions_)
        action->setVisible(ConfigMenuVisible(f_.Kind, S(name)));
    if (Boards) Boards->DisableUnusedBoards();
    ShowModel();
}

void ConfigScreenWindow::PullTexts() {
    if (!Boards) return;
    ConfigBoardPanel& p = *Boards;
    for (int b = 0; b < BoardSlots; ++b) {
        f_.cmbChipSetType[b].Text = S(p.cmbChipSetType[b]->currentText());
        for (AddressBox box : AllAddressBoxes)
            AddressCombo(f_, box, b).Text = S(p.AddressComboBox(box, b)->currentText());
    }
    for (int i = 0; i < BoardSlots * RelaysPerBoard; ++i)
        f_.txtRelayName[i] = S(p.txtRelayName[i]->text());
    f_.txtLogFilePath = S(p.txtLogFilePath->text());
}

void ConfigScreenWindow::ShowModel() {
    if (Boards) {
        ConfigBoardPanel& p = *Boards;
        for (int b = 0; b < BoardSlots; ++b) {
            ShowCombo(p.cmbChipSetType[b], f_.cmbChipSetType[b]);
            for (AddressBox box : AllAddressBoxes)
                ShowCombo(p.AddressComboBox(box, b), AddressCombo(f_, box, b));
            ShowCheck(p.chkLogBoard[b], f_.chkLogBoard[b]);
            ShowCheck(p.chkResetOnExit[b], f_.chkResetOnExit[b]);
        }
        for (int i = 0; i < BoardSlots * RelaysPerBoard; ++i)
            ShowText(p.txtRelayName[i], f_.txtRelayName[i]);
        ShowText(p.txtLogFilePath, f_.txtLogFilePath);
        ShowCheck(p.chkWarnOverlapTime, f_.chkWarnOverlapTime);
    }
    if (Colors) {
        for (int i = 0; i < StatusColorCount; ++i)
            Colors->cmdSetColorIndicator[i]->SetColor(f_.cmdSetColorIndicator[i]);
        for (int i = 0; i < GroupColorCount; ++i)
            Colors->cmdSetColorGroupBkgrnd[i]->SetColor(f_.cmdSetColorGroupBkgrnd[i]);
    }
    cmdSave->setEnabled(f_.SaveEnabled);
    cmdCancel->setEnabled(f_.SaveEnabled);
    Menu("mnuFileSave")->setEnabled(f_.SaveEnabled);
    Menu("mnuFileCancel")->setEnabled(f_.SaveEnabled);
}

void ConfigScreenWindow::Run(const std::function<void()>& command) {
    RunCommand(s_, [&] {
        PullTexts();
        command();
    });
    ShowModel();
}

void ConfigScreenWindow::GotFocus(QWidget* w, const Field& field) {
    Run([&] {
        if (field.kind == Field::ChipSetType) FormFillChipTypeList(f_, field.index);
        if (field.kind == Field::Address) FormFillAddressLists(f_);
    });
    SelectAll(w);
}

bool ConfigScreenWindow::LostFocus(QWidget* w, const Field& field) {
    bool accepted = true;
    Run([&] {
        switch (field.kind) {
            case Field::ChipSetType:
                cmbChipSetType_LostFocus(s_, f_, field.index);
                break;
            case Field::Address:
                accepted = AddressBox_LostFocus(s_, f_, field.box, field.index,
                                                [this, w] { KeepFocus(w); });
                break;
            case Field::RelayName:
                txtRelayName_LostFocus(s_, f_, field.index);
                break;
            case Field::LogFilePath:
                txtLogFilePath_LostFocus(s_, f_);
                break;
            case Field::Other:
                break;
        }
    });
    return accepted;
}

void ConfigScreenWindow::KeepFocus(QWidget* w) {
    // Taking the focus back while it is on its way elsewhere: the other control never receives
    // it, and the field's return is no new visit.
    refocusing_ = true;
    w->setFocus(Qt::OtherFocusReason);
    refocusing_ = false;
    refusing_ = true;
}

void ConfigScreenWindow::LazyToolTip(QWidget* w) {
    if (!w->toolTip().isEmpty()) return;
    const QVariant index = w->property("index");
    const std::string tip = ConfigToolTip(S(w->objectName()), index.isValid() ? index.toInt() : 0);
    if (!tip.empty()) w->setToolTip(Q(tip));
}

bool ConfigScreenWindow::eventFilter(QObject* watched, QEvent* event) {
    const auto it = fields_.find(watched);
    if (it == fields_.end()) return QDialog::eventFilter(watched, event);
    auto* w = static_cast<QWidget*>(watched);
    const Field field = it->second;
    switch (event->type()) {
        case QEvent::FocusIn:
            if (refocusing_) {
                entered_ = w;
            } else if (w != entered_) {
                entered_ = w;
                refusing_ = false;
                GotFocus(w, field);
            }
            break;
        case QEvent::FocusOut: {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (!MovesWithinWindow(reason) || w != entered_) break;
            entered_ = nullptr;
            refusing_ = false;
            // A refused entry has already taken the focus back: the field does not see it go.
            if (!LostFocus(w, field)) return true;
            break;
        }
        case QEvent::KeyPress: {
            // Enter moves on as Tab does, in the fields that take text.
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (field.kind != Field::Other && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
                focusNextChild();
                return true;
            }
            break;
        }
        case QEvent::MouseButtonDblClick:
            if (field.kind == Field::LogFilePath) {
                Boards->cmdLogFilePathBrowse->click();
                return true;
            }
            break;
        case QEvent::MouseButtonPress:
            // The press that took the focus from a field whose entry was then refused does not
            // go on to click: the focus has stayed in the field.
            if (refusing_ && qobject_cast<QAbstractButton*>(w) &&
                QApplication::focusWidget() != w) {
                refusing_ = false;
                return true;
            }
            break;
        case QEvent::Enter:
        case QEvent::MouseMove:
            LazyToolTip(w);
            break;
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

void ConfigScreenWindow::ChooseColor(ColorArray array, int index) {
    Run([&] {
        ColorButton_Click(s_, f_, array, index, [this](const std::string& title, Color start) {
            return chooser_->Choose(this, Q(title), start);
        });
    });
}

void ConfigScreenWindow::Save() {
    Run([this] {
        cmdSave_Click(s_, f_);
        SaveConnections();
        SaveLocation();
    });
}

void ConfigScreenWindow::LoadConnections() {
    if (!Boards || !s_.platform.boards) return;
    const std::vector<FoundBoard> found = ListAllBoards();
    for (int b = 0; b <= LastBoard; ++b) {
        QComboBox* c = Boards->cmbConnection[b];
        for (const FoundBoard& f : found)
            c->addItem(Q(f.connection), Q(f.description));
        for (int i = 0; i < c->count(); ++i)
            c->setItemData(i, c->itemData(i), Qt::ToolTipRole);
        shownConnection_[b] = s_.platform.boards->EffectiveConnection(s_, b);
        c->setEditText(Q(shownConnection_[b]));
        connect(c, &QComboBox::editTextChanged, this, [this, b](const QString& text) {
            if (S(text) == shownConnection_[b]) return;
            f_.FormChanged = True;
            f_.SaveEnabled = true;
            ShowModel();
        });
    }
}

// Only a text that the user changed is stored; one that cannot be used is told and kept on
// the screen for correcting.
void ConfigScreenWindow::SaveConnections() {
    if (!Boards || !s_.platform.boards) return;
    for (int b = 0; b <= LastBoard; ++b) {
        const std::string text = S(Boards->cmbConnection[b]->currentText().trimmed());
        if (text == shownConnection_[b]) continue;
        const KeyValueStore::UserChange byUser(s_.platform.store);
        if (SaveBoardConnection(s_, b, text)) {
            shownConnection_[b] = s_.platform.boards->EffectiveConnection(s_, b);
        } else {
            f_.FormChanged = True;
            f_.SaveEnabled = true;
        }
    }
}

void ConfigScreenWindow::LoadLocation() {
    if (!Boards) return;
    shownLocation_ = StoredLocationTexts(s_);
    ShowText(Boards->txtLatitude, shownLocation_.Latitude);
    ShowText(Boards->txtLongitude, shownLocation_.Longitude);
    for (QLineEdit* e : {Boards->txtLatitude, Boards->txtLongitude}) {
        connect(e, &QLineEdit::textEdited, this, [this] {
            f_.FormChanged = True;
            f_.SaveEnabled = true;
            ShowModel();
        });
    }
}

// The location is stored when the user changed it; texts that cannot be used are told, stay
// on the screen for correcting and keep the screen's changes unsaved.
void ConfigScreenWindow::SaveLocation() {
    if (!Boards) return;
    const LocationTexts texts{S(Boards->txtLatitude->text().trimmed()),
                              S(Boards->txtLongitude->text().trimmed())};
    if (texts.Latitude == shownLocation_.Latitude && texts.Longitude == shownLocation_.Longitude)
        return;
    const KeyValueStore::UserChange byUser(s_.platform.store);
    if (SaveMachineLocation(s_, texts)) {
        shownLocation_ = texts;
    } else {
        f_.FormChanged = True;
        f_.SaveEnabled = true;
    }
}

void ConfigScreenWindow::CancelChanges() {
    Run([this] {
        DesktopConfigurationScreens screens(s_, chooser_);
        cmdCancel_Click(s_, f_, screens);
    });
    // The store is loaded again: what a field still shows is no entry to take on closing.
    entered_ = nullptr;
    close();
}

void ConfigScreenWindow::reject() {
    close();
}

void ConfigScreenWindow::closeEvent(QCloseEvent* event) {
    // A close with the focus still in a field (Escape, the window's close button) leaves the
    // field first, as a click on Exit does: what the field shows is taken, or refused, and a
    // refused entry keeps the screen open.
    QWidget* focus = QApplication::focusWidget();
    if (entered_ && focus && (focus == entered_ || entered_->isAncestorOf(focus))) {
        if (!LostFocus(entered_, fields_[entered_])) {
            event->ignore();
            return;
        }
    }
    bool stop = false;
    RunCommand(s_, [&] {
        PullTexts();
        stop = ConfigForm_QueryUnload(s_, f_, [this] {
            SaveConnections();
            SaveLocation();
        });
    });
    if (stop) {
        event->ignore();
        return;
    }
    event->accept();
    setResult(QDialog::Rejected);
}

}  // namespace vantrellion
