#include "desktop/ExistingDirectory.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QScrollBar>
#include <QTimer>

namespace vantrellion {

QString ExistingDirectory(const QString& path) {
    QString dir = QDir::cleanPath(QDir(path).absolutePath());
    while (!QFileInfo(dir).isDir()) {
        const QString parent = QFileInfo(dir).path();
        if (parent == dir) return QDir::rootPath();
        dir = parent;
    }
    return dir;
}

namespace {

// The model reads directories in the background: the current directory can be scrolled into
// view only once its parents are read, and again once the window has its size. Rows arrive
// after a directory is read, and are sorted later still: each of these steps may move the
// current directory, so each brings it back into view until the user moves in the tree.
class CurrentInView : public QObject {
  public:
    CurrentInView(QTreeView* tree, QFileSystemModel* model) : QObject(tree), tree_(tree) {
        connect(model, &QFileSystemModel::directoryLoaded, this, [this] { Scroll(); });
        connect(model, &QAbstractItemModel::rowsInserted, this, [this] { Scroll(); });
        connect(model, &QAbstractItemModel::layoutChanged, this, [this] { Scroll(); });
        // The window sets the current directory after the tree is made, often at its showing.
        connect(tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this] { Scroll(); });
        for (QObject* watched :
             {static_cast<QObject*>(tree), static_cast<QObject*>(tree->viewport()),
              static_cast<QObject*>(tree->verticalScrollBar())})
            watched->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::KeyPress:
            case QEvent::Wheel:
                userMoved_ = true;
                break;
            case QEvent::Show:
                if (watched == tree_) Scroll();
                break;
            default:
                break;
        }
        return false;
    }

  private:
    void Scroll() {
        if (userMoved_ || !tree_->currentIndex().isValid()) return;
        // Scrolling waits for the view's own pending layout, so it runs once the events in
        // hand are done.
        QTimer::singleShot(0, this, [this] {
            if (!userMoved_ && tree_->currentIndex().isValid())
                tree_->scrollTo(tree_->currentIndex(), QAbstractItemView::PositionAtCenter);
        });
    }

    QTreeView* tree_;
    bool userMoved_ = false;
};

}  // namespace

QTreeView* DirectoryTree(QWidget* parent, QFileSystemModel* model) {
    model->setFilter(QDir::AllDirs | QDir::Drives | QDir::Hidden | QDir::NoDotAndDotDot);
    model->setRootPath(QDir::rootPath());
    auto* tree = new QTreeView(parent);
    tree->setObjectName("Dir1");
    tree->setModel(model);
    tree->setHeaderHidden(true);
    for (int column = 1; column < model->columnCount(); ++column)
        tree->hideColumn(column);
    new CurrentInView(tree, model);
    return tree;
}

}  // namespace vantrellion
