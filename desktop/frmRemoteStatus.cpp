#include "desktop/frmRemoteStatus.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/QtConvert.h"

namespace vantrellion {

frmRemoteStatus::frmRemoteStatus(System& s, std::function<void()> saved, QWidget* parent)
    : QDialog(parent), s_(s), saved_(std::move(saved)) {
    setObjectName("frmRemoteStatus");
    setWindowTitle("Remote Status (MQTT)");
    setModal(true);
    const MqttSettings m = LoadMqttSettings(s_);
    const auto field = [this](const char* name, const std::string& text) {
        auto* e = new QLineEdit(Q(text), this);
        e->setObjectName(name);
        return e;
    };
    txtUrl = field("txtUrl", m.Url);
    txtUrl->setPlaceholderText("mqtt://host:1883 or mqtts://host:8883; empty: off");
    txtUser = field("txtUser", m.User);
    txtPasswordFile = field("txtPasswordFile", m.PasswordFile);
    txtPasswordFile->setPlaceholderText("a file only you can read (chmod 600)");
    txtBaseTopic = field("txtBaseTopic", m.BaseTopic);
    txtBaseTopic->setPlaceholderText(Q(DefaultMqttBaseTopic()));
    chkDiscovery = new QCheckBox("Home Assistant discovery", this);
    chkDiscovery->setObjectName("chkDiscovery");
    chkDiscovery->setChecked(m.Discovery);
    chkRemoteControl = new QCheckBox("Allow remote control (Manual and Stop of the relays)", this);
    chkRemoteControl->setObjectName("chkRemoteControl");
    chkRemoteControl->setChecked(m.RemoteControl);
    lblResult = new QLabel(this);
    lblResult->setObjectName("lblResult");
    lblResult->setWordWrap(true);
    cmdTest = new QPushButton("Test connection", this);
    cmdTest->setObjectName("cmdTest");
    cmdSave = new QPushButton("Save", this);
    cmdSave->setObjectName("cmdSave");
    cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");
    for (QPushButton* b : {cmdTest, cmdSave, cmdCancel})
        b->setAutoDefault(false);

    auto* form = new QFormLayout;
    form->addRow("Broker URL", txtUrl);
    form->addRow("User", txtUser);
    form->addRow("Password file", txtPasswordFile);
    form->addRow("Base topic", txtBaseTopic);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(chkDiscovery);
    layout->addWidget(chkRemoteControl);
    layout->addWidget(lblResult);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdTest);
    buttons->addStretch(1);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons);
    resize(480, 260);

    testTimer_.setInterval(100);
    connect(&testTimer_, &QTimer::timeout, this, [this] {
        if (!test_) return testTimer_.stop();
        if (const auto answer = test_->Poll(testClock_.elapsed())) {
            lblResult->setText(Q(*answer));
            test_.reset();
            testTimer_.stop();
            cmdTest->setEnabled(true);
        }
    });
    connect(cmdTest, &QPushButton::clicked, this, [this] { cmdTest_Click(); });
    connect(cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { reject(); });
}

MqttSettings frmRemoteStatus::Entered() const {
    MqttSettings m;
    m.Url = S(txtUrl->text().trimmed());
    m.User = S(txtUser->text().trimmed());
    m.PasswordFile = S(txtPasswordFile->text().trimmed());
    m.BaseTopic = S(txtBaseTopic->text().trimmed());
    m.Discovery = chkDiscovery->isChecked();
    m.RemoteControl = chkRemoteControl->isChecked();
    return m;
}

void frmRemoteStatus::cmdTest_Click() {
    lblResult->setText("Trying " + txtUrl->text().trimmed() + " ...");
    cmdTest->setEnabled(false);
    test_ = std::make_unique<MqttConnectionTest>(Entered());
    testClock_.start();
    testTimer_.start();
}

void frmRemoteStatus::cmdSave_Click() {
    const MqttSettings m = Entered();
    const std::string problem = MqttSettingsProblem(m);
    if (!problem.empty()) {
        s_.Message({"Remote status: " + problem, Buttons::OK, Icon::Exclamation});
        return;
    }
    SaveMqttSettings(s_, m);
    if (saved_) saved_();
    accept();
}

}  // namespace vantrellion
