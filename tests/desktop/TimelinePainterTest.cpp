// The timeline drawing: lanes where the layout says, the group colour exactly where a relay is
// on, gaps shaded, files written, and the hover text of a lane.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QPainter>

#include "desktop/QtConvert.h"
#include "desktop/TimelinePainter.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

constexpr LocalSeconds Start = 1794614400;  // 2026-11-14 00:00:00
constexpr LocalSeconds Hour = 3600;

Timeline TwoDays() {
    Timeline t;
    t.Range = {Start, Start + 48 * Hour};
    t.Lanes = {
        {"Pump", Rgb(200, 0, 0), {{Start + 8 * Hour, Start + 10 * Hour}}},
        {"Lights", Rgb(0, 150, 0), {{Start + 20 * Hour, Start + 30 * Hour}}},
        {"Fan", Rgb(0, 0, 220), {}},
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

// The midnight line stops short of the midnight's "00:00" label, and an hour label that would
// run past the right edge is left out, not cut.
TEST(TimelinePainter, AxisLabelsAreNeitherCrossedNorCut) {
    Timeline t = TwoDays();
    t.Range.To = Start + 45 * Hour + 600;  // "21:00" of the second day would end past the edge
    const QSize size(960, 240);
    const QImage img = RenderTimeline(t, size);
    QImage probe(1, 1, QImage::Format_RGB32);
    QPainter fmPainter(&probe);
    const QFontMetrics fm = fmPainter.fontMetrics();
    const TimelineLayout l = LayoutTimeline(QRect(QPoint(0, 0), size), t, fm);
    fmPainter.end();

    const int hourTextY = l.Axis.top() + fm.ascent() + 1 + fm.height() + 1;
    const int x = l.XOf(Start + 24 * Hour);
    const QRgb dayLine = qRgb(110, 110, 110);
    int crossing = 0;
    for (int y = hourTextY - fm.ascent() + 1; y < hourTextY; ++y)
        crossing += img.pixel(x, y) == dayLine;
    EXPECT_EQ(crossing, 0);
    EXPECT_EQ(img.pixel(x, l.Axis.top() + 1), dayLine);  // the line is there above the label
    EXPECT_EQ(img.pixel(x, l.Plot.top() - 1), dayLine);  // and below it

    int cut = 0;
    for (int y = hourTextY - fm.ascent(); y <= hourTextY; ++y)
        for (int col = l.Plot.right() - 1; col < size.width(); ++col)
            cut += qGray(img.pixel(col, y)) < 160;
    EXPECT_EQ(cut, 0);
}

TEST(TimelinePainter, TimeAndPositionMapBothWays) {
    const Timeline t = TwoDays();
    TimelineLayout l;
    l.Range = t.Range;
    l.Plot = QRect(100, 40, 480, 200);
    l.Names = QRect(4, 40, 96, 200);
    l.LaneCount = 3;
    EXPECT_EQ(l.XOf(Start), 100);
    EXPECT_EQ(l.XOf(Start + 24 * Hour), 340);
    EXPECT_EQ(l.XOf(Start - Hour), 100);  // clamped
    EXPECT_EQ(l.TimeAt(340), Start + 24 * Hour);
    EXPECT_EQ(l.TimeAt(9999), t.Range.To);
    EXPECT_EQ(l.LaneAt(QPoint(50, 45)), 0);  // over a name
    EXPECT_EQ(l.LaneAt(QPoint(200, 239)), 2);
    EXPECT_EQ(l.LaneAt(QPoint(200, 20)), -1);  // the axis
}

TEST(TimelinePainter, HoverTextListsTheSpansNearestTheMouse) {
    TimelineLane lane{"Pump", 0, {}};
    EXPECT_EQ(LaneSwitchTimesText(lane, Start).toStdString(), "Pump\nnever on");
    for (int d = 0; d < 20; ++d)
        lane.On.push_back({Start + d * 24 * Hour + 8 * Hour, Start + d * 24 * Hour + 9 * Hour});
    const QString text = LaneSwitchTimesText(lane, Start + 10 * 24 * Hour + 8 * Hour + 5, 3);
    EXPECT_EQ(text.toStdString(),
              "Pump\n"
              "on  2026-11-23 08:00:00   off 2026-11-23 09:00:00\n"
              "on  2026-11-24 08:00:00   off 2026-11-24 09:00:00\n"
              "on  2026-11-25 08:00:00   off 2026-11-25 09:00:00\n"
              "(10 to 12 of 20 on-spans)");

    TimelineWidget w;
    w.resize(800, 200);
    Timeline t = TwoDays();
    w.SetTimeline(t);
    const TimelineLayout l = w.Layout();
    const QString tip = w.ToolTipAt(QPoint(l.XOf(Start + 9 * Hour), l.LaneRect(0).center().y()));
    EXPECT_TRUE(tip.contains("on  2026-11-14 08:00:00   off 2026-11-14 10:00:00"))
        << tip.toStdString();
    EXPECT_TRUE(w.ToolTipAt(QPoint(l.Plot.center().x(), l.Axis.center().y())).isEmpty());
}

TEST(TimelinePainter, WritesPngAndSvgAndRefusesAnUnwritablePath) {
    test::TempDir dir;
    const Timeline t = TwoDays();
    const QString png = QString::fromStdString(dir.File("week.png"));
    const QString svg = QString::fromStdString(dir.File("week.svg"));
    ASSERT_TRUE(WriteTimelinePng(t, png, {640, 200}));
    EXPECT_EQ(QImage(png).size(), QSize(640, 200));
    ASSERT_TRUE(WriteTimelineSvg(t, svg, {640, 200}));
    QFile f(svg);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray content = f.readAll();
    EXPECT_TRUE(content.contains("<svg")) << content.left(200).toStdString();
    EXPECT_TRUE(content.contains("Lights"));

    const QString missing = QString::fromStdString(dir.File("no/such/dir/x"));
    EXPECT_FALSE(WriteTimelinePng(t, missing + ".png", {640, 200}));
    EXPECT_FALSE(WriteTimelineSvg(t, missing + ".svg", {640, 200}));
}

}  // namespace
}  // namespace vantrellion
