#include "desktop/frmRelay.h"

#include <QApplication>
#include <QCloseEvent>
#include <QImageReader>
#include <QKeySequence>
#include <QMenuBar>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QVBoxLayout>
#include <cmath>
#include <string_view>

#include "configuration/clsExeOrIDE.h"
#include "core/clsResizeFormCntls.h"
#include "desktop/DesignFont.h"
#include "desktop/FormPosition.h"
#include "desktop/QtConvert.h"
#include "desktop/RowField.h"
#include "desktop/TypingLimit.h"
#include "desktop/resources/clsLoadCustomResource.h"
#include "mainscreen/FieldLimits.h"
#include "mainscreen/StatusHint.h"

namespace vantrellion {

namespace {

// Design positions in a row's frame, in twips: left, top, width, height.
struct Rect {
    int left, top, width, height;
};
constexpr Rect kDisplayName{30, 15, 735, 270};
constexpr Rect kDaysOfWeek{30, 300, 735, 270};
constexpr Rect kDayHrEvenOdd{810, 300, 285, 270};
constexpr Rect kOnOffLight{810, 30, 285, 270};
constexpr Rect kIDIcon{1125, 60, 510, 510};  // row 0 stands at top 45
constexpr Rect kManual{1665, 30, 600, 270};
constexpr Rect kInvert{1665, 315, 600, 270};
constexpr int kPairLefts[6] = {2310, 2955, 3600, 4245, 4890, 5550};
constexpr Rect kStartTime{0, 30, 600, 270};
constexpr Rect kEndTime{0, 315, 600, 270};
constexpr Rect kTotalTime{6240, 30, 720, 270};
constexpr Rect kCounter{6240, 315, 720, 270};
constexpr Rect kHardStop{7020, 45, 480, 480};
constexpr int kFrameWidth = 7575, kFrameHeight = 615;

// A control of fixed size: a new caption repaints it and lays out nothing, since Qt asks for
// a layout pass only for a widget whose size may follow its contents.
void Place(QWidget* w, const Rect& r, int left = -1) {
    w->move(Px(left < 0 ? r.left : left), Px(r.top));
    w->setFixedSize(Px(r.width), Px(r.height));
}

// A stopped row disables its code field and three labels. The style's disabled text is a
// faint grey that vanishes on many of the row's colours: a disabled text is black or white,
// whichever stands out more against the control's background.
void SetDisabledTextFor(QPalette& pal, const QColor& background) {
    const auto linear = [](double v) {
        return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    const double luminance = 0.2126 * linear(background.redF()) +
                             0.7152 * linear(background.greenF()) +
                             0.0722 * linear(background.blueF());
    // Black wins where (L + 0.05) / 0.05 > 1.05 / (L + 0.05).
    const QColor text = luminance > 0.179 ? Qt::black : Qt::white;
    pal.setColor(QPalette::Disabled, QPalette::WindowText, text);
    pal.setColor(QPalette::Disabled, QPalette::Text, text);
}

// Sets one colour role, and only when it differs from the last colour set on the control:
// no palette query, no re-polish, no repaint for nothing.
void SetRoleColor(QWidget* w, QPalette::ColorRole role, Color c, int64_t& last) {
    if (last == c) return;
    last = c;
    if (c == DefaultBackColor) {
        w->setPalette(QPalette());
        w->setAutoFillBackground(false);
        return;
    }
    QPalette pal = w->palette();
    // The system's window background is the colour the style gives the control.
    const QColor color = c == WindowBackground ? QApplication::palette(w).color(role) : ToQColor(c);
    pal.setColor(role, color);
    SetDisabledTextFor(pal, color);
    w->setPalette(pal);
    w->setAutoFillBackground(true);
}

// Sets a caption or a field's text when it differs from the last one set; the comparison
// needs no conversion to Qt's text.
void SetCaption(QLabel* l, const std::string& text, std::string& last) {
    if (last == text) return;
    last = text;
    l->setText(Q(text));
}

void SetFieldText(QLineEdit* e, const std::string& text) {
    const QString q = Q(text);
    if (auto* field = dynamic_cast<RowField*>(e))
        field->ShowText(q);
    else if (e->text() != q)
        e->setText(q);
}

void KeepDisabledTextLegible(QWidget* w, QPalette::ColorRole background) {
    QPalette pal = w->palette();
    SetDisabledTextFor(pal, pal.color(QPalette::Disabled, background));
    w->setPalette(pal);
}

QLabel* MakeLabel(QWidget* parent, const QString& name, const QString& caption) {
    auto* l = new QLabel(caption, parent);
    l->setObjectName(name);
    l->setAlignment(Qt::AlignCenter);
    l->setFrameShape(QFrame::Panel);
    l->setFrameShadow(QFrame::Sunken);
    KeepDisabledTextLegible(l, QPalette::Window);
    return l;
}

QLineEdit* MakeField(QWidget* parent, const QString& name) {
    auto* e = new RowField(parent);
    e->setObjectName(name);
    // The fields are a few pixels high and wide: give the style's inner margin to the text.
    e->setTextMargins(-2, -1, -2, -1);
    KeepDisabledTextLegible(e, QPalette::Base);
    return e;
}

}  // namespace

void OnOffLight::SetColor(Color c) {
    if (c == shown_) return;
    shown_ = c;
    color_ = ToQColor(c);
    update();
}

void OnOffLight::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), color_);
    p.setPen(Qt::black);
    p.drawRect(rect().adjusted(0, 0, -1, -1));
}

frmRelay::frmRelay(System& s, QWidget* parent) : QMainWindow(parent), s_(s) {
    setObjectName("frmRelay");
    stateCaptions_.fill(std::string(1, '\0'));
    inputCaptions_.fill(std::string(1, '\0'));
    BuildRows();
    BuildMenus();
    BuildStatusBar();
    // The design size, before the remembered place is applied.
    StackRelayGroups();
    SizeFormToRows();
    window_ = std::make_unique<QtFormWindow>(*this, centralWidget());
}

frmRelay::~frmRelay() {
    Resized = nullptr;
    CloseTimeWindow();
    // The resize's record points into this window.
    if (s_.frmRelay.ResizeFormCntls && s_.frmRelay.ResizeFormCntls->SourceForm() == window_.get())
        s_.frmRelay.ResizeFormCntls.reset();
}

void frmRelay::BuildRows() {
    auto* central = new QWidget(this);
    central->setObjectName("frmRelayClient");
    setCentralWidget(central);
    for (int i = 0; i < 8; ++i) {
        auto* f = new QFrame(central);
        f->setObjectName("fraRelayGroup");
        f->setFrameShape(QFrame::Box);
        f->resize(Px(kFrameWidth), Px(kFrameHeight));
        fraRelayGroup[i] = f;

        txtDisplayName[i] = MakeField(f, "txtDisplayName");
        Place(txtDisplayName[i], kDisplayName);
        if (DisplayNameLimit(i) > 0) new TypingLimit(txtDisplayName[i], DisplayNameLimit(i));
        connect(txtDisplayName[i], &QLineEdit::textChanged, this,
                [this] { FitRowFonts("txtDisplayName"); });

        txtDaysOfWeek[i] = MakeField(f, "txtDaysOfWeek");
        Place(txtDaysOfWeek[i], kDaysOfWeek);
        txtDaysOfWeek[i]->setMaxLength(DaysOfWeekLimit(i));

        txtDayHrEvenOdd[i] = MakeField(f, "txtDayHrEvenOdd");
        Place(txtDayHrEvenOdd[i], kDayHrEvenOdd);
        txtDayHrEvenOdd[i]->setMaxLength(DayHrEvenOddMaxLength);
        txtDayHrEvenOdd[i]->setAlignment(Qt::AlignCenter);

        shpOnOffLight[i] = new OnOffLight(f);
        shpOnOffLight[i]->setObjectName("shpOnOffLight");
        Place(shpOnOffLight[i], kOnOffLight);

        imgIDIcon[i] = new QLabel(f);
        imgIDIcon[i]->setObjectName("imgIDIcon");
        Rect icon = kIDIcon;
        if (i == 0) icon.top = 45;
        Place(imgIDIcon[i], icon);
        imgIDIcon[i]->setScaledContents(true);

        lblManual[i] = MakeLabel(f, "lblManual", "Manual");
        Place(lblManual[i], kManual);
        lblInvert[i] = MakeLabel(f, "lblInvert", "Invert");
        Place(lblInvert[i], kInvert);

        for (int p = 0; p < 6; ++p) {
            const int k = PairIndex(i, p);
            txtStartTime[k] = MakeField(f, "txtStartTime");
            Place(txtStartTime[k], kStartTime, kPairLefts[p]);
            txtEndTime[k] = MakeField(f, "txtEndTime");
            Place(txtEndTime[k], kEndTime, kPairLefts[p]);
        }

        lblTotalTime[i] = MakeLabel(f, "lblTotalTime", "00:00:00");
        Place(lblTotalTime[i], kTotalTime);
        lblCounter[i] = MakeLabel(f, "lblCounter", "Counter");
        Place(lblCounter[i], kCounter);

        imgHardStop[i] = new QLabel(f);
        imgHardStop[i]->setObjectName("imgHardStop");
        Place(imgHardStop[i], kHardStop);
        imgHardStop[i]->setScaledContents(true);
    }
    // Tab order: row by row, name, days, code, then the pairs start before end.
    QWidget* previous = nullptr;
    for (int i = 0; i < 8; ++i) {
        std::vector<QWidget*> order = {txtDisplayName[i], txtDaysOfWeek[i], txtDayHrEvenOdd[i]};
        for (int p = 0; p < 6; ++p) {
            order.push_back(txtStartTime[PairIndex(i, p)]);
            order.push_back(txtEndTime[PairIndex(i, p)]);
        }
        for (QWidget* w : order) {
            if (previous) setTabOrder(previous, w);
            previous = w;
        }
    }
}

QAction* frmRelay::AddItem(QMenu* menu, const QString& name, const QString& caption, int index) {
    QAction* a = menu->addAction(caption);
    a->setObjectName(name);
    a->setData(index);
    actions_.emplace(name, a);
    return a;
}

void frmRelay::BuildMenus() {
    QMenuBar* bar = menuBar();
    auto top = [&](const QString& name, const QString& caption) {
        QMenu* m = bar->addMenu(caption);
        m->setObjectName(name);
        m->menuAction()->setObjectName(name);
        menus_.emplace(name, m);
        actions_.emplace(name, m->menuAction());
        return m;
    };

    QMenu* file = top("mnuFile", "&File");
    AddItem(file, "mnuFileNew", "&New")->setShortcut(QKeySequence::New);
    AddItem(file, "mnuFileOpen", "&Open")->setShortcut(QKeySequence::Open);
    file->addSeparator();
    AddItem(file, "mnuFilePrintForm", "Print Window")->setShortcut(QKeySequence::Print);
    AddItem(file, "mnuFilePrintScreen", "Print Screen");
    file->addSeparator();
    AddItem(file, "mnuFileSave", "&Save")->setShortcut(QKeySequence::Save);
    AddItem(file, "mnuFileSaveAs", "Save &As...")->setShortcut(QKeySequence("Ctrl+Shift+S"));
    file->addSeparator();
    AddItem(file, "mnuFileConfiguration", "Configuration");
    AddItem(file, "mnuFileConfigurationRemove", "Configuration (Remove)");
    AddItem(file, "mnuFileRemoteStatus", "&Remote Status (MQTT)...");
    file->addSeparator();
    for (int n = 0; n < 6; ++n) {
        QAction* mru = AddItem(file, "mnuMRUFiles", "", n);
        mru->setSeparator(n == 0);
        mru->setVisible(false);
    }
    AddItem(file, "mnuFileExit", "E&xit")->setShortcut(QKeySequence("Ctrl+Q"));
    QAction* sep6 = file->addSeparator();
    sep6->setObjectName("mnuFileSep6");
    sep6->setVisible(false);
    AddItem(file, "mnuFileMFU", "")->setVisible(false);

    QMenu* edit = top("mnuEdit", "&Edit");
    edit->menuAction()->setVisible(false);

    QMenu* tool = top("mnuTool", "&Tool");
    AddItem(tool, "mnuToolLogging", "Logging")->setCheckable(true);
    AddItem(tool, "mnuToolLogFileView", "View Log File");
    tool->addSeparator();
    AddItem(tool, "mnuToolRemoveLogFile", "Remove Log File(s)");
    AddItem(tool, "mnuToolRemoveRestartFile", "Remove Restart File");
    tool->addSeparator();
    AddItem(tool, "mnuToolSetRelays", "Set All Relays");
    AddItem(tool, "mnuToolSetRelaysDelay", "Set All Relays (w/Delay)");
    AddItem(tool, "mnuToolSetRelaysPause", "Set All Relays (w/Pause)");
    tool->addSeparator();
    AddItem(tool, "mnuToolResetRelays", "Reset All Relays");
    AddItem(tool, "mnuToolResetRelaysDelay", "Reset All Relays (w/Delay)");
    AddItem(tool, "mnuToolResetRelaysPause", "Reset All Relays (w/Pause)");
    tool->addSeparator();
    AddItem(tool, "mnuToolZeroCounters", "Reset All Counters");
    tool->addSeparator();
    AddItem(tool, "mnuToolForceCheckTime", "Force Time Check");
    tool->addSeparator();
    AddItem(tool, "mnuToolListAddress_H200_H3FF", "List Addresses H200-H3FF");
    tool->addSeparator();
    AddItem(tool, "mnuToolRunNoBoards", "Emulation Mode (Run With No Boards) ")->setCheckable(true);
    tool->addSeparator();
    QMenu* boot = tool->addMenu("Run when Computer &Boots (Starts)");
    boot->setObjectName("mnuToolRunOnBoot");
    boot->menuAction()->setObjectName("mnuToolRunOnBoot");
    menus_.emplace("mnuToolRunOnBoot", boot);
    actions_.emplace("mnuToolRunOnBoot", boot->menuAction());
    AddItem(boot, "mnuToolRunOnBootOnce", "Next Time");
    AddItem(boot, "mnuToolRunOnBootAlways", "Always");
    AddItem(boot, "mnuToolRunOnBootNever", "Never");
    boot->addSeparator();
    AddItem(boot, "mnuToolRunAsService", "Run as a Service (no login needed)");
    tool->addSeparator();
    AddItem(tool, "mnuToolSchedulePreview", "Schedule Preview...");

    // The developer menu is built only in a development build, hidden until the menus are
    // refreshed; a delivered program has none at all.
    if (RunningInIDE() != 0) {
        QMenu* dev = top("mnuDev", "&Dev");
        AddItem(dev, "mnuDevPrintResourceFile", "Print Resource File");
        AddItem(dev, "mnuDevTestRoutine", "Test Routine");
        AddItem(dev, "mnuDevStepCautionMessageBox", "Step Caution Message Box ( 1)");
        AddItem(dev, "mnuDevStepErrorMessageBox", "Step Error     Message Box (10)");
        AddItem(dev, "mnuDevStepErrorMsgBox", "Step Error     MsgBox          (15)");
        AddItem(dev, "mnuDevStepInfoMessageBox", "Step Info      Message Box  ( 2)");
        AddItem(dev, "mnuDevStepInfoMsgBox", "Step Info      MsgBox           ( 4)");
        AddItem(dev, "mnuDevTestConfigBoards", "Test Config Boards");
        AddItem(dev, "mnuDevTestConfigColors", "Test Config Colors");
        dev->menuAction()->setVisible(false);
    }

    QMenu* state = top("mnuState", "&States/Inputs");
    for (int n = 0; n < 4; ++n) {
        const QString b = QString("B%1").arg(n + 1);
        QMenu* board = state->addMenu(QString("Manual Set Board &%1").arg(n + 1));
        board->setObjectName("mnuStateManualBoard");
        board->menuAction()->setObjectName("mnuStateManualBoard");
        board->menuAction()->setData(n);
        menus_.emplace("mnuStateManualBoard", board);
        actions_.emplace("mnuStateManualBoard", board->menuAction());
        AddItem(board, "mnuStateMan_" + b + "_StepAll",
                n == 1 ? "Step Thru  All" : "Step Thru All");
        board->addSeparator();
        for (int r = 0; r < 8; ++r)
            AddItem(board, "mnuStateMan_" + b + "_On", QString("On %1").arg(r), r);
        board->addSeparator();
        for (int r = 0; r < 8; ++r)
            AddItem(board, "mnuStateMan_" + b + "_Off", QString("Off %1").arg(r), r);
        board->addSeparator();
        AddItem(board, "mnuStateMan_" + b + "_AllOn", "All On");
        AddItem(board, "mnuStateMan_" + b + "_AllOff", "All Off");
        board->addSeparator();
        AddItem(board, "mnuStateMan_" + b + "_AllOnPause", "All On (with Pause)");
        AddItem(board, "mnuStateMan_" + b + "_AllOffPause", "All Off (with Pause)");
    }
    state->addSeparator();
    for (int n = 0; n < 4; ++n)
        AddItem(state, "mnuStateDisplayState", QString("Board %1 State (Not Set)").arg(n + 1), n);
    state->addSeparator();
    for (int n = 0; n < 4; ++n)
        AddItem(state, "mnuStateDisplayInput", QString("Board %1 Inputs (Not Set)").arg(n + 1), n);
    state->addSeparator();
    state->addSeparator();
    AddItem(state, "mnuStateDaysOff", "&Days Off...");
    AddItem(state, "mnuStatePauseSchedule", "&Pause Schedule...");
    AddItem(state, "mnuStateEndPause", "&End Pause");

    QMenu* help = top("mnuHelp", "&Help");
    AddItem(help, "mnuHelpManual", "User's &Manual");
    AddItem(help, "mnuHelpGeneral", "Help (General)");
    AddItem(help, "mnuHelpConfiguration", "Help (Configuration)");
    AddItem(help, "mnuHelpTimeWin", "Time Window");
    AddItem(help, "mnuHelpSplash", "Splash Screen");
    AddItem(help, "mnuHelpAbout", "&About");

    // A top-level read-out with no command.
    QAction* address = bar->addAction("Board Addresses (Not Defined)");
    address->setObjectName("mnuDisplayAddress");
    actions_.emplace("mnuDisplayAddress", address);
}

void frmRelay::BuildStatusBar() {
    StatusBar1 = new QStatusBar(this);
    StatusBar1->setObjectName("StatusBar1");
    StatusBar1->setSizeGripEnabled(false);
    setStatusBar(StatusBar1);
    const int stretch[5] = {0, 0, 0, 0, 1};
    for (int n = 0; n < 5; ++n) {
        StatusPanel[n] = new QLabel(StatusBar1);
        StatusPanel[n]->setObjectName(QString("StatusBar1Panel%1").arg(n + 1));
        StatusPanel[n]->setFrameShape(QFrame::Panel);
        StatusPanel[n]->setFrameShadow(QFrame::Sunken);
        StatusPanel[n]->setMinimumWidth(n == 4 ? 120 : 60);
        StatusBar1->addPermanentWidget(StatusPanel[n], stretch[n]);
    }
    FitClockPanel();
    FitHintPanel();
}

void frmRelay::FitHintPanel() {
    // Panel 5 takes the width that the window leaves it, whatever the length of its hint: a
    // long hint is cut at the window's edge instead of pushing the panel out of the window. It
    // is always as high as a hint needs, so that the rows above keep their room whether a hint
    // shows or not.
    QLabel* hint = StatusPanel[4];
    hint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    QFont bold = hint->font();
    bold.setPointSize(StatusHintPoints);
    bold.setBold(true);
    hint->setFixedHeight(QFontMetrics(bold).height() + 2 * hint->frameWidth());
}

void frmRelay::FitClockPanel() {
    // Panel 2 holds the tick's clock: fixed to the width of "00:00:00" in its font, so that
    // a new time repaints the panel alone and never re-lays out the status bar and the window.
    QLabel* clock = StatusPanel[1];
    // Opaque, so that its repaint does not repaint the status bar beneath it.
    clock->setAutoFillBackground(true);
    const int margin = 2 * clock->frameWidth() + 6;
    const int width =
        std::max(60, clock->fontMetrics().horizontalAdvance(QStringLiteral("00:00:00")) + margin);
    clock->setFixedSize(width, clock->fontMetrics().height() + 2 * clock->frameWidth());
}

QAction* frmRelay::Menu(const QString& name, int index) const {
    auto [first, last] = actions_.equal_range(name);
    for (auto it = first; it != last; ++it)
        if (it->second->data().toInt() == index) return it->second;
    return first != last ? first->second : nullptr;
}

QMenu* frmRelay::SubMenu(const QString& name, int index) const {
    auto [first, last] = menus_.equal_range(name);
    for (auto it = first; it != last; ++it)
        if (it->second->menuAction()->data().toInt() == index) return it->second;
    return first != last ? first->second : nullptr;
}

void frmRelay::OnMenu(const QString& name, std::function<void(int)> command) {
    auto [first, last] = actions_.equal_range(name);
    for (auto it = first; it != last; ++it) {
        QAction* a = it->second;
        connect(a, &QAction::triggered, this, [this, a, command] {
            if (ValidateBeforeCommand && !ValidateBeforeCommand()) return;
            command(a->data().toInt());
        });
    }
}

void frmRelay::StackRelayGroups() {
    int top = Px(50);
    for (int i = 0; i < 8; ++i) {
        fraRelayGroup[i]->move(Px(50), top);
        top += fraRelayGroup[i]->height();
    }
}

void frmRelay::SizeFormToRows() {
    const QFrame* last = fraRelayGroup[7];
    const QFrame* first = fraRelayGroup[0];
    const int height = StatusBar1->sizeHint().height() + last->y() + last->height() + Px(1150) -
                       Px(600);  // the title bar and borders are the window system's
    const int width = first->x() + first->width() + Px(150);
    resize(width, std::max(height, last->y() + last->height() + menuBar()->sizeHint().height() +
                                       StatusBar1->sizeHint().height()));
}

void frmRelay::ApplyRunTimeFonts() {
    setFont(DesignFont(8.25));
    // Controls are matched by their exact name; "txtdaysofweek" matches none, so the days
    // field keeps its design font and limits.
    struct Entry {
        const char* name;
        double size;
        int maxLength;
    };
    static const Entry kTable[] = {
        {"txtStartTime", 7.0, -1}, {"txtEndTime", 7.0, -1},   {"lblInvert", 7.0, -1},
        {"lblManual", 7.0, -1},    {"txtdaysofweek", 8.0, 9}, {"txtDayHrEvenOdd", 8.0, 2},
        {"StatusBar1", 8.0, 2},
    };
    for (QWidget* w : findChildren<QWidget*>()) {
        for (const Entry& e : kTable) {
            if (w->objectName() != QLatin1String(e.name)) continue;
            w->setFont(DesignFont(e.size));
            if (auto* edit = qobject_cast<QLineEdit*>(w); edit && e.maxLength > 0)
                edit->setMaxLength(e.maxLength);
        }
    }
    // The run-time font of each family of row controls, from which every scaling starts.
    rowFonts_.clear();
    for (const RowCaptions& family : RowCaptionsByControl())
        if (const auto* w = findChild<QWidget*>(QLatin1String(family.control)))
            rowFonts_[family.control] = w->font();
    textScale_ = 1.0;
    FitRowFonts();
    FitClockPanel();
    FitHintPanel();
}

void frmRelay::ScaleRowTexts(double ratio) {
    if (ratio == textScale_) return;
    textScale_ = ratio;
    FitRowFonts();
}

const std::vector<RowCaptions>& RowCaptionsByControl() {
    // The widest texts each row control can show: the engine's status words, clock times of
    // eight characters, counts, and names and days as long as their fields take them.
    static const std::vector<RowCaptions> kCaptions = {
        {"lblTotalTime",
         {"00:00:00", "88:88:88", "Over24hr", ">Manual<", ">Invr-Man<", " Invert ", "> STOP <",
          "Manual"}},
        {"lblInvert", {"Invert", "88:88:88", "00:00:00"}},
        {"lblManual", {"Manual"}},
        {"lblCounter", {"Counter", "-32768", "32767"}},
        {"txtDisplayName", {"Relay: 10", "Sprinkler", "Nutrients", "Ventilate", "Circulate"}},
        {"txtDaysOfWeek", {"All Days", "1234567"}},
        {"txtDayHrEvenOdd", {"EO", "MH", "BH", "88"}},
        {"txtStartTime", {"88:88:88", "00:00:00"}},
        {"txtEndTime", {"88:88:88", "00:00:00"}},
    };
    return kCaptions;
}

int TextRoom(const QWidget* w) {
    if (auto* label = qobject_cast<const QLabel*>(w)) return label->contentsRect().width();
    auto* edit = qobject_cast<const QLineEdit*>(w);
    if (!edit) return w->width();
    // The line edit's own text area: its frame and text margins off, and the two pixels of
    // margin it keeps on either side of the text.
    QStyleOptionFrame option;
    option.initFrom(edit);
    option.rect = edit->contentsRect();
    option.lineWidth = edit->hasFrame()
                           ? edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit)
                           : 0;
    const QRect area = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
    const QMargins margins = edit->textMargins();
    return area.width() - margins.left() - margins.right() - 2 * 2;
}

void frmRelay::FitRowFonts(const char* only) {
    for (const RowCaptions& family : RowCaptionsByControl())
        if (!only || std::string_view(only) == family.control) FitRowFont(family);
}

void frmRelay::FitRowFont(const RowCaptions& family) {
    // The design sizes of the controls were drawn for a narrow font: each family of controls
    // takes its run-time font, scaled with the window, where its widest text fits, and steps
    // down by half a point until it does (not below 5 points, where it would no longer be
    // read). The names count with the texts of the family: as many characters of each as a
    // user can type into a row shows whole.
    const QList<QWidget*> widgets = findChildren<QWidget*>(QLatin1String(family.control));
    const auto base = rowFonts_.find(family.control);
    if (widgets.isEmpty() || base == rowFonts_.end()) return;
    QStringList texts = family.texts;
    if (QLatin1String(family.control) == QLatin1String("txtDisplayName"))
        for (const QLineEdit* name : txtDisplayName)
            texts << name->text().left(DisplayNameMaxLength);
    QFont font = base->second;
    font.setPointSizeF(std::max(5.0, font.pointSizeF() * textScale_));
    const int room = TextRoom(widgets.front());
    const auto widest = [&] {
        const QFontMetrics metrics(font);
        int most = 0;
        for (const QString& text : texts)
            most = std::max(most, metrics.horizontalAdvance(text));
        return most;
    };
    while (widest() > room && font.pointSizeF() > 5.0)
        font.setPointSizeF(font.pointSizeF() - 0.5);
    fittedFonts_[family.control] = font;
    for (QWidget* w : widgets)
        if (w->font() != font) w->setFont(font);
}

void frmRelay::FitCaptionLines(QLabel* label, const QString& text) {
    const auto fitted = fittedFonts_.find(label->objectName().toStdString());
    if (fitted == fittedFonts_.end()) return;
    QFont font = fitted->second;
    const QStringList lines = text.split(QLatin1Char('\n'));
    const QRect room = label->contentsRect();
    const auto fits = [&] {
        const QFontMetrics metrics(font);
        for (const QString& line : lines)
            if (metrics.horizontalAdvance(line) > room.width()) return false;
        return metrics.lineSpacing() * static_cast<int>(lines.size()) <= room.height() + 2;
    };
    while (lines.size() > 1 && !fits() && font.pointSizeF() > 4.0)
        font.setPointSizeF(font.pointSizeF() - 0.5);
    if (label->font() != font) label->setFont(font);
}

// RowDisplay ------------------------------------------------------------------------------

void frmRelay::SetOnOffLight(int i, Color c) {
    shpOnOffLight[i]->SetColor(c);
}

void frmRelay::SetTimePairBackground(int k, Color c) {
    SetBackColor(Control::txtStartTime, k, c);
    SetBackColor(Control::txtEndTime, k, c);
}

void frmRelay::SetDayHrEvenOddBackground(int i, Color c) {
    SetBackColor(Control::txtDayHrEvenOdd, i, c);
}

void frmRelay::SetManualBackground(int i, Color c) {
    SetBackColor(Control::lblManual, i, c);
}
void frmRelay::SetInvertBackground(int i, Color c) {
    SetBackColor(Control::lblInvert, i, c);
}
void frmRelay::SetInvertCaption(int i, const std::string& t) {
    SetText(Control::lblInvert, i, t);
}
void frmRelay::SetTotalTimeBackground(int i, Color c) {
    SetBackColor(Control::lblTotalTime, i, c);
}
void frmRelay::SetTotalTimeCaption(int i, const std::string& t) {
    // "Paused until 18:00" is wider than the label: the end goes on a second line.
    static constexpr std::string_view kPaused = "Paused until ";
    const bool paused = t.rfind(kPaused, 0) == 0;
    const std::string shown = paused ? "Paused until\n" + t.substr(kPaused.size()) : t;
    SetText(Control::lblTotalTime, i, shown);
    FitCaptionLines(lblTotalTime[i], Q(shown));
}
void frmRelay::SetCounterBackground(int i, Color c) {
    SetBackColor(Control::lblCounter, i, c);
}
void frmRelay::SetCounterCaption(int i, const std::string& t) {
    SetText(Control::lblCounter, i, t);
}

void frmRelay::SetStateDisplayCaption(int b, const std::string& t) {
    SetMenuCaption(stateCaptions_, "mnuStateDisplayState", b, t);
}

void frmRelay::SetInputDisplayCaption(int b, const std::string& t) {
    SetMenuCaption(inputCaptions_, "mnuStateDisplayInput", b, t);
}

void frmRelay::SetMenuCaption(std::array<std::string, 4>& shown, const char* name, int b,
                              const std::string& t) {
    if (b < 0 || b >= 4 || shown[b] == t) return;
    shown[b] = t;
    if (QAction* a = Menu(name, b)) a->setText(Q(t));
}

int64_t& frmRelay::LastColor(Control c, int index) {
    std::vector<int64_t>& memo = lastColor_[static_cast<size_t>(c)];
    if (static_cast<size_t>(index) >= memo.size()) memo.resize(index + 1, kNoColor);
    return memo[index];
}

std::string& frmRelay::LastText(Control c, int index) {
    std::vector<std::string>& memo = lastText_[static_cast<size_t>(c)];
    // Before the first text set, a text no caption holds: the first one always reaches Qt.
    if (static_cast<size_t>(index) >= memo.size()) memo.resize(index + 1, std::string(1, '\0'));
    return memo[index];
}

bool frmRelay::IsMinimized() const {
    return isMinimized();
}

void frmRelay::SetStatusTime(const std::string& t) {
    SetText(Control::StatusBar1, 2, t);
}

void frmRelay::SetTimeWindowCaption(const std::string& t) {
    SetCaption(OpenTimeWindow()->lblTime, t, timeWindowText_);
}

frmTime* frmRelay::OpenTimeWindow() {
    if (!frmTime_) {
        frmTime_ = new frmTime(this);
        RestoreFormPosition(s_, *frmTime_);
    }
    return frmTime_;
}

void frmRelay::CloseTimeWindow() {
    if (frmTime_) SaveFormPosition(s_, *frmTime_);
    delete frmTime_;
    frmTime_ = nullptr;
    timeWindowText_ = std::string(1, '\0');
}

// MainScreenView --------------------------------------------------------------------------

QWidget* frmRelay::Widget(Control c, int index) const {
    switch (c) {
        case Control::fraRelayGroup:
            return fraRelayGroup[index];
        case Control::txtDisplayName:
            return txtDisplayName[index];
        case Control::txtDaysOfWeek:
            return txtDaysOfWeek[index];
        case Control::txtDayHrEvenOdd:
            return txtDayHrEvenOdd[index];
        case Control::txtStartTime:
            return txtStartTime[index];
        case Control::txtEndTime:
            return txtEndTime[index];
        case Control::shpOnOffLight:
            return shpOnOffLight[index];
        case Control::imgIDIcon:
            return imgIDIcon[index];
        case Control::imgHardStop:
            return imgHardStop[index];
        case Control::lblManual:
            return lblManual[index];
        case Control::lblInvert:
            return lblInvert[index];
        case Control::lblTotalTime:
            return lblTotalTime[index];
        case Control::lblCounter:
            return lblCounter[index];
        case Control::StatusBar1:
            return StatusPanel[std::clamp(index, 1, 5) - 1];
        default:
            return nullptr;
    }
}

namespace {
QString MenuName(Control c) {
    switch (c) {
        case Control::mnuFileSave:
            return "mnuFileSave";
        case Control::mnuToolLogging:
            return "mnuToolLogging";
        case Control::mnuToolRunNoBoards:
            return "mnuToolRunNoBoards";
        case Control::mnuStateManualBoard:
            return "mnuStateManualBoard";
        case Control::mnuStateDisplayState:
            return "mnuStateDisplayState";
        case Control::mnuStateDisplayInput:
            return "mnuStateDisplayInput";
        case Control::mnuDisplayAddress:
            return "mnuDisplayAddress";
        case Control::mnuDev:
            return "mnuDev";
        case Control::mnuHelpTimeWin:
            return "mnuHelpTimeWin";
        default:
            return {};
    }
}
}  // namespace

void frmRelay::SetTitle(const std::string& text) {
    setWindowTitle(Q(text));
}

void frmRelay::SetText(Control c, int index, const std::string& text) {
    if (QAction* a = Menu(MenuName(c), index); a && !MenuName(c).isEmpty()) {
        a->setText(Q(text));
        return;
    }
    QWidget* w = Widget(c, index);
    if (auto* e = qobject_cast<QLineEdit*>(w))
        SetFieldText(e, text);
    else if (auto* l = qobject_cast<QLabel*>(w))
        SetCaption(l, text, LastText(c, index));
}

std::string frmRelay::Text(Control c, int index) const {
    if (QAction* a = Menu(MenuName(c), index); a && !MenuName(c).isEmpty()) return S(a->text());
    QWidget* w = Widget(c, index);
    if (auto* e = qobject_cast<QLineEdit*>(w)) return S(e->text());
    if (auto* l = qobject_cast<QLabel*>(w)) return S(l->text());
    return {};
}

void frmRelay::SetBackColor(Control c, int index, Color color) {
    QWidget* w = Widget(c, index);
    if (!w) return;
    if (c == Control::shpOnOffLight)
        shpOnOffLight[index]->SetColor(color);
    else if (qobject_cast<QLineEdit*>(w))
        SetRoleColor(w, QPalette::Base, color, LastColor(c, index));
    else
        SetRoleColor(w, QPalette::Window, color, LastColor(c, index));
}

void frmRelay::SetEnabled(Control c, int index, bool enabled) {
    if (QAction* a = Menu(MenuName(c), index); a && !MenuName(c).isEmpty()) {
        a->setEnabled(enabled);
        return;
    }
    if (QWidget* w = Widget(c, index)) w->setEnabled(enabled);
}

void frmRelay::SetChecked(Control c, int index, bool checked) {
    if (QAction* a = Menu(MenuName(c), index); a && !MenuName(c).isEmpty()) {
        a->setCheckable(true);
        a->setChecked(checked);
    }
}

void frmRelay::SetVisible(Control c, int index, bool visible) {
    if (QAction* a = Menu(MenuName(c), index); a && !MenuName(c).isEmpty()) {
        a->setVisible(visible);
        return;
    }
    if (QWidget* w = Widget(c, index)) w->setVisible(visible);
}

void frmRelay::ClearPicture(Control c, int index) {
    if (auto* l = qobject_cast<QLabel*>(Widget(c, index))) l->setPixmap(QPixmap());
}

bool frmRelay::LoadPicture(Control c, int index, const std::string& path, std::string& error) {
    QImageReader reader(Q(path));
    const QImage image = reader.read();
    if (image.isNull()) {
        error = S(reader.errorString());
        return false;
    }
    if (auto* l = qobject_cast<QLabel*>(Widget(c, index))) l->setPixmap(QPixmap::fromImage(image));
    return true;
}

void frmRelay::LoadResourcePicture(Control c, int index, int resourceId) {
    if (auto* l = qobject_cast<QLabel*>(Widget(c, index)))
        l->setPixmap(LoadIconResource(resourceId).pixmap(l->size()));
}

void frmRelay::SetWindowIcon(int resourceId) {
    setWindowIcon(LoadIconResource(resourceId));
}

void frmRelay::SetStatusFont(int size, bool bold) {
    QFont f = StatusBar1->font();
    f.setPointSize(size);
    f.setBold(bold);
    StatusPanel[4]->setFont(f);
}

void frmRelay::closeEvent(QCloseEvent* event) {
    if (ValidateBeforeCommand && !ValidateBeforeCommand()) {
        event->ignore();
        return;
    }
    if (QueryUnload && QueryUnload()) {
        event->ignore();
        return;
    }
    if (Unload) Unload();
    event->accept();
}

void frmRelay::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (Resized) Resized();
}

}  // namespace vantrellion
