#include "core/Platform.h"

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace vantrellion {

std::string ShortDateText(const DateTime& d) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", d.Month, d.Day, d.Year);
    return buf;
}

std::string TimeText(int secondsOfDay) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d:%02d:%02d", secondsOfDay / 3600, secondsOfDay / 60 % 60,
                  secondsOfDay % 60);
    return buf;
}

namespace {

// The answers of a button set, in button order.
std::vector<Answer> AnswersOf(Buttons set) {
    switch (set) {
        case Buttons::OK:
            return {Answer::OK};
        case Buttons::OKCancel:
            return {Answer::OK, Answer::Cancel};
        case Buttons::AbortRetryIgnore:
            return {Answer::Abort, Answer::Retry, Answer::Ignore};
        case Buttons::YesNoCancel:
            return {Answer::Yes, Answer::No, Answer::Cancel};
        case Buttons::YesNo:
            return {Answer::Yes, Answer::No};
        case Buttons::RetryCancel:
            return {Answer::Retry, Answer::Cancel};
    }
    return {Answer::OK};
}

}  // namespace

Answer DefaultAnswer(const MessageBoxRequest& r) {
    const std::vector<Answer> answers = AnswersOf(r.ButtonSet);
    const size_t n = static_cast<size_t>(std::max(1, r.DefaultButton)) - 1;
    return n < answers.size() ? answers[n] : answers.front();
}

Answer UnattendedAnswer(const MessageBoxRequest& r) {
    const std::vector<Answer> answers = AnswersOf(r.ButtonSet);
    if (std::find(answers.begin(), answers.end(), Answer::Cancel) != answers.end())
        return Answer::Cancel;
    return DefaultAnswer(r);
}

const char* AnswerText(Answer a) {
    switch (a) {
        case Answer::OK:
            return "OK";
        case Answer::Cancel:
            return "Cancel";
        case Answer::Abort:
            return "Abort";
        case Answer::Retry:
            return "Retry";
        case Answer::Ignore:
            return "Ignore";
        case Answer::Yes:
            return "Yes";
        case Answer::No:
            return "No";
    }
    return "OK";
}

int64_t BootTimeMs() {
    timespec ts{};
    clock_gettime(CLOCK_BOOTTIME, &ts);
    return int64_t{ts.tv_sec} * 1000 + ts.tv_nsec / 1000000;
}

std::string AnswerCaption(const MessageBoxRequest& r, Answer a) {
    const std::vector<Answer> answers = AnswersOf(r.ButtonSet);
    for (size_t n = 0; n < answers.size() && n < r.ButtonTexts.size(); ++n)
        if (answers[n] == a && !r.ButtonTexts[n].empty()) return r.ButtonTexts[n];
    return AnswerText(a);
}

}  // namespace vantrellion
