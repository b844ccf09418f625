#include "desktop/ConfigBoardPanel.h"

#include <QGridLayout>

#include "desktop/TypingLimit.h"
#include "mainscreen/FieldLimits.h"

namespace vantrellion {

namespace {

QLabel* Label(QWidget* parent, const char* name, const char* caption) {
    auto* l = new QLabel(caption, parent);
    l->setObjectName(name);
    return l;
}

QComboBox* Combo(QWidget* parent, const char* name, int board) {
    auto* c = new QComboBox(parent);
    c->setObjectName(name);
    c->setProperty("index", board);
    c->setEditable(true);
    // The list only offers: nothing typed is added to it, and nothing is completed while
    // typing, so that a field holds exactly the keys pressed.
    c->setInsertPolicy(QComboBox::NoInsert);
    c->setCompleter(nullptr);
    c->setMinimumContentsLength(6);
    return c;
}

QCheckBox* Check(QWidget* parent, const char* name, const char* caption, int board) {
    auto* c = new QCheckBox(caption, parent);
    c->setObjectName(name);
    c->setProperty("index", board);
    return c;
}

}  // namespace

ConfigBoardPanel::ConfigBoardPanel(QWidget* parent) : QWidget(parent) {
    setObjectName("BoardPart");
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 2, 4, 2);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(1);

    // Controls are made row by row, board 1 first in each row, so that the Tab key runs down
    // the column of the board in use.
    int row = 0;
    for (int b = 0; b < BoardSlots; ++b) {
        lblBoard[b] = Label(this, "lblBoard", "");
        lblBoard[b]->setText(QString("Board %1").arg(b + 1));
        lblBoard[b]->setProperty("index", b);
        grid->addWidget(lblBoard[b], row, 1 + b);
    }
    struct ComboRow {
        QLabel** label;
        const char* labelName;
        const char* caption;
        std::array<QComboBox*, BoardSlots>* boxes;
        const char* name;
    };
    const ComboRow combos[] = {
        {&lblChipSetType, "lblChipSetType", "Card Name/Type", &cmbChipSetType, "cmbChipSetType"},
        {&lblBaseAddress, "lblBaseAddress", "On/Off Address", &cmbBaseAddress, "cmbBaseAddress"},
        {&lblInputAddress, "lblInputAddress", "Inputs Address", &cmbInputAddress,
         "cmbInputAddress"},
        {&lblCntlAddress, "lblCntlAddress", "Control Address", &cmbCntlAddress, "cmbCntlAddress"},
        {&lblPortConfig, "lblPortConfig", "Port Config", &cmbPortConfigValue, "cmbPortConfigValue"},
    };
    for (const ComboRow& r : combos) {
        ++row;
        *r.label = Label(this, r.labelName, r.caption);
        grid->addWidget(*r.label, row, 0);
        for (int b = 0; b < BoardSlots; ++b) {
            (*r.boxes)[b] = Combo(this, r.name, b);
            grid->addWidget((*r.boxes)[b], row, 1 + b);
        }
    }
    ++row;
    lblLoggingYN = Label(this, "lblLoggingYN", "Log This Board?");
    grid->addWidget(lblLoggingYN, row, 0);
    for (int b = 0; b < BoardSlots; ++b) {
        chkLogBoard[b] = Check(this, "chkLogBoard", "Log", b);
        grid->addWidget(chkLogBoard[b], row, 1 + b);
    }
    ++row;
    lblResetOnExit = Label(this, "lblResetOnExit", "Reset On Exit?");
    grid->addWidget(lblResetOnExit, row, 0);
    for (int b = 0; b < BoardSlots; ++b) {
        chkResetOnExit[b] = Check(this, "chkResetOnExit", "Reset", b);
        grid->addWidget(chkResetOnExit[b], row, 1 + b);
    }
    lblRelayName = Label(this, "lblRelayName", "Relay Names");
    grid->addWidget(lblRelayName, row + 1, 0);
    for (int r = 0; r < RelaysPerBoard; ++r) {
        ++row;
        for (int b = 0; b < BoardSlots; ++b) {
            const int i = RecordIndex(b, r);
            txtRelayName[i] = new QLineEdit(this);
            txtRelayName[i]->setObjectName("txtRelayName");
            txtRelayName[i]->setProperty("index", i);
            new TypingLimit(txtRelayName[i], DisplayNameMaxLength);
            grid->addWidget(txtRelayName[i], row, 1 + b);
        }
    }
    ++row;
    lblLogFilePath = Label(this, "lblLogFilePath", "Log File Location:");
    grid->addWidget(lblLogFilePath, row, 0);
    txtLogFilePath = new QLineEdit(this);
    txtLogFilePath->setObjectName("txtLogFilePath");
    grid->addWidget(txtLogFilePath, row, 1, 1, BoardSlots - 1);
    cmdLogFilePathBrowse = new QPushButton("Browse", this);
    cmdLogFilePathBrowse->setObjectName("cmdLogFilePathBrowse");
    cmdLogFilePathBrowse->setAutoDefault(false);
    grid->addWidget(cmdLogFilePathBrowse, row, BoardSlots);
    ++row;
    chkWarnOverlapTime = Check(this, "chkWarnOverlapTime", "Warn Overlapping Time", 0);
    grid->addWidget(chkWarnOverlapTime, row, 1, 1, BoardSlots);
    ++row;
    lblConnection = Label(this, "lblConnection", "Connection");
    grid->addWidget(lblConnection, row, 0);
    for (int b = 0; b < BoardSlots; ++b) {
        cmbConnection[b] = Combo(this, "cmbConnection", b);
        cmbConnection[b]->setToolTip(
            "How the board is reached, as ports://768, modbus-tcp://HOST:PORT?unit=1 and so on; "
            "the list holds the boards found on this machine");
        grid->addWidget(cmbConnection[b], row, 1 + b);
    }
    ++row;
    lblLocation = Label(this, "lblLocation", "Latitude, Longitude");
    grid->addWidget(lblLocation, row, 0);
    txtLatitude = new QLineEdit(this);
    txtLatitude->setObjectName("txtLatitude");
    txtLatitude->setToolTip(
        "Latitude of this machine in degrees, -90 to 90, north positive (e.g. 52.52): for "
        "sunrise (SR) and sunset (SS) times");
    grid->addWidget(txtLatitude, row, 1);
    txtLongitude = new QLineEdit(this);
    txtLongitude->setObjectName("txtLongitude");
    txtLongitude->setToolTip(
        "Longitude of this machine in degrees, -180 to 180, east positive (e.g. 13.405): for "
        "sunrise (SR) and sunset (SS) times");
    grid->addWidget(txtLongitude, row, 2);
}

QComboBox* ConfigBoardPanel::AddressComboBox(AddressBox box, int board) const {
    switch (box) {
        case AddressBox::cmbInputAddress:
            return cmbInputAddress[board];
        case AddressBox::cmbCntlAddress:
            return cmbCntlAddress[board];
        case AddressBox::cmbPortConfigValue:
            return cmbPortConfigValue[board];
        case AddressBox::cmbBaseAddress:
            break;
    }
    return cmbBaseAddress[board];
}

void ConfigBoardPanel::DisableUnusedBoards() {
    // The system colour of an inactive border.
    const QColor inactiveBorder = palette().color(QPalette::Inactive, QPalette::Window);
    for (int b = 0; b < BoardSlots; ++b) {
        if (BoardColumnEnabled(b)) continue;
        QList<QWidget*> controls = {cmbChipSetType[b], cmbBaseAddress[b],     cmbInputAddress[b],
                                    cmbCntlAddress[b], cmbPortConfigValue[b], chkLogBoard[b],
                                    chkResetOnExit[b], cmbConnection[b]};
        for (int r = 0; r < RelaysPerBoard; ++r)
            controls.append(txtRelayName[RecordIndex(b, r)]);
        for (QWidget* w : controls) {
            w->setEnabled(false);
            QPalette p = w->palette();
            p.setColor(QPalette::Base, inactiveBorder);
            p.setColor(QPalette::Button, inactiveBorder);
            w->setPalette(p);
        }
    }
}

}  // namespace vantrellion
