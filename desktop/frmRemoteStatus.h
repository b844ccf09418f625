// frmRemoteStatus: the settings of the remote status over an MQTT broker (File > Remote
// Status): broker URL, user, password file, base topic, discovery and remote control, with
// "Test connection". Save stores the keys and calls Saved, which starts the bridge again.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <memory>

#include "core/SharedState.h"
#include "mqtt/MqttSettingsScreen.h"

namespace vantrellion {

class frmRemoteStatus : public QDialog {
    Q_OBJECT
  public:
    frmRemoteStatus(System& s, std::function<void()> saved, QWidget* parent = nullptr);

    QLineEdit* txtUrl;
    QLineEdit* txtUser;
    QLineEdit* txtPasswordFile;
    QLineEdit* txtBaseTopic;
    QCheckBox* chkDiscovery;
    QCheckBox* chkRemoteControl;
    QPushButton* cmdTest;
    QPushButton* cmdSave;
    QPushButton* cmdCancel;
    QLabel* lblResult;

    MqttSettings Entered() const;

  private:
    void cmdTest_Click();
    void cmdSave_Click();

    System& s_;
    std::function<void()> saved_;
    std::unique_ptr<MqttConnectionTest> test_;
    QTimer testTimer_;
    QElapsedTimer testClock_;
};

}  // namespace vantrellion
