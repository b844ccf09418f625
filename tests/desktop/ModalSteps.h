// Works the program's modal windows from a script, the way a user would once each comes up:
// every step names the window it waits for and what to do there. A step runs from the event
// loop, after its window is up, so that what it opens in turn (another modal window) can be
// worked by the next step.
#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace vantrellion::test {

class ModalSteps {
  public:
    std::vector<std::string> windows;  // the object names of the windows worked, in order

    ModalSteps() {
        timer_.setInterval(5);
        QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
        timer_.start();
    }
    // The next modal window of type W that comes up gets fn.
    template <class W>
    void On(std::function<void(W&)> fn) {
        steps_.push_back([fn](QWidget* modal) {
            auto* w = dynamic_cast<W*>(modal);
            if (!w) return false;
            fn(*w);
            return true;
        });
    }
    bool Done() const { return steps_.empty() && running_ == 0; }

  private:
    void Poll() {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || !modal->isVisible() || steps_.empty() || modal == busy_) return;
        auto step = steps_.front();
        busy_ = modal;
        ++running_;
        steps_.pop_front();
        // Run outside the timer's own call, so that the timer keeps polling while a window the
        // step opens is up.
        QTimer::singleShot(0, modal, [this, step, modal] {
            if (step(modal))
                windows.push_back(modal->objectName().toStdString());
            else
                steps_.push_front(step);
            if (busy_ == modal) busy_ = nullptr;
            --running_;
        });
    }

    QTimer timer_;
    std::deque<std::function<bool(QWidget*)>> steps_;
    QWidget* busy_ = nullptr;
    int running_ = 0;
};

}  // namespace vantrellion::test
