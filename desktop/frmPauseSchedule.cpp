#include "desktop/frmPauseSchedule.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/QtConvert.h"

namespace vantrellion {

frmPauseSchedule::frmPauseSchedule(System& s, QWidget* parent) : QDialog(parent), presenter_(s) {
    setObjectName("frmPauseSchedule");
    setWindowTitle(PauseWindowTitle);
    setModal(true);

    auto* relays = new QGroupBox("Relays to pause", this);
    auto* grid = new QGridLayout(relays);
    const int count = presenter_.RelayCount();
    for (int i = 0; i < count; ++i) {
        auto* box = new QCheckBox(Q(presenter_.RelayCaption(i)), relays);
        box->setObjectName("chkRelay");
        chkRelay.push_back(box);
        grid->addWidget(box, i % ((count + 1) / 2), i / ((count + 1) / 2));
    }

    const PauseChoice initial = presenter_.Initial();
    auto* end = new QGroupBox("Follow the schedule again", this);
    auto* endGrid = new QGridLayout(end);
    optHours = new QRadioButton("after this many hours:", end);
    optHours->setObjectName("optHours");
    txtHours = new QLineEdit(Q(initial.HoursText), end);
    txtHours->setObjectName("txtHours");
    optUntil = new QRadioButton("at this date and time (YYYY-MM-DD HH:MM):", end);
    optUntil->setObjectName("optUntil");
    txtUntil = new QLineEdit(Q(initial.UntilText), end);
    txtUntil->setObjectName("txtUntil");
    optHours->setChecked(initial.ForHours);
    optUntil->setChecked(!initial.ForHours);
    endGrid->addWidget(optHours, 0, 0);
    endGrid->addWidget(txtHours, 0, 1);
    endGrid->addWidget(optUntil, 1, 0);
    endGrid->addWidget(txtUntil, 1, 1);
    // Typing in a field chooses it.
    connect(txtHours, &QLineEdit::textEdited, optHours, [this] { optHours->setChecked(true); });
    connect(txtUntil, &QLineEdit::textEdited, optUntil, [this] { optUntil->setChecked(true); });

    cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(
        new QLabel("The chosen relays stay off until the pause ends; Manual and "
                   "Hard Stop still act on them.",
                   this));
    layout->addWidget(relays);
    layout->addWidget(end);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (presenter_.Apply(Choice())) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { reject(); });
}

PauseChoice frmPauseSchedule::Choice() const {
    PauseChoice c;
    for (size_t i = 0; i < chkRelay.size(); ++i)
        if (chkRelay[i]->isChecked()) c.Relays |= 1u << i;
    c.ForHours = optHours->isChecked();
    c.HoursText = S(txtHours->text());
    c.UntilText = S(txtUntil->text());
    return c;
}

}  // namespace vantrellion
