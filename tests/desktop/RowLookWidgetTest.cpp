// A stopped row's texts stay legible in the run-time fonts.
#include <gtest/gtest.h>

#include <cmath>

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

}  // namespace
}  // namespace vantrellion::test
