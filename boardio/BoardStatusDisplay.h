// The row display with the boards' state laid over it: the lights of a board without contact
// take the no-contact colour, and a board's state text says when it has no contact or runs
// emulated for a connection text that cannot be used; a board without inputs (a USB relay
// card) says so in its input text. Everything else passes through unchanged.
#pragma once

#include "boardio/BoardSet.h"
#include "core/SharedState.h"

namespace vantrellion {

// Amber, unlike every colour of the configuration's defaults.
inline constexpr Color NoContactColor = 0x0000A5FF;

class BoardStatusDisplay : public RowDisplay {
  public:
    // inner, s and boards must outlive this object.
    BoardStatusDisplay(RowDisplay& inner, const System& s, const BoardSet& boards)
        : inner_(inner), s_(s), boards_(boards) {}

    void SetOnOffLight(int i, Color c) override {
        inner_.SetOnOffLight(i, boards_.NoContact(i / RelaysPerBoard) ? NoContactColor : c);
    }
    void SetStateDisplayCaption(int b, const std::string& text) override {
        const std::string status = boards_.Status(s_, b);
        inner_.SetStateDisplayCaption(b, status.empty() ? text : status + ": " + text);
    }
    void SetInputDisplayCaption(int b, const std::string& text) override {
        inner_.SetInputDisplayCaption(b, boards_.HasInputs(s_, b) ? text : "no inputs");
    }

    void SetTimePairBackground(int k, Color c) override { inner_.SetTimePairBackground(k, c); }
    void SetDayHrEvenOddBackground(int i, Color c) override {
        inner_.SetDayHrEvenOddBackground(i, c);
    }
    void SetManualBackground(int i, Color c) override { inner_.SetManualBackground(i, c); }
    void SetInvertBackground(int i, Color c) override { inner_.SetInvertBackground(i, c); }
    void SetInvertCaption(int i, const std::string& t) override { inner_.SetInvertCaption(i, t); }
    void SetTotalTimeBackground(int i, Color c) override { inner_.SetTotalTimeBackground(i, c); }
    void SetTotalTimeCaption(int i, const std::string& t) override {
        inner_.SetTotalTimeCaption(i, t);
    }
    void SetCounterBackground(int i, Color c) override { inner_.SetCounterBackground(i, c); }
    void SetCounterCaption(int i, const std::string& t) override { inner_.SetCounterCaption(i, t); }
    bool IsMinimized() const override { return inner_.IsMinimized(); }
    void SetStatusTime(const std::string& t) override { inner_.SetStatusTime(t); }
    void SetTimeWindowCaption(const std::string& t) override { inner_.SetTimeWindowCaption(t); }

  private:
    RowDisplay& inner_;
    const System& s_;
    const BoardSet& boards_;
};

}  // namespace vantrellion
