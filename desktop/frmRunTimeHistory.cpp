#include "desktop/frmRunTimeHistory.h"

#include <QCursor>
#include <QHBoxLayout>
#include <QSplitter>
#include <QToolTip>
#include <QVBoxLayout>

#include "desktop/EventGuard.h"
#include "desktop/QtConvert.h"
#include "desktop/RunTimeHistoryChart.h"

namespace vantrellion {

namespace {

QDate ToQDate(LocalSeconds t) {
    const DateTime d = FromLocalSeconds(t);
    return QDate(d.Year, d.Month, d.Day);
}

LocalSeconds FromQDate(const QDate& q) {
    DateTime d;
    d.Year = q.year();
    d.Month = q.month();
    d.Day = q.day();
    return ToLocalSeconds(d);
}

QDateEdit* DateEdit(QWidget* parent, const char* name) {
    auto* e = new QDateEdit(parent);
    e->setObjectName(name);
    e->setDisplayFormat("yyyy-MM-dd");
    e->setCalendarPopup(true);
    return e;
}

QPushButton* Button(QWidget* parent, const char* name, const char* caption) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

}  // namespace

frmRunTimeHistory::frmRunTimeHistory(System& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("frmRunTimeHistory");
    setWindowTitle("Run-time History");
    resize(1000, 760);

    dtpFrom = DateEdit(this, "dtpFrom");
    dtpTo = DateEdit(this, "dtpTo");
    cmdShow = Button(this, "cmdShow", "Show");
    cmdExportPng = Button(this, "cmdExportPng", "Export PNG...");
    cmdExportCsv = Button(this, "cmdExportCsv", "Export CSV...");
    chtHistory = new HistoryChartWidget(this);
    chtHistory->setObjectName("chtHistory");
    // Low enough that the window fits a small screen; the splitter gives the chart the most.
    chtHistory->setMinimumHeight(160);
    chtHistory->OnHover = [this](const HistoryBar* bar) { ShowBarValue(bar); };
    chtHistory->OnClick = [this](const HistoryBar& bar) {
        dtpDay->setDate(ToQDate(history_.Days[static_cast<size_t>(bar.Day)].Start));
    };
    lblHover = new QLabel(this);
    lblHover->setObjectName("lblHover");
    lblSummary = new QLabel(this);
    lblSummary->setObjectName("lblSummary");
    lblSummary->setWordWrap(true);
    dtpDay = DateEdit(this, "dtpDay");
    cmdExportDayPng = Button(this, "cmdExportDayPng", "Export Day PNG...");
    tlDay = new TimelineWidget(this);
    tlDay->setObjectName("tlDay");

    auto* top = new QHBoxLayout();
    top->addWidget(new QLabel("From", this));
    top->addWidget(dtpFrom);
    top->addWidget(new QLabel("To", this));
    top->addWidget(dtpTo);
    top->addWidget(cmdShow);
    top->addStretch(1);
    top->addWidget(cmdExportPng);
    top->addWidget(cmdExportCsv);
    auto* dayRow = new QHBoxLayout();
    dayRow->addWidget(new QLabel("Day", this));
    dayRow->addWidget(dtpDay);
    dayRow->addStretch(1);
    dayRow->addWidget(cmdExportDayPng);
    auto* dayPanel = new QWidget(this);
    auto* dayLayout = new QVBoxLayout(dayPanel);
    dayLayout->setContentsMargins(0, 0, 0, 0);
    dayLayout->addLayout(dayRow);
    dayLayout->addWidget(tlDay, 1);
    auto* split = new QSplitter(Qt::Vertical, this);
    split->addWidget(chtHistory);
    split->addWidget(dayPanel);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(split, 1);
    layout->addWidget(lblHover);
    layout->addWidget(lblSummary);

    // The last month up to today; the day view on today, or on the last day with a log.
    const LocalSeconds today = DayStart(ToLocalSeconds(s_.clock().Now()));
    dtpTo->setDate(ToQDate(today));
    dtpFrom->setDate(ToQDate(today - 30 * SecondsPerDay));
    cmdShow_Click();
    dtpDay->setDate(ToQDate(DayViewDay(history_, today)));

    connect(cmdShow, &QPushButton::clicked, this,
            [this] { RunCommand(s_, [this] { cmdShow_Click(); }); });
    connect(cmdExportPng, &QPushButton::clicked, this,
            [this] { RunCommand(s_, [this] { cmdExportPng_Click(); }); });
    connect(cmdExportCsv, &QPushButton::clicked, this,
            [this] { RunCommand(s_, [this] { cmdExportCsv_Click(); }); });
    connect(cmdExportDayPng, &QPushButton::clicked, this,
            [this] { RunCommand(s_, [this] { cmdExportDayPng_Click(); }); });
    connect(dtpDay, &QDateEdit::dateChanged, this,
            [this] { RunCommand(s_, [this] { dtpDay_Change(); }); });
    dtpDay_Change();
}

std::string frmRunTimeHistory::LogDirectory() const {
    const std::string& path = s_.modRelay.LogFilePath;
    return path.empty() || path == " " ? s_.platform.machineDirectory : path;
}

void frmRunTimeHistory::cmdShow_Click() {
    labels_ = HistoryLabelsFrom(s_.modRelay);
    LocalSeconds first = FromQDate(dtpFrom->date());
    LocalSeconds last = FromQDate(dtpTo->date());
    if (last < first) std::swap(first, last);
    // At most ten years at once, so that a slip of the year cannot make the window read for
    // minutes.
    first = std::max(first, last - 3660 * SecondsPerDay);
    history_ = ReadRunTimeHistory({LogDirectory(), first, last, ToLocalSeconds(s_.clock().Now())});

    chtHistory->SetHistory(history_, labels_);

    int missing = 0, restarts = 0;
    for (const HistoryDay& d : history_.Days) {
        missing += !d.FileFound;
        restarts += d.Restarts;
    }
    const LogReadCounts& c = history_.Counts;
    lblSummary->setText(QString("%1 days from %2, %3 without a log file, %4 restarts. %5 state "
                                "lines read; skipped %6 damaged, %7 foreign, %8 out of order.")
                            .arg(history_.Days.size())
                            .arg(Q(LogDirectory()))
                            .arg(missing)
                            .arg(restarts)
                            .arg(c.StateLines)
                            .arg(c.DamagedLines)
                            .arg(c.ForeignLines)
                            .arg(c.OutOfOrderLines));
    lblHover->clear();
}

void frmRunTimeHistory::dtpDay_Change() {
    labels_ = HistoryLabelsFrom(s_.modRelay);
    const LocalSeconds day = FromQDate(dtpDay->date());
    dayHistory_ = ReadRunTimeHistory({LogDirectory(), day, day, ToLocalSeconds(s_.clock().Now())});
    tlDay->SetTimeline(HistoryTimeline(dayHistory_, labels_, {day, day + SecondsPerDay}));
}

void frmRunTimeHistory::ShowBarValue(const HistoryBar* bar) {
    if (!bar) {
        QToolTip::hideText();
        return;
    }
    const QString text = HistoryBarText(history_, labels_, bar->Lane, bar->Day);
    lblHover->setText(text);
    QToolTip::showText(QCursor::pos(), text, chtHistory);
}

bool frmRunTimeHistory::Save(const ExportFileRequest& request,
                             const std::function<bool(const std::string&)>& write) {
    const std::optional<std::string> path = AskExportFileName(s_, request);
    if (!path) return false;
    if (write(*path)) return true;
    s_.Message({"The file could not be written:\r\n" + *path, Buttons::OK, Icon::Exclamation, 1,
                "Run-time History"});
    return false;
}

void frmRunTimeHistory::cmdExportPng_Click() {
    const std::string name = "history_" + IsoDate(history_.Range.From) + ".png";
    Save({"Export Chart", "PNG Picture (*.png)|*.png", name, ".png"},
         [this](const std::string& path) {
             return WriteHistoryChartPng(history_, labels_, Q(path),
                                         chtHistory->size().expandedTo({800, 480}));
         });
}

void frmRunTimeHistory::cmdExportDayPng_Click() {
    const LocalSeconds day = FromQDate(dtpDay->date());
    Save({"Export Day", "PNG Picture (*.png)|*.png", "day_" + IsoDate(day) + ".png", ".png"},
         [this](const std::string& path) {
             return WriteTimelinePng(tlDay->CurrentTimeline(), Q(path),
                                     tlDay->size().expandedTo({900, 360}));
         });
}

void frmRunTimeHistory::cmdExportCsv_Click() {
    const std::string name = "history_" + IsoDate(history_.Range.From) + ".csv";
    Save({"Export Figures", "CSV File (*.csv)|*.csv", name, ".csv"},
         [this](const std::string& path) {
             return WriteHistoryFile(path, HistoryCsv(history_, labels_));
         });
}

}  // namespace vantrellion
