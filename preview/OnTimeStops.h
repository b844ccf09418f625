// The warning for a relay whose on-time drops to nothing from some day of the span on: a
// cycle that stops giving on-time, a rule that stops matching. A day counts only where the
// relay's schedule could give it on-time at all, so a relay that is off on the weekend by its
// days of the week, off on even days by its code, or whose pairs lie outside the part of the
// first or last day that the span covers, does not warn.
#pragma once

#include "preview/SchedulePreview.h"

namespace vantrellion {

// Adds a warning of kind OnTimeStops for each relay that had on-time on some day and then
// none on every day after it that its schedule could give on-time to, when those days are
// more than any run of such days without on-time before. Days after an end or a cancel do
// not count.
void AddOnTimeStopWarnings(const ScheduleSnapshot& schedule, PreviewResult& result);

}  // namespace vantrellion
