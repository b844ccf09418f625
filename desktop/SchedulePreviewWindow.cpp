#include "desktop/SchedulePreviewWindow.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QMetaObject>
#include <QPointer>
#include <QVBoxLayout>
#include <fstream>

#include "core/DateTimeText.h"
#include "core/ExportFileName.h"
#include "desktop/QtConvert.h"
#include "preview/PreviewReport.h"

namespace vantrellion {

namespace {

constexpr int SpanDays[] = {1, 7, 30};

QSize ExportSize(const Timeline& t) {
    return {1400, 64 + 40 * static_cast<int>(t.Lanes.size())};
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
    // The start as typed, in the forms the command line takes; Preview or Enter takes it.
    date = new QLineEdit(Q(DateTimeText(ToLocalSeconds(s_.clock().Now()))), this);
    date->setObjectName("txtFrom");
    date->setToolTip(QString("The first second of the preview: ") + DateTimeForms);
    date->setMinimumWidth(date->fontMetrics().horizontalAdvance("0000-00-00 00:00:00") + 16);
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
    connect(date, &QLineEdit::returnPressed, this, [this] { Recompute(); });
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
    const LocalSeconds now = ToLocalSeconds(s_.clock().Now());
    std::optional<LocalSeconds> from = now;
    if (fromDate->isChecked()) from = ParseDateTimeText(S(date->text()));
    if (!from) {
        status->setText(
            QString("Not a date and time: \"%1\". Give %2.").arg(date->text(), DateTimeForms));
        return;
    }
    StopWorker();
    PreviewRequest request;
    request.From = *from;
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
                        .arg(Q(DateTimeText(result.Range.From)))
                        .arg(Q(DateTimeText(result.Range.To)))
                        .arg(seconds, 0, 'f', 2));
    result_ = std::move(result);
}

std::optional<std::string> SchedulePreviewWindow::AskFileName(const std::string& title,
                                                              const std::string& filter,
                                                              const std::string& extension) {
    if (!result_) return std::nullopt;
    return AskExportFileName(s_, {title, filter, "preview" + extension, extension});
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
