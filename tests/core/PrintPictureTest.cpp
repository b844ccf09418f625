#include <gtest/gtest.h>

#include "core/PrintPicture.h"

namespace vantrellion {
namespace {

TEST(PrintPicture, WindowScalesDownOnlyWhenWiderThanThePageAndTheScreenAlwaysFillsIt) {
    struct Case {
        double printer, width, height;
        PictureSize form, screen;
    };
    const Case cases[] = {
        // wider than the page: scaled to the page width, in proportion
        {11520, 15360, 9000, {11520, 6750}, {11520, 6750}},
        // narrower: the window at its own size, the screen stretched to the page width
        {11520, 7200, 3000, {7200, 3000}, {11520, 4800}},
        // exactly the page width counts as narrower: no scaling
        {11520, 11520, 600, {11520, 600}, {11520, 600}},
        // halves round to even
        {3, 4, 2, {3, 2}, {3, 2}},      // 1.5 -> 2
        {5, 8, 4, {5, 2}, {5, 2}},      // 2.5 -> 2
        {100, 0, 0, {0, 0}, {100, 0}},  // an empty picture stays whole
    };
    for (const Case& c : cases) {
        EXPECT_EQ(PrintFormPictureSize(c.printer, c.width, c.height), c.form) << c.width;
        EXPECT_EQ(PrintScreenPictureSize(c.printer, c.width, c.height), c.screen) << c.width;
    }
}

}  // namespace
}  // namespace vantrellion
