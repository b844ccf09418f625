#include "logging/TimeLimitedBoxes.h"

#include "logging/EventLog.h"

namespace vantrellion {

MessageBoxRequest TimeLimitedBoxes::Limited(const MessageBoxRequest& request) const {
    MessageBoxRequest r = request;
    const bool holdsSchedule = s_.platform.timer && !s_.timer().IsEnabled();
    if (holdsSchedule && r.TimeoutSeconds == 0) {
        r.TimeoutSeconds = HeldBoxTimeoutSeconds;
        r.TimeoutAnswer = UnattendedAnswer(r);
        if (s_.platform.display) s_.display().SetStatusTime("Not running");
    }
    return r;
}

void TimeLimitedBoxes::LogWhenTimedOut(const MessageBoxRequest& request, Answer answer) {
    if (!shown_.LastTimedOut()) return;
    std::string prompt = request.Prompt;
    const size_t lineEnd = prompt.find_first_of("\r\n");
    if (lineEnd != std::string::npos) prompt = prompt.substr(0, lineEnd) + " ...";
    WriteEventLog(s_, "Box",
                  "\"" + request.Title + ": " + prompt + "\" answered \"" +
                      AnswerCaption(request, answer) + "\" after " +
                      std::to_string(HeldBoxTimeoutSeconds / 60) + " minutes");
}

Answer TimeLimitedBoxes::Show(const MessageBoxRequest& request) {
    const Answer a = shown_.Show(Limited(request));
    LogWhenTimedOut(request, a);
    return a;
}

std::optional<Answer> TimeLimitedBoxes::ShowUntil(const MessageBoxRequest& request,
                                                  const std::function<bool()>& ready,
                                                  int intervalMs) {
    const std::optional<Answer> a = shown_.ShowUntil(Limited(request), ready, intervalMs);
    if (a) LogWhenTimedOut(request, *a);
    return a;
}

}  // namespace vantrellion
