// Message boxes that never hold an unattended controller for long. A box shown while the check
// timer is off stops the schedule until someone answers it; on a machine that runs alone no
// one may come. Such a box closes by itself after two minutes with the answer that keeps the
// schedule and the user's work (UnattendedAnswer), and a line in the log names the box and the
// answer. While the box waits, the clock panel says that the schedule is not running.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

inline constexpr int HeldBoxTimeoutSeconds = 120;

class TimeLimitedBoxes : public MessageBoxes {
  public:
    TimeLimitedBoxes(System& s, MessageBoxes& shown) : s_(s), shown_(shown) {}
    Answer Show(const MessageBoxRequest& request) override;
    std::optional<Answer> ShowUntil(const MessageBoxRequest& request,
                                    const std::function<bool()>& ready, int intervalMs) override;
    bool LastTimedOut() const override { return shown_.LastTimedOut(); }

  private:
    // The request as shown: time-limited when it holds the schedule.
    MessageBoxRequest Limited(const MessageBoxRequest& request) const;
    void LogWhenTimedOut(const MessageBoxRequest& request, Answer answer);

    System& s_;
    MessageBoxes& shown_;
};

}  // namespace vantrellion
