#include "desktop/QtPlatform.h"

#include <time.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLayout>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QStringList>
#include <QStyle>
#include <QTimer>
#include <QTreeView>

#include "desktop/QtConvert.h"

namespace vantrellion {

// Each box's title and text, for a look at an unattended program (off unless switched on with
// QT_LOGGING_RULES="qt.vantrellion.messagebox=true").
Q_LOGGING_CATEGORY(lcMessageBox, "qt.vantrellion.messagebox", QtWarningMsg)

QtCheckTimer::QtCheckTimer() {
    timer_.setObjectName("tmrCheckTime");
    timer_.setInterval(900);
    timer_.setSingleShot(false);
}

void QtCheckTimer::SetEnabled(bool enabled) {
    if (enabled)
        timer_.start();
    else
        timer_.stop();
}

bool QtCheckTimer::IsEnabled() const {
    return timer_.isActive();
}

void QtEventPump::ProcessPendingEvents() {
    QCoreApplication::processEvents();
}

namespace {

// One message box; with ready, asked every intervalMs while the box is up, the box closes by
// itself once ready answers true, and nothing is answered.
std::optional<Answer> RunMessageBox(const MessageBoxRequest& r, const std::function<bool()>* ready,
                                    int intervalMs, bool& timedOut) {
    timedOut = false;
    qCDebug(lcMessageBox).noquote() << Q(r.Title) << "|" << Q(r.Prompt);
    QMessageBox box;
    box.setWindowTitle(Q(r.Title));
    // The system's line breaks are CR LF; Qt wants LF.
    box.setText(Q(r.Prompt).replace("\r\n", "\n"));
    switch (r.BoxIcon) {
        case Icon::Critical:
            box.setIcon(QMessageBox::Critical);
            break;
        case Icon::Question:
            box.setIcon(QMessageBox::Question);
            break;
        case Icon::Exclamation:
            box.setIcon(QMessageBox::Warning);
            break;
        case Icon::Information:
            box.setIcon(QMessageBox::Information);
            break;
        case Icon::None:
            box.setIcon(QMessageBox::NoIcon);
            break;
    }
    struct Choice {
        QMessageBox::StandardButton button;
        Answer answer;
    };
    std::vector<Choice> choices;
    switch (r.ButtonSet) {
        case Buttons::OK:
            choices = {{QMessageBox::Ok, Answer::OK}};
            break;
        case Buttons::OKCancel:
            choices = {{QMessageBox::Ok, Answer::OK}, {QMessageBox::Cancel, Answer::Cancel}};
            break;
        case Buttons::AbortRetryIgnore:
            choices = {{QMessageBox::Abort, Answer::Abort},
                       {QMessageBox::Retry, Answer::Retry},
                       {QMessageBox::Ignore, Answer::Ignore}};
            break;
        case Buttons::YesNoCancel:
            choices = {{QMessageBox::Yes, Answer::Yes},
                       {QMessageBox::No, Answer::No},
                       {QMessageBox::Cancel, Answer::Cancel}};
            break;
        case Buttons::YesNo:
            choices = {{QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}};
            break;
        case Buttons::RetryCancel:
            choices = {{QMessageBox::Retry, Answer::Retry}, {QMessageBox::Cancel, Answer::Cancel}};
            break;
    }
    QMessageBox::StandardButtons all;
    for (const Choice& c : choices)
        all |= c.button;
    box.setStandardButtons(all);
    for (size_t n = 0; n < choices.size() && n < r.ButtonTexts.size(); ++n)
        if (!r.ButtonTexts[n].empty()) box.button(choices[n].button)->setText(Q(r.ButtonTexts[n]));
    const size_t def = static_cast<size_t>(std::max(1, r.DefaultButton)) - 1;
    if (def < choices.size()) box.setDefaultButton(choices[def].button);
    bool becameReady = false;
    QTimer poll;
    if (ready) {
        QObject::connect(&poll, &QTimer::timeout, &box, [&] {
            if (!(*ready)()) return;
            becameReady = true;
            poll.stop();
            box.done(QMessageBox::NoButton);
        });
        poll.start(intervalMs);
    }
    // A box that holds the schedule answers by itself once its time is up.
    QTimer limit;
    if (r.TimeoutSeconds > 0) {
        limit.setSingleShot(true);
        QObject::connect(&limit, &QTimer::timeout, &box, [&] {
            timedOut = true;
            for (const Choice& c : choices)
                if (c.answer == r.TimeoutAnswer) box.done(c.button);
        });
        limit.start(r.TimeoutSeconds * 1000);
    }
    const auto pressed = static_cast<QMessageBox::StandardButton>(box.exec());
    if (becameReady) return std::nullopt;
    for (const Choice& c : choices)
        if (c.button == pressed) return c.answer;
    // Closed by the window's close button: the cancelling answer of the set.
    return choices.size() > 1 ? choices.back().answer : choices.front().answer;
}

}  // namespace

Answer QtMessageBoxes::Show(const MessageBoxRequest& r) {
    return *RunMessageBox(r, nullptr, 0, timedOut_);
}

std::optional<Answer> QtMessageBoxes::ShowUntil(const MessageBoxRequest& r,
                                                const std::function<bool()>& ready,
                                                int intervalMs) {
    return RunMessageBox(r, &ready, intervalMs, timedOut_);
}

QString QtFilterFromSystemFilter(const std::string& filter) {
    const QStringList parts = Q(filter).split('|');
    QStringList entries;
    for (int n = 0; n + 1 < parts.size(); n += 2) {
        QString patterns = parts[n + 1];
        patterns.replace(';', ' ');
        // The system's labels already name their patterns ("Run File (*.run)"): Qt shows
        // the label as it stands and reads the patterns from it, so they are added only to
        // a label without them.
        const QString label = parts[n].trimmed();
        entries << (label.endsWith("(" + patterns + ")") ? label : label + " (" + patterns + ")");
    }
    return entries.join(";;");
}

namespace {

// Qt's own file dialog opens at its small size hint, which hides all but the name column. It
// opens wide enough for every column of its list beside the side bar, and a little higher than
// its hint; the screen's limit is kept as for every window (desktop/WindowsOnScreen.h).
void SizeFileDialog(QFileDialog& dialog) {
    const QSize hint = dialog.sizeHint();
    int width = hint.width();
    const auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    const auto* sideBar = dialog.findChild<QWidget*>(QStringLiteral("sidebar"));
    if (list && sideBar) {
        const int frames = 2 * list->frameWidth() +
                           2 * sideBar->style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
        const int scrollBar = list->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        const QMargins margins = dialog.layout() ? dialog.layout()->contentsMargins() : QMargins();
        width = std::max(width, list->header()->length() + scrollBar + frames +
                                    sideBar->sizeHint().width() + margins.left() + margins.right() +
                                    3 * dialog.style()->pixelMetric(QStyle::PM_SplitterWidth));
    }
    dialog.resize(width, hint.height() * 5 / 4);
}

std::optional<std::string> RunDialog(const FileDialogRequest& r, QFileDialog::AcceptMode mode,
                                     const std::string& startDirectory) {
    const std::string& directory = r.InitialDirectory.empty() ? startDirectory : r.InitialDirectory;
    QFileDialog dialog(nullptr, Q(r.Title), Q(directory), QtFilterFromSystemFilter(r.Filter));
    dialog.setAcceptMode(mode);
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    if (mode == QFileDialog::AcceptOpen) {
        dialog.setFileMode((r.Flags & 0x1000) ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    } else {
        dialog.setFileMode(QFileDialog::AnyFile);
        dialog.setOption(QFileDialog::DontConfirmOverwrite, (r.Flags & 2) == 0);
    }
    if (!r.FileName.empty()) dialog.selectFile(Q(r.FileName));
    SizeFileDialog(dialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return S(dialog.selectedFiles().front());
}

}  // namespace

std::optional<std::string> QtFileDialogs::ShowOpen(const FileDialogRequest& r) {
    return RunDialog(r, QFileDialog::AcceptOpen, startDirectory);
}

std::optional<std::string> QtFileDialogs::ShowSave(const FileDialogRequest& r) {
    return RunDialog(r, QFileDialog::AcceptSave, startDirectory);
}

std::string UserDocumentsDirectory() {
    QString path = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (path.isEmpty()) path = QDir::homePath();
    QDir().mkpath(path);
    if (!path.endsWith('/')) path += '/';
    return S(path);
}

}  // namespace vantrellion
