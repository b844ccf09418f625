// The board part of the configuration screens: one column per board (the columns of boards 2
// to 4 present but disabled), the relay names, the log directory, the overlap warning, the
// boards' connections and the machine's location.
// It only builds and names the controls; the window that holds it handles their events.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <array>

#include "configuration/screens/ConfigScreen.h"

namespace vantrellion {

class ConfigBoardPanel : public QWidget {
    Q_OBJECT
  public:
    explicit ConfigBoardPanel(QWidget* parent = nullptr);

    std::array<QLabel*, BoardSlots> lblBoard{};
    QLabel *lblChipSetType, *lblBaseAddress, *lblInputAddress, *lblCntlAddress, *lblPortConfig,
        *lblLoggingYN, *lblResetOnExit, *lblRelayName, *lblLogFilePath;
    std::array<QComboBox*, BoardSlots> cmbChipSetType{}, cmbBaseAddress{}, cmbInputAddress{},
        cmbCntlAddress{}, cmbPortConfigValue{};
    std::array<QCheckBox*, BoardSlots> chkLogBoard{}, chkResetOnExit{};
    std::array<QLineEdit*, BoardSlots * RelaysPerBoard> txtRelayName{};  // board x 8 + relay
    QLineEdit* txtLogFilePath;
    QPushButton* cmdLogFilePathBrowse;
    QCheckBox* chkWarnOverlapTime;
    // The board's connection text, with the boards found on this machine in its list.
    QLabel* lblConnection;
    std::array<QComboBox*, BoardSlots> cmbConnection{};
    // The machine's location for sunrise and sunset times, in degrees.
    QLabel* lblLocation;
    QLineEdit *txtLatitude, *txtLongitude;

    QComboBox* AddressComboBox(AddressBox box, int board) const;

    // FormDisableUnusedBoards: the controls of the boards this build does not drive are
    // disabled, on the background of an inactive border.
    void DisableUnusedBoards();
};

}  // namespace vantrellion
