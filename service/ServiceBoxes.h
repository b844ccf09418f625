// The message boxes of a program that no one watches. Each box takes at once the answer that
// the desktop program's boxes take after two minutes unattended (UnattendedAnswer: the one
// that keeps the schedule running and nothing lost). Its text goes to stderr at the box's
// level, and a line of the daily log names the box and the answer.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

class ServiceBoxes : public MessageBoxes {
  public:
    explicit ServiceBoxes(System& s) : s_(s) {}
    Answer Show(const MessageBoxRequest& request) override;
    // The last box shown, for a start that ends on its answer.
    const MessageBoxRequest& Last() const { return last_; }
    int Count() const { return count_; }

  private:
    System& s_;
    MessageBoxRequest last_;
    int count_ = 0;
};

}  // namespace vantrellion
