// A tick that changes no size lays out nothing in the main window.
#include <gtest/gtest.h>

#include "engine/Tick.h"
#include "tests/desktop/RowWindowFixture.h"

namespace vantrellion::test {
namespace {

class RowLookWidgetTest : public RowWindowTest {
  protected:
    void SetUp() override {
        RowWindowTest::SetUp();
        w->ApplyRunTimeFonts();
    }
};

// Counts the layout passes that Qt asks for anywhere in the program.
class LayoutRequests : public QObject {
  public:
    std::vector<std::string> receivers;
    LayoutRequests() { qApp->installEventFilter(this); }
    ~LayoutRequests() override { qApp->removeEventFilter(this); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest)
            receivers.push_back(watched->metaObject()->className() + std::string(" ") +
                                watched->objectName().toStdString());
        return false;
    }
};

// The clock, the totals and the status words change at ticks; none of that changes a size,
// so none of it may lay out the window again.
TEST_F(RowLookWidgetTest, ATickThatChangesNoSizeLaysOutNothing) {
    t.SetPair(1, 0, "08:00", "17:00");
    t.clock.SetTime(9, 0, 0);
    CheckTimeTick(t.s);
    // The window settles after its first tick: every layout pass it asked for is done.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QCoreApplication::processEvents();
    LayoutRequests layouts;
    t.clock.SetTime(9, 0, 1);
    t.relay(2).Manual = True;
    t.relay(4).HardStop = True;
    CheckTimeTick(t.s);
    QCoreApplication::processEvents();
    EXPECT_EQ(w->StatusPanel[1]->text(), "09:00:01");
    EXPECT_EQ(w->lblTotalTime[2]->text(), ">Manual<");
    EXPECT_EQ(w->lblTotalTime[4]->text(), "> STOP <");
    EXPECT_EQ(layouts.receivers, std::vector<std::string>{});
}

}  // namespace
}  // namespace vantrellion::test
