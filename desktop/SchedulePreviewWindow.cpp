#include "desktop/SchedulePreviewWindow.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QMetaObject>
#include <QPointer>
#include <QVBoxLayout>
#include <fstream>

#include "desktop/QtConvert.h"
#include "preview/PreviewReport.h"

namespace vantrellion {

namespace {

constexpr int SpanDays[] = {1, 7, 30};

QSize ExportSize(const Timeline& t) {
    return {1400, 64 + 40 * static_cast<int>(t.Lanes.size())};
}

QDateTime ToQDateTime(LocalSeconds t) {
    const DateTime d = FromLocalSeconds(t);
    return QDateTime(QDate(d.Year, d.Month, d.Day), QTime(d.Hour, d.Minute, d.Second));
}

LocalSeconds FromQDateTime(const QDateTime& q) {
    const QDate d = q.date();
    const QTime t = q.time();
    return ToLocalSeconds(DateTime{d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second(),
                                   d.dayOfWeek() % 7 + 1});
}

}  // namespace

SchedulePreviewWindow::SchedulePreviewWindow(System& s, QWidget* parent) : QDialog(parent), s_(s) {
    setWindowTitle("Schedule Preview");
    auto* layout = new QVBoxLayout(this);

    auto* choices = new QHBoxLayout;
    choices->addWidget(new QLabel("Span:", this));
    span = new QComboBox(this);
    span->addItems({"1 day", "7 days", "30 days"});
    span->setCurrentIndex(1);
    choices->addWidget(span);
    choices->addSpacing(12);
    fromNow = new QRadioButton("From now", this);
    fromDate = new QRadioButton("From", this);
    fromNow->setChecked(true);
    date = new QDateTimeEdit(this);
    date->setDisplayFormat("yyyy-MM-dd HH:mm:ss");
    date->setCalendarPopup(true);
    date->setDateTime(ToQDateTime(ToLocalSeconds(s_.clock().Now())));
    date->setEnabled(false);
    choices->addWidget(fromNow);
    choices->addWidget(fromDate);
    choices->addWidget(date);
    refresh = new QPushButton("Preview", this);
    choices->addWidget(refresh);
    choices->addStretch(1);
    auto* png = new QPushButton("Export PNG...", this);
    auto* svg = new QPushButton("Export SVG...", this);
    auto* csv = new QPushButton("Export CSV...", this);
    png->setObjectName("exportPng");
    svg->setObjectName("exportSvg");
    csv->setObjectName("exportCsv");
    choices->addWidget(png);
    choices->addWidget(svg);
    choices->addWidget(csv);
    layout->addLayout(choices);

    timeline = new TimelineWidget(this);
    layout->addWidget(timeline, 1);
    warnings = new QListWidget(this);
    warnings->setMaximumHeight(110);
    layout->addWidget(warnings);
    status = new QLabel(this);
    layout->addWidget(status);

    connect(fromDate, &QRadioButton::toggled, date, &QWidget::setEnabled);
    connect(refresh, &QPushButton::clicked, this, [this] { Recompute(); });
    connect(span, &QComboBox::currentIndexChanged, this, [this] { Recompute(); });
    connect(fromNow, &QRadioButton::toggled, this, [this] { Recompute(); });
    connect(png, &QPushButton::clicked, this, [this] { ExportPng(); });
    connect(svg, &QPushButton::clicked, this, [this] { ExportSvg(); });
    connect(csv, &QPushButton::clicked, this, [this] { ExportCsv(); });
    resize(1200, 520);
}

SchedulePreviewWindow::~SchedulePreviewWindow() {
    StopWorker();
}

void SchedulePreviewWindow::StopWorker() {
    if (cancel_) cancel_->store(true);
    if (worker_.joinable()) worker_.join();
}

void SchedulePreviewWindow::Recompute() {
    StopWorker();
    const DateTime present = s_.clock().Now();
    const LocalSeconds now = ToLocalSeconds(present);
    PreviewRequest request;
    request.From = fromDate->isChecked() ? FromQDateTime(date->dateTime()) : now;
    request.Length = static_cast<LocalSeconds>(SpanDays[std::max(0, span->currentIndex())]) * 86400;
    request.StartTick = TickCountAt(request.From, now, s_.clock().MonotonicMs());

    status->setText("Computing...");
    done_ = false;
    cancel_ = std::make_shared<std::atomic<bool>>(false);
    QPointer<SchedulePreviewWindow> self(this);
    worker_ = std::thread([self, cancel = cancel_, snapshot = TakeSnapshot(s_), request] {
        QElapsedTimer clock;
        clock.start();
        PreviewResult result = RunPreview(snapshot, request, cancel.get());
        const double seconds = static_cast<double>(clock.elapsed()) / 1000.0;
        if (result.Cancelled) return;
        // Back on the window's thread; a window closed meanwhile gets nothing.
        QMetaObject::invokeMethod(
            self.data(),
            [self, result = std::move(result), seconds]() mutable {
                if (self) self->ShowResult(std::move(result), seconds);
            },
            Qt::QueuedConnection);
    });
}

void SchedulePreviewWindow::ShowResult(PreviewResult result, double seconds) {
    done_ = true;
    timeline->SetTimeline(PreviewTimeline(result));
    warnings->clear();
    for (const PreviewWarning& w : result.Warnings)
        warnings->addItem(Q(w.Text));
    if (result.Warnings.empty()) warnings->addItem("No warnings.");
    status->setText(QString("%1 evaluations from %2 to %3 in %4 s")
                        .arg(result.Evaluations)
                        .arg(Q(PreviewTimeText(result.Range.From)))
                        .arg(Q(PreviewTimeText(result.Range.To)))
                        .arg(seconds, 0, 'f', 2));
    result_ = std::move(result);
}

std::optional<std::string> SchedulePreviewWindow::AskFileName(const std::string& title,
                                                              const std::string& filter,
                                                              const std::string& extension) {
    if (!result_ || !s_.platform.dialogs) return std::nullopt;
    FileDialogRequest r;
    r.Title = title;
    r.Filter = filter;
    r.InitialDirectory = s_.modRelay.DataFilePath;
    r.FileName = "preview" + extension;
    r.Flags = 2;  // ask before overwriting
    auto name = s_.platform.dialogs->ShowSave(r);
    if (!name || name->empty()) return std::nullopt;
    return name;
}

bool SchedulePreviewWindow::ExportPng() {
    const auto name = AskFileName("Export Picture", "PNG Picture (*.png)|*.png", ".png");
    if (!name) return false;
    const Timeline t = PreviewTimeline(*result_);
    const bool ok = WriteTimelinePng(t, Q(*name), ExportSize(t));
    status->setText(ok ? "Written: " + Q(*name) : "Could not write " + Q(*name));
    return ok;
}

bool SchedulePreviewWindow::ExportSvg() {
    const auto name = AskFileName("Export Picture", "SVG Picture (*.svg)|*.svg", ".svg");
    if (!name) return false;
    const Timeline t = PreviewTimeline(*result_);
    const bool ok = WriteTimelineSvg(t, Q(*name), ExportSize(t));
    status->setText(ok ? "Written: " + Q(*name) : "Could not write " + Q(*name));
    return ok;
}

bool SchedulePreviewWindow::ExportCsv() {
    const auto name = AskFileName("Export Switch Times", "CSV File (*.csv)|*.csv", ".csv");
    if (!name) return false;
    std::ofstream f(*name, std::ios::binary | std::ios::trunc);
    if (f) f << PreviewCsv(*result_);
    f.flush();
    const bool ok = static_cast<bool>(f);
    status->setText(ok ? "Written: " + Q(*name) : "Could not write " + Q(*name));
    return ok;
}

}  // namespace vantrellion
