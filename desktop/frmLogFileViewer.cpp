#include "desktop/frmLogFileViewer.h"

#include <QCoreApplication>
#include <QFile>
#include <QFontDialog>
#include <QResizeEvent>
#include <QTextCharFormat>

#include "core/TextEncoding.h"
#include "desktop/PrinterChoice.h"
#include "desktop/QtConvert.h"
#include "desktop/clsPrintScreenOrForm.h"
#include "desktop/modShowSubForms.h"
#include "desktop/resources/clsLoadCustomResource.h"
#include "logging/LogFileMaintenance.h"

namespace vantrellion {

namespace {

constexpr int kWindowIcon = 235;
constexpr int kCloseAfterCancelMs = 500;
constexpr int kMarginTwips = 150;
constexpr qsizetype kLoadPiece = 64 * 1024;  // characters

// What the viewer shows and how it is worked, and how to read a log.
constexpr const char* kViewerHelp =
    "The Log File Viewer shows one log file, read-only. It opens on today's log; lines that "
    "the program writes while the viewer is open show when the file is opened again.\r\n"
    "\r\n"
    "File, Open: another log. There is one log a day, Vantrellion_YYYY_MM_DD.Log, in the log "
    "directory of the configuration.\r\n"
    "File, Print Window / Print Screen: a picture of this window, or of the screen.\r\n"
    "File, Print Log: the selected lines, or the whole log when nothing is selected.\r\n"
    "Edit, Font: the font of the selected text.\r\n"
    "EXIT, or File, Exit: closes the viewer. The schedule runs on meanwhile.\r\n"
    "\r\n"
    "A state line, once a minute: the time, the relays that are on (1 to 8, \"-\" for off), "
    "then the inputs that are on:\r\n"
    "    14:07:00 <1 - 3 - - - - 8>R><I<- 2 - - - - - ->I\r\n"
    "An event line: the time, the date, and \"Open\" or \"Save\" with the Run File, or "
    "\"ReStart\" after a crash.\r\n"
    "\r\n"
    "More in the user's manual: Help, User's Manual in the main window.";

bool QtFontDialog(QFont& font, QWidget* parent) {
    bool ok = false;
    const QFont chosen = QFontDialog::getFont(&ok, font, parent, "Select Font");
    if (ok) font = chosen;
    return ok;
}

}  // namespace

frmLogFileViewer::frmLogFileViewer(System& s, QWidget* parent)
    : QDialog(parent), ChooseFont(QtFontDialog), s_(s) {
    setObjectName("frmLogFileViewer");
    setWindowTitle("Log File Viewer");
    rtbViewLogs = new QPlainTextEdit(this);
    rtbViewLogs->setObjectName("rtbViewLogs");
    rtbViewLogs->setLineWrapMode(QPlainTextEdit::NoWrap);
    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
    Timer1->setSingleShot(true);
    Timer1->setTimerType(Qt::PreciseTimer);
    connect(Timer1, &QTimer::timeout, this, [this] { close(); });
    BuildMenus();
    resize(720, 480);
}

void frmLogFileViewer::BuildMenus() {
    menuBar = new QMenuBar(this);
    auto top = [this](const char* name, const char* caption) {
        QMenu* m = menuBar->addMenu(caption);
        m->setObjectName(name);
        m->menuAction()->setObjectName(name);
        return m;
    };
    auto item = [this](QMenu* menu, const char* name, const char* caption,
                       std::function<void()> does) {
        QAction* a = menu->addAction(caption);
        a->setObjectName(name);
        connect(a, &QAction::triggered, this, std::move(does));
    };
    QMenu* file = top("mnuFile", "File");
    item(file, "mnuFileOpen", "Open", [this] { OpenLogFile(); });
    item(file, "mnuFilePrintForm", "Print Window",
         [this] { clsPrintScreenOrForm(s_).mPrintForm(this); });
    item(file, "mnuFilePrintScreen", "Print Screen",
         [this] { clsPrintScreenOrForm(s_).mPrintScreen(this); });
    item(file, "mnuFilePrint", "Print Log", [this] { mnuFilePrint_Click(); });
    item(file, "mnuFileExit", "Exit", [this] { close(); });
    QMenu* edit = top("mnuEdit", "Edit");
    item(edit, "mnuEditFont", "Font", [this] { mnuEditFont_Click(); });
    QMenu* help = top("mnuHelp", "Help");
    item(help, "mnuHelpHelp", "Help (Viewer)", [this] {
        s_.Message({kViewerHelp, Buttons::OK, Icon::Information, 1, "Help (Viewer)"});
    });
    item(help, "mnuHelpAbout", "About", [this] { ShowAboutForm(s_); });
    // Two blank spacers stand before the bar's own EXIT entry.
    for (const char* name : {"mnuBlank1", "mnuBlank2"}) {
        QAction* blank = menuBar->addAction("      ");
        blank->setObjectName(name);
        blank->setEnabled(false);
    }
    QAction* exit = menuBar->addAction("&EXIT");
    exit->setObjectName("mnuEXIT");
    connect(exit, &QAction::triggered, this, [this] { close(); });
}

QAction* frmLogFileViewer::Menu(const QString& name) const {
    return findChild<QAction*>(name);
}

void frmLogFileViewer::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
}

void frmLogFileViewer::Form_Load() {
    setWindowIcon(LoadIconResource(kWindowIcon));
    rtbViewLogs->setReadOnly(true);
    QFont courier("Courier");
    courier.setStyleHint(QFont::TypeWriter);
    courier.setFixedPitch(true);
    courier.setPointSize(10);
    rtbViewLogs->setFont(courier);
    if (OpenLogFile()) {
        rtbViewLogs->update();
    } else {
        // A cancelled first dialog: the window closes half a second later, never used.
        Timer1->setInterval(kCloseAfterCancelMs);
        Timer1->start();
    }
}

bool frmLogFileViewer::OpenLogFile() {
    if (loading_) return false;  // an Open from a tick's yield while a file goes in
    const std::optional<std::string> chosen = s_.platform.dialogs->ShowOpen(LogFileOpenRequest(s_));
    if (!chosen) return false;
    setWindowTitle(Q(*chosen));
    if (!LoadText(Q(*chosen))) {
        s_.Message(UnreadableLogFileBox());
        return false;
    }
    return true;
}

bool frmLogFileViewer::LoadText(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) return false;
    // Log files have CR LF line ends; a line is UTF-8 where it is valid UTF-8, else Latin-1.
    QString text = QString::fromStdString(
        DecodeLogText(std::string_view(bytes.constData(), static_cast<size_t>(bytes.size()))));
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));

    // A log of several megabytes goes in by pieces of whole lines, with the timers served in
    // between, so that the tick goes on while it loads.
    loading_ = true;
    bool first = true;
    for (qsizetype from = 0; from <= text.size();) {
        qsizetype to = std::min(from + kLoadPiece, text.size());
        if (to < text.size()) {
            const qsizetype lineEnd = text.indexOf('\n', to);
            to = lineEnd < 0 ? text.size() : lineEnd;
        }
        const QString piece = text.mid(from, to - from);
        if (first)
            rtbViewLogs->setPlainText(piece);
        else
            rtbViewLogs->appendPlainText(piece);  // the line end at "to" starts the new block
        first = false;
        from = to + 1;
        if (from <= text.size())
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    rtbViewLogs->moveCursor(QTextCursor::Start);
    loading_ = false;
    return true;
}

void frmLogFileViewer::mnuEditFont_Click() {
    QFont font = rtbViewLogs->textCursor().charFormat().font();
    if (!ChooseFont(font, this)) return;
    QTextCharFormat format;
    format.setFontFamilies({font.family()});
    format.setFontPointSize(font.pointSizeF());
    format.setFontWeight(font.bold() ? QFont::Bold : QFont::Normal);
    format.setFontItalic(font.italic());
    format.setFontStrikeOut(font.strikeOut());
    format.setFontUnderline(font.underline());
    rtbViewLogs->mergeCurrentCharFormat(format);
    update();
}

void frmLogFileViewer::mnuFilePrint_Click() {
    PrintDocument(s_, this, rtbViewLogs->textCursor().hasSelection(), [this](QPrinter& printer) {
        rtbViewLogs->print(&printer);
        return true;
    });
}

void frmLogFileViewer::resizeEvent(QResizeEvent* event) {
    const int top = menuBar->sizeHint().height();
    const QSize inner = event->size();
    menuBar->setGeometry(0, 0, inner.width(), top);
    rtbViewLogs->setGeometry(0, top, std::max(0, inner.width() - Px(kMarginTwips)),
                             std::max(0, inner.height() - top - Px(kMarginTwips)));
    QDialog::resizeEvent(event);
}

}  // namespace vantrellion
