// The message box that waits on something: it asks again while it is up and closes by itself
// once the answer is yes; a button pressed before that is the answer.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include "desktop/QtPlatform.h"

namespace vantrellion {
namespace {

TEST(WaitingBox, ClosesByItselfOnceReadyOrAnswersTheButtonPressed) {
    QtMessageBoxes boxes;
    const MessageBoxRequest request{"The configuration store is locked", Buttons::AbortRetryIgnore,
                                    Icon::Exclamation, 2, "Vantrellion"};
    int looks = 0;
    const auto readyAtTheThird = [&] { return ++looks >= 3; };
    EXPECT_EQ(boxes.ShowUntil(request, readyAtTheThird, 10), std::nullopt);
    EXPECT_EQ(looks, 3);

    // Never ready: Ignore pressed on the box while it waits.
    QTimer::singleShot(50, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text().toStdString(), "The configuration store is locked");
        box->button(QMessageBox::Ignore)->click();
    });
    EXPECT_EQ(boxes.ShowUntil(
                  request, [] { return false; }, 10),
              Answer::Ignore);
}

}  // namespace
}  // namespace vantrellion
