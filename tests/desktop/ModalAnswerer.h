// Answers the program's real modal windows (message boxes and file dialogs) from a script, the
// way a user would: it watches for the active modal window and presses its buttons.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace vantrellion::test {

class ModalAnswerer {
  public:
    struct Seen {
        QString title, text;
    };
    std::vector<Seen> boxes;            // every message box met, in order
    std::vector<QString> dialogTitles;  // every file dialog met

    ModalAnswerer() {
        timer_.setInterval(5);
        QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
        timer_.start();
    }
    // The next message box is answered with this button.
    void Box(QMessageBox::StandardButton b) { script_.push_back({Kind::Box, b, {}}); }
    // The next file dialog chooses this file, or is cancelled with nullopt.
    void File(std::optional<QString> path) {
        script_.push_back({Kind::File, QMessageBox::NoButton, std::move(path)});
    }
    bool Done() const { return script_.empty(); }
    std::vector<std::string> Texts() const {
        std::vector<std::string> out;
        for (const Seen& s : boxes)
            out.push_back(s.text.toStdString());
        return out;
    }

  private:
    enum class Kind { Box, File };
    struct Step {
        Kind kind;
        QMessageBox::StandardButton button;
        std::optional<QString> path;
    };

    void Poll() {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || !modal->isVisible()) return;
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            boxes.push_back({box->windowTitle(), box->text()});
            QMessageBox::StandardButton b = QMessageBox::Ok;
            if (!script_.empty() && script_.front().kind == Kind::Box) {
                b = script_.front().button;
                script_.pop_front();
            }
            if (QAbstractButton* button = box->button(b))
                button->click();
            else
                box->done(QMessageBox::Cancel);
        } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
            dialogTitles.push_back(dialog->windowTitle());
            std::optional<QString> path;
            if (!script_.empty() && script_.front().kind == Kind::File) {
                path = script_.front().path;
                script_.pop_front();
            }
            if (path) {
                dialog->selectFile(*path);
                QMetaObject::invokeMethod(dialog, "accept");
            } else {
                dialog->reject();
            }
        }
    }

    QTimer timer_;
    std::deque<Step> script_;
};

}  // namespace vantrellion::test
