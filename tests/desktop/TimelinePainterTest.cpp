// The timeline drawing: lanes where the layout says and the group colour exactly where a relay
// is on, gaps shaded.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "desktop/QtConvert.h"
#include "desktop/TimelinePainter.h"

namespace vantrellion {
namespace {

constexpr LocalSeconds Start = 1794614400;  // 2026-11-14 00:00:00
constexpr LocalSeconds Hour = 3600;

Timeline TwoDays() {
    Timeline t;
    t.Range = {Start, Start + 48 * Hour};
    t.Lanes = {
        {"Pump", Rgb(200, 0, 0), {{Start + 8 * Hour, Start + 10 * Hour}}, {}, {}},
        {"Lights", Rgb(0, 150, 0), {{Start + 20 * Hour, Start + 30 * Hour}}, {}, {}},
        {"Fan", Rgb(0, 0, 220), {}, {}, {}},
    };
    t.Gaps = {{Start + 40 * Hour, Start + 44 * Hour}};
    return t;
}

TEST(TimelinePainter, LanesCarryTheGroupColourExactlyWhereTheRelayIsOn) {
    const Timeline t = TwoDays();
    const QSize size(960, 240);
    const QImage img = RenderTimeline(t, size);
    QImage probe(1, 1, QImage::Format_RGB32);
    QPainter fmPainter(&probe);
    const TimelineLayout l = LayoutTimeline(QRect(QPoint(0, 0), size), t, fmPainter.fontMetrics());
    fmPainter.end();

    ASSERT_EQ(l.LaneCount, 3);
    EXPECT_GT(l.Plot.left(), l.Names.left());  // names at the left of the lanes
    EXPECT_GT(l.Plot.top(), l.Axis.top());     // the axis above them
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(l.LaneAt(l.LaneRect(i).center()), i);
        if (i > 0) {
            EXPECT_GT(l.LaneRect(i).top(), l.LaneRect(i - 1).top());
        }
    }

    struct Case {
        int lane;
        LocalSeconds at;
        bool on;
    };
    const Case cases[] = {
        {0, Start + 9 * Hour, true},         {0, Start + 7 * Hour, false},
        {0, Start + 11 * Hour, false},       {1, Start + 24 * Hour, true},  // across midnight
        {1, Start + 29 * Hour + 1800, true}, {1, Start + 31 * Hour, false},
        {2, Start + 9 * Hour, false},        {0, Start + 20 * Hour + 1800, false},
    };
    for (const Case& c : cases) {
        const TimelineLane& lane = t.Lanes[static_cast<size_t>(c.lane)];
        const int x = l.XOf(c.at);
        const int y = l.LaneRect(c.lane).center().y();
        const QColor px = img.pixelColor(x, y);
        EXPECT_EQ(px == ToQColor(lane.GroupColor), c.on)
            << lane.Name << " at " << TimelineTimeText(c.at).toStdString() << " is "
            << px.name().toStdString();
    }
    // The gap is shaded: neither the lane's off colour nor any group colour.
    const QColor inGap = img.pixelColor(l.XOf(Start + 42 * Hour) + 1, l.LaneRect(2).center().y());
    const QColor offColour =
        img.pixelColor(l.XOf(Start + 3 * Hour) + 1, l.LaneRect(2).center().y());
    EXPECT_NE(inGap, offColour);
    EXPECT_LT(inGap.lightness(), offColour.lightness());
}

}  // namespace
}  // namespace vantrellion
