#include "desktop/frmDaysOff.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/QtConvert.h"

namespace vantrellion {

frmDaysOff::frmDaysOff(System& s, QWidget* parent) : QDialog(parent), editor_(s) {
    setObjectName("frmDaysOff");
    setWindowTitle(DaysOffWindowTitle);
    setModal(true);

    lstDaysOff = new QListWidget(this);
    lstDaysOff->setObjectName("lstDaysOff");
    cmdRemove = new QPushButton("Remove", this);
    cmdRemove->setObjectName("cmdRemove");

    auto* entry = new QGroupBox("New day off", this);
    auto* form = new QFormLayout;
    txtFirstDate = new QLineEdit(entry);
    txtFirstDate->setObjectName("txtFirstDate");
    txtFirstDate->setPlaceholderText("YYYY-MM-DD");
    txtLastDate = new QLineEdit(entry);
    txtLastDate->setObjectName("txtLastDate");
    txtLastDate->setPlaceholderText("empty for a single day");
    chkEveryYear = new QCheckBox("Every year", entry);
    chkEveryYear->setObjectName("chkEveryYear");
    txtNote = new QLineEdit(entry);
    txtNote->setObjectName("txtNote");
    form->addRow("First date:", txtFirstDate);
    form->addRow("Last date:", txtLastDate);
    form->addRow("", chkEveryYear);
    form->addRow("Note:", txtNote);
    auto* relays = new QGridLayout;
    const int count = editor_.RelayCount();
    for (int i = 0; i < count; ++i) {
        auto* box = new QCheckBox(Q(editor_.RelayCaption(i)), entry);
        box->setObjectName("chkRelay");
        chkRelay.push_back(box);
        relays->addWidget(box, i % ((count + 1) / 2), i / ((count + 1) / 2));
    }
    cmdAdd = new QPushButton("Add", entry);
    cmdAdd->setObjectName("cmdAdd");
    auto* entryLayout = new QVBoxLayout(entry);
    entryLayout->addLayout(form);
    entryLayout->addLayout(relays);
    entryLayout->addWidget(cmdAdd, 0, Qt::AlignRight);

    cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");
    for (QPushButton* b : {cmdRemove, cmdAdd, cmdOK, cmdCancel})
        b->setAutoDefault(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstDaysOff, 1);
    layout->addWidget(cmdRemove, 0, Qt::AlignRight);
    layout->addWidget(entry);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons);
    resize(460, 520);

    connect(cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    connect(cmdRemove, &QPushButton::clicked, this, [this] {
        editor_.Remove(lstDaysOff->currentRow());
        FillList();
    });
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        editor_.Apply();
        accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { reject(); });
    FillList();
}

void frmDaysOff::FillList() {
    lstDaysOff->clear();
    for (int n = 0; n < static_cast<int>(editor_.Entries().size()); ++n)
        lstDaysOff->addItem(Q(editor_.EntryText(n)));
    cmdRemove->setEnabled(lstDaysOff->count() > 0);
}

void frmDaysOff::cmdAdd_Click() {
    DayOffFields fields;
    fields.FirstText = S(txtFirstDate->text());
    fields.LastText = S(txtLastDate->text());
    fields.EveryYear = chkEveryYear->isChecked();
    fields.Note = S(txtNote->text());
    for (size_t i = 0; i < chkRelay.size(); ++i)
        if (chkRelay[i]->isChecked()) fields.Relays |= 1u << i;
    if (!editor_.Add(fields)) return;
    txtFirstDate->clear();
    txtLastDate->clear();
    txtNote->clear();
    FillList();
    lstDaysOff->setCurrentRow(lstDaysOff->count() - 1);
}

}  // namespace vantrellion
