#include "desktop/frmLogFilePath.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
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

QString frmLogFilePath::Dir1Path() const {
    const QModelIndex index = Dir1->currentIndex();
    return index.isValid() ? model_->filePath(index) : QString();
}

void frmLogFilePath::Dir1_Change() {
    ChosenPath = S(Dir1Path());
    Text1->setText(Q(ChosenPath));
}

}  // namespace vantrellion
