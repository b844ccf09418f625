#include "desktop/frmLogFileDelete.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/ExistingDirectory.h"
#include "desktop/QtConvert.h"
#include "desktop/resources/clsLoadCustomResource.h"
#include "logging/LogFileMaintenance.h"
#include "logging/LogFilePathChoice.h"

namespace vantrellion {

namespace {

constexpr int kWindowIcon = 225;
// Run-time error numbers of the open test.
constexpr int kErrFileNotFound = 53;
constexpr int kErrPathFileAccess = 75;

QString UserDataHome() {
    const QString xdg = qEnvironmentVariable("XDG_DATA_HOME");
    return QDir::isAbsolutePath(xdg) ? xdg : QDir::homePath() + "/.local/share";
}

// A trash directory of the freedesktop kind: the user's own, or one at the top of another file
// system (".Trash/<uid>" or ".Trash-<uid>").
bool IsTrashDirectory(const QString& trash) {
    const QString name = QFileInfo(trash).fileName();
    return QDir::cleanPath(trash) == QDir::cleanPath(UserDataHome() + "/Trash") ||
           name.startsWith(".Trash") || QFileInfo(QFileInfo(trash).path()).fileName() == ".Trash";
}

}  // namespace

int32_t RecycleFile(const QString& path, QString* error) {
    auto fail = [error](int32_t result, const QString& why) {
        if (error) *error = why;
        return result;
    };
    // Without the data directory Qt would make a trash under the current directory instead.
    QDir().mkpath(UserDataHome());
    QFile file(path);
    if (!file.moveToTrash())
        return fail(
            file.error() != QFileDevice::NoError ? file.error() : QFileDevice::UnspecifiedError,
            file.errorString());
    const QString inTrash = file.fileName();  // where the move put it
    const QFileInfo landed(inTrash);
    const QDir files = landed.dir();
    const QString trash = QFileInfo(files.path()).path();
    const QString info = trash + "/info/" + landed.fileName() + ".trashinfo";
    if (files.dirName() != "files" || !IsTrashDirectory(trash) || !landed.exists() ||
        !QFileInfo::exists(info))
        return fail(QFileDevice::RenameError, "The file went to " + inTrash + ", not to a trash.");
    return 0;
}

frmLogFileDelete::frmLogFileDelete(System& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("frmLogFileDelete");
    setWindowTitle("Delete Log File(s)");

    model_ = new QFileSystemModel(this);
    Dir1 = DirectoryTree(this, model_);

    File1 = new QListWidget(this);
    File1->setObjectName("File1");
    File1->setSelectionMode(QAbstractItemView::ExtendedSelection);

    cmdDelete = new QPushButton("Delete", this);
    cmdDelete->setObjectName("cmdDelete");
    cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");
    cmdExit = new QPushButton("Exit", this);
    cmdExit->setObjectName("cmdExit");
    for (QPushButton* b : {cmdDelete, cmdCancel, cmdExit})
        b->setAutoDefault(false);

    auto* lists = new QHBoxLayout;
    lists->addWidget(Dir1, 1);
    lists->addWidget(File1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdDelete);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdExit);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists, 1);
    layout->addLayout(buttons);
    resize(640, 380);

    connect(Dir1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { Dir1_Change(); });
    connect(File1, &QListWidget::itemClicked, this, [this] { cmdDelete->setEnabled(true); });
    connect(cmdDelete, &QPushButton::clicked, this, [this] { cmdDelete_Click(); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { close(); });
    connect(cmdExit, &QPushButton::clicked, this, [this] { close(); });
}

void frmLogFileDelete::showEvent(QShowEvent* event) {
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
    QDialog::showEvent(event);
}

void frmLogFileDelete::Form_Load() {
    setWindowIcon(LoadIconResource(kWindowIcon));
    cmdDelete->setEnabled(false);
    SetDir1Path(Q(LogFilePathStartDirectory(s_)));
    Dir1_Change();
}

void frmLogFileDelete::SetDir1Path(const QString& path) {
    const QModelIndex index = model_->index(ExistingDirectory(path));
    if (!index.isValid()) return;
    Dir1->setCurrentIndex(index);
    Dir1->expand(index);
    Dir1->scrollTo(index);
}

QString frmLogFileDelete::Dir1Path() const {
    const QModelIndex index = Dir1->currentIndex();
    return index.isValid() ? model_->filePath(index) : QString();
}

void frmLogFileDelete::Dir1_Change() {
    SetFile1Path(Dir1Path());
    cmdDelete->setEnabled(false);
}

void frmLogFileDelete::SetFile1Path(const QString& path) {
    file1Path_ = Q(DirectoryWithSeparator(S(path)));
    RefreshFile1();
    cmdDelete->setEnabled(false);  // the list's path change
}

void frmLogFileDelete::RefreshFile1() {
    File1->clear();
    for (const std::string& name : ListLogFiles(S(file1Path_)))
        File1->addItem(Q(name));
}

void frmLogFileDelete::cmdDelete_Click() {
    for (int i = 0; i < File1->count(); ++i) {
        const QListWidgetItem* entry = File1->item(i);
        if (!entry->isSelected()) continue;
        const QString path = Q(LogFileDeletePath(S(file1Path_), S(entry->text())));
        QFile test(path);
        if (!test.open(QIODevice::ReadOnly)) {
            const int number = QFileInfo::exists(path) ? kErrPathFileAccess : kErrFileNotFound;
            s_.Message(DefaultErrorBox(S(path + ": " + test.errorString()), number, AppTitle));
            continue;
        }
        test.close();
        QString why;
        if (const int32_t result = RecycleFile(path, &why); result != 0)
            s_.Message(DefaultErrorBox(S(path + ": " + why), result, AppTitle));
    }
    RefreshFile1();
    cmdDelete->setEnabled(false);
    cmdCancel->setFocus();
}

}  // namespace vantrellion
