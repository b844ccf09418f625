#include "history/RunTimeHistory.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "logging/LogFileName.h"
#include "logging/PauseLogLines.h"

namespace vantrellion {

namespace {

// Adds [from, to) to a sorted list of spans, joining it to the last one when they touch.
void Append(std::vector<TimeSpan>& spans, LocalSeconds from, LocalSeconds to) {
    if (to <= from) return;
    if (!spans.empty() && spans.back().To >= from) {
        spans.back().To = std::max(spans.back().To, to);
        return;
    }
    spans.push_back({from, to});
}

// Turns the stream of state lines into spans. Lines arrive in the order of time; each one's
// states hold until the next one, or for StateLineHold when the next is far off.
class HistoryBuilder {
  public:
    explicit HistoryBuilder(RunTimeHistory& h) : h_(h) {}

    void AddState(LocalSeconds t, const LogLine& line, bool counted) {
        if (line.RelayGroups == 0) {
            // Such a line says the program ran, but not what the relays did.
            if (counted) ++h_.Counts.NoRelayLines;
            return;
        }
        if (have_ && t <= last_) {
            if (counted) ++h_.Counts.OutOfOrderLines;
            return;
        }
        if (counted) ++h_.Counts.StateLines;
        if (have_) Cover(last_, t - last_ <= MaxStateLineStep ? t : last_ + StateLineHold);
        have_ = true;
        last_ = t;
        relayBits_ = line.RelayBits;
        inputBits_ = line.InputBits;
        h_.Relays = std::max(h_.Relays, line.RelayGroups * 8);
        h_.Inputs = std::max(h_.Inputs, line.InputGroups * 8);
    }

    void Finish() {
        if (have_) Cover(last_, last_ + StateLineHold);
        LocalSeconds at = h_.Range.From;
        for (const TimeSpan& k : known_) {
            Append(h_.Gaps, at, k.From);
            at = k.To;
        }
        Append(h_.Gaps, at, h_.Range.To);
    }

    const std::vector<TimeSpan>& Known() const { return known_; }

    // A pause's start or end line: the relay's pause runs from its start line to its end line,
    // or to the end its start line names when no end line follows.
    void AddPause(LocalSeconds t, const PauseLogEntry& e) {
        if (e.Record < 0 || e.Record >= MaxLoggedLanes) return;
        OpenPause& open = pauses_[static_cast<size_t>(e.Record)];
        if (open.running) ClosePause(e.Record, std::min(t, open.until));
        open = {e.Start, t, e.Until};
    }

    void FinishPauses() {
        for (int n = 0; n < MaxLoggedLanes; ++n)
            if (pauses_[static_cast<size_t>(n)].running)
                ClosePause(n, pauses_[static_cast<size_t>(n)].until);
    }

  private:
    void Cover(LocalSeconds from, LocalSeconds to) {
        from = std::max(from, h_.Range.From);
        to = std::min(to, h_.Range.To);
        if (to <= from) return;
        Append(known_, from, to);
        for (int n = 0; n < MaxLoggedLanes; ++n) {
            if (relayBits_ & (1u << n)) Append(h_.RelayOn[n], from, to);
            if (inputBits_ & (1u << n)) Append(h_.InputOn[n], from, to);
        }
    }

    struct OpenPause {
        bool running = false;
        LocalSeconds from = 0, until = 0;
    };

    void ClosePause(int n, LocalSeconds to) {
        OpenPause& open = pauses_[static_cast<size_t>(n)];
        Append(h_.RelayPaused[n], std::max(open.from, h_.Range.From), std::min(to, h_.Range.To));
        open.running = false;
    }

    RunTimeHistory& h_;
    std::array<OpenPause, MaxLoggedLanes> pauses_{};
    std::vector<TimeSpan> known_;
    bool have_ = false;
    LocalSeconds last_ = 0;
    uint32_t relayBits_ = 0, inputBits_ = 0;
};

// Feeds every line of one day's file to the builder. counted is false for the day before
// the range, which is read only for the states at the first midnight. False when the file
// is missing or not a regular file (a directory, a pipe or a device by that name is never
// read, so it cannot hang the reader).
bool ReadDayFile(const std::string& path, LocalSeconds day, bool counted, HistoryBuilder& builder,
                 RunTimeHistory& h) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return false;
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        return false;
    }
    auto take = [&](std::string_view text) {
        const LogLine line = ParseLogLine(text);
        const LocalSeconds at = day + line.SecondsOfDay;
        switch (line.Kind) {
            case LogLineKind::State:
                builder.AddState(at, line, counted);
                break;
            case LogLineKind::Event:
                // A pause may have begun the day before the range.
                if (const auto pause = ParsePauseEvent(line.First, line.Second))
                    builder.AddPause(at, *pause);
                if (!counted) break;
                ++h.Counts.EventLines;
                h.Events.push_back({at, std::string(line.First), std::string(line.Second)});
                break;
            case LogLineKind::Listing:
                h.Counts.ListingLines += counted;
                break;
            case LogLineKind::Foreign:
                h.Counts.ForeignLines += counted;
                break;
            case LogLineKind::Damaged:
                h.Counts.DamagedLines += counted;
                break;
            case LogLineKind::Blank:
                break;
        }
    };
    // Read in blocks; a line may run across blocks. A very long line (no line end in a
    // megabyte of a foreign file) is cut and counted as what its pieces look like.
    constexpr size_t Block = 1 << 20;
    std::string buffer;
    buffer.reserve(Block * 2);
    std::string chunk(Block, '\0');
    for (;;) {
        const ssize_t n = ::read(fd, chunk.data(), Block);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        buffer.append(chunk.data(), static_cast<size_t>(n));
        size_t start = 0;
        for (size_t nl; (nl = buffer.find('\n', start)) != std::string::npos; start = nl + 1)
            take(std::string_view(buffer).substr(start, nl - start));
        buffer.erase(0, start);
        if (buffer.size() > Block) {
            take(buffer);
            buffer.clear();
        }
    }
    // The last line without its line end: whole if it parses, cut otherwise.
    if (!buffer.empty()) take(buffer);
    ::close(fd);
    return true;
}

// Adds the length of every span to the day it falls in, split at midnights.
template <typename Add>
void SplitIntoDays(const std::vector<TimeSpan>& spans, LocalSeconds firstDay, size_t days,
                   Add add) {
    for (const TimeSpan& span : spans) {
        for (LocalSeconds from = span.From; from < span.To;) {
            const LocalSeconds dayStart = DayStart(from);
            const LocalSeconds to = std::min(span.To, dayStart + SecondsPerDay);
            const LocalSeconds index = (dayStart - firstDay) / SecondsPerDay;
            if (index >= 0 && static_cast<size_t>(index) < days)
                add(static_cast<size_t>(index), to - from);
            from = to;
        }
    }
}

}  // namespace

LocalSeconds DayStart(LocalSeconds t) {
    const LocalSeconds r = t % SecondsPerDay;
    return t - (r < 0 ? r + SecondsPerDay : r);
}

std::string LogFileNameOfDay(LocalSeconds day) {
    return LogFileNameForDate(ShortDateText(FromLocalSeconds(day)));
}

RunTimeHistory ReadRunTimeHistory(const HistoryRequest& request) {
    RunTimeHistory h;
    const LocalSeconds first = DayStart(request.FirstDay);
    const LocalSeconds last = std::max(first, DayStart(request.LastDay));
    h.Range = {first, std::max(first, std::min(last + SecondsPerDay, request.Now))};
    const std::string& dir = request.LogDirectory;

    HistoryBuilder builder(h);
    ReadDayFile(dir + LogFileNameOfDay(first - SecondsPerDay), first - SecondsPerDay, false,
                builder, h);
    for (LocalSeconds day = first; day <= last; day += SecondsPerDay) {
        HistoryDay d;
        d.Start = day;
        d.FileFound = ReadDayFile(dir + LogFileNameOfDay(day), day, true, builder, h);
        ++(d.FileFound ? h.Counts.FilesRead : h.Counts.FilesMissing);
        h.Days.push_back(d);
    }
    builder.Finish();
    builder.FinishPauses();

    const size_t days = h.Days.size();
    for (int n = 0; n < MaxLoggedLanes; ++n) {
        SplitIntoDays(h.RelayOn[n], first, days,
                      [&](size_t i, LocalSeconds s) { h.Days[i].RelayOnSeconds[n] += s; });
        SplitIntoDays(h.InputOn[n], first, days,
                      [&](size_t i, LocalSeconds s) { h.Days[i].InputOnSeconds[n] += s; });
    }
    SplitIntoDays(builder.Known(), first, days,
                  [&](size_t i, LocalSeconds s) { h.Days[i].KnownSeconds += s; });
    SplitIntoDays(h.Gaps, first, days,
                  [&](size_t i, LocalSeconds s) { h.Days[i].GapSeconds += s; });
    for (const LogEvent& e : h.Events) {
        const LocalSeconds index = (DayStart(e.At) - first) / SecondsPerDay;
        if (e.First == "ReStart" && index >= 0 && static_cast<size_t>(index) < days)
            ++h.Days[static_cast<size_t>(index)].Restarts;
    }
    return h;
}

}  // namespace vantrellion
