#include "desktop/frmLogFilePath.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/ExistingDirectory.h"
#include "desktop/QtConvert.h"
#include "desktop/resources/clsLoadCustomResource.h"
#include "logging/LogFilePathChoice.h"

namespace vantrellion {

namespace {

constexpr int kWindowIcon = 230;

}  // namespace

frmLogFilePath::frmLogFilePath(System& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("frmLogFilePath");
    setWindowTitle("Select Location  for Log Files");
    setModal(true);
    setWindowIcon(LoadIconResource(kWindowIcon));  // a missing icon is simply not shown

    Text1 = new QLineEdit(this);
    Text1->setObjectName("Text1");
    Text1->setReadOnly(true);

    model_ = new QFileSystemModel(this);
    Dir1 = DirectoryTree(this, model_);

    cmdSelect = new QPushButton("Select", this);
    cmdSelect->setObjectName("cmdSelect");
    cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");
    for (QPushButton* b : {cmdSelect, cmdCancel})
        b->setAutoDefault(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Text1);
    layout->addWidget(Dir1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdSelect);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons);
    resize(420, 360);

    connect(Dir1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { Dir1_Change(); });
    connect(cmdSelect, &QPushButton::clicked, this, [this] {
        SelectLogFilePath(s_, ChosenPath);
        accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { reject(); });
    // The model reads directories in the background: the present directory can be scrolled
    // into view only once its parents are read, and again once the window has its size.
    // Rows arrive after a directory is read, and are sorted later still: each of these steps
    // may move the present directory, so each brings it back into view until it has been seen.
    connect(model_, &QFileSystemModel::directoryLoaded, this, [this] { ScrollToCurrent(); });
    connect(model_, &QAbstractItemModel::rowsInserted, this, [this] { ScrollToCurrent(); });
    connect(model_, &QAbstractItemModel::layoutChanged, this, [this] { ScrollToCurrent(); });
    Dir1->installEventFilter(this);
    Dir1->viewport()->installEventFilter(this);
    Dir1->verticalScrollBar()->installEventFilter(this);

    SetDir1Path(Q(LogFilePathStartDirectory(s_)));
    Dir1_Change();
}

void frmLogFilePath::SetDir1Path(const QString& path) {
    const QModelIndex index = model_->index(ExistingDirectory(path));
    if (!index.isValid()) return;
    Dir1->setCurrentIndex(index);
    Dir1->expand(index);
    Dir1->scrollTo(index);
}

void frmLogFilePath::ScrollToCurrent() {
    if (userMoved_ || !Dir1->currentIndex().isValid()) return;
    // Scrolling waits for the view's own pending layout, so it runs once the events in hand
    // are done.
    QTimer::singleShot(0, this, [this] {
        if (!userMoved_ && Dir1->currentIndex().isValid())
            Dir1->scrollTo(Dir1->currentIndex(), QAbstractItemView::PositionAtCenter);
    });
}

bool frmLogFilePath::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::KeyPress:
        case QEvent::Wheel:
            userMoved_ = true;
            break;
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

void frmLogFilePath::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    ScrollToCurrent();
}

QString frmLogFilePath::Dir1Path() const {
    const QModelIndex index = Dir1->currentIndex();
    return index.isValid() ? model_->filePath(index) : QString();
}

void frmLogFilePath::Dir1_Change() {
    ChosenPath = S(Dir1Path());
    Text1->setText(Q(ChosenPath));
}

}  // namespace vantrellion
