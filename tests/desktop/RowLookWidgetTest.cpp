// How the main window shows the rows: every caption fits its control in the run-time fonts,
// a stopped row's texts stay legible, a tick lays out nothing, and the file dialogs' filters.
#include <gtest/gtest.h>

#include <QFontMetrics>
#include <cmath>

#include "desktop/QtPlatform.h"
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

// Each text a row control can show, measured in the control's own font, against the room
// the control has for its text.
TEST_F(RowLookWidgetTest, EveryCaptionTheRowsCanShowFits) {
    int measured = 0;
    for (const RowCaptions& family : RowCaptionsByControl()) {
        const QList<QWidget*> controls = w->findChildren<QWidget*>(family.control);
        ASSERT_EQ(controls.size(), family.control == QString("txtStartTime") ||
                                           family.control == QString("txtEndTime")
                                       ? 48
                                       : 8)
            << family.control;
        for (const QWidget* control : controls) {
            const QFontMetrics metrics(control->font());
            EXPECT_GE(control->font().pointSizeF(), 5.0) << family.control;
            for (const QString& text : family.texts) {
                EXPECT_LE(metrics.horizontalAdvance(text), TextRoom(control))
                    << family.control << " \"" << text.toStdString() << "\"";
                ++measured;
            }
        }
    }
    EXPECT_GT(measured, 300);
}

// WCAG's contrast ratio of two colours, 1 to 21.
double Contrast(const QColor& a, const QColor& b) {
    const auto luminance = [](const QColor& c) {
        const auto channel = [](double v) {
            return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * channel(c.redF()) + 0.7152 * channel(c.greenF()) +
               0.0722 * channel(c.blueF());
    };
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

TEST_F(RowLookWidgetTest, AStoppedRowsTextsStayLegible) {
    t.relay(3).HardStop = True;
    FillRowsFromRecords(t.s);
    CheckTimeTick(t.s);
    ASSERT_FALSE(w->lblManual[3]->isEnabled());
    for (QLabel* l : {w->lblManual[3], w->lblInvert[3], w->lblCounter[3]}) {
        const QPalette& p = l->palette();
        EXPECT_GE(Contrast(p.color(QPalette::Disabled, QPalette::WindowText),
                           p.color(QPalette::Disabled, QPalette::Window)),
                  4.5)
            << l->objectName().toStdString();
    }
    const QPalette& code = w->txtDayHrEvenOdd[3]->palette();
    EXPECT_GE(Contrast(code.color(QPalette::Disabled, QPalette::Text),
                       code.color(QPalette::Disabled, QPalette::Base)),
              4.5);
}

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

TEST(FileDialogFilter, EachPatternIsShownOnce) {
    const std::pair<const char*, const char*> cases[] = {
        {"Run File (*.run)|*.run", "Run File (*.run)"},
        {"Run File (*.run)|*.run|Text File (*.txt)|*.txt", "Run File (*.run);;Text File (*.txt)"},
        {"Icons (*.ico)|*.ico|All File (*.*)|*.*", "Icons (*.ico);;All File (*.*)"},
        {"Logs|*.Log;*.txt", "Logs (*.Log *.txt)"},
    };
    for (const auto& [system, qt] : cases)
        EXPECT_EQ(QtFilterFromSystemFilter(system).toStdString(), qt) << system;
}

}  // namespace
}  // namespace vantrellion::test
