// The configuration screens as windows on the offscreen platform: real focus changes, keys and
// clicks on a test system with a store in a scratch directory. Message boxes are the test
// system's fakes; the colour chooser is answered by a fake through the screens' seam.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <memory>

#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "desktop/ConfigScreenWindow.h"
#include "desktop/QtConvert.h"
#include "support/Fakes.h"
#include "support/TempStore.h"

namespace vantrellion::test {
namespace {

class FakeChooser : public ColorChooser {
  public:
    std::optional<Color> answer;
    std::vector<std::pair<QString, Color>> asked;
    std::optional<Color> Choose(QWidget*, const QString& title, Color start) override {
        asked.emplace_back(title, start);
        return answer;
    }
};

class ConfigScreenWidgetTest : public ::testing::Test {
  protected:
    TestSystem t;
    TempStore temp{t.s};
    FakeChooser chooser;
    std::unique_ptr<ConfigScreenWindow> w;

    // A stored configuration as a Save of the screens leaves it, loaded.
    void SetUp() override {
        t.mod().Board[0].LogBoard = t.mod().Board[0].ResetOnExit = 1;
        t.mod().WarnOverLapTime = False;
        t.mod().LogFilePath = temp.dir().Path();
        ConfigurationSaveToReg(t.s);
    }
    void TearDown() override { w.reset(); }

    void Open(ConfigScreenKind kind = ConfigScreenKind::Configuration) {
        w = std::make_unique<ConfigScreenWindow>(t.s, kind, &chooser);
        w->show();
        QApplication::setActiveWindow(w.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(w.get()));
        t.messages.shown.clear();
    }
    ConfigBoardPanel& P() { return *w->Boards; }
    static QWidget* Focused() { return QApplication::focusWidget(); }
    static void Focus(QWidget* x) { x->setFocus(Qt::OtherFocusReason); }
    // Types over the field's whole text, key by key, and leaves it with Tab.
    static void Enter(QWidget* x, const char* text) {
        Focus(x);
        if (auto* c = qobject_cast<QComboBox*>(x)) c->lineEdit()->selectAll();
        if (auto* e = qobject_cast<QLineEdit*>(x)) e->selectAll();
        QTest::keyClicks(x, text);
        QTest::keyClick(x, Qt::Key_Tab);
    }
    // Clicks a check box on its box, where a click toggles it.
    static void ClickBox(QCheckBox* box) {
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
    }
    std::string Stored(const std::string& name) {
        return RegReadWithSentinels(t.s, HKEY_LOCAL_MACHINE, ConfigKeyRead, name);
    }
};

TEST_F(ConfigScreenWidgetTest, AddressEntriesAreCheckedWhenTheFocusLeaves) {
    constexpr const char* kRange = "Address Entry is Out of Range!";
    constexpr const char* kNotHex = "Address Entry is not Hexadecimal!";
    constexpr AddressBox kBase = AddressBox::cmbBaseAddress, kInput = AddressBox::cmbInputAddress,
                         kCntl = AddressBox::cmbCntlAddress,
                         kConfig = AddressBox::cmbPortConfigValue;
    struct Case {
        AddressBox box;
        const char* typed;
        int16_t shared;
        const char* refusal;  // the title of the box that refuses it, or nullptr
    };
    // (FFFF is negative, 10000 does not fit 16 bits.)
    const Case cases[] = {
        {kBase, "280", 0x280, nullptr},   {kBase, "1FF", 0x300, kRange},
        {kBase, "200", 0x200, nullptr},   {kBase, "400", 0x400, nullptr},
        {kBase, "401", 0x300, kRange},    {kBase, "0", 0, nullptr},
        {kConfig, "100", 0, kRange},      {kConfig, "FF", 0xFF, nullptr},
        {kConfig, "0", 0, nullptr},       {kBase, "FFFF", 0x300, kRange},
        {kBase, "3G0", 0x300, kNotHex},   {kBase, "10000", 0x300, kNotHex},
        {kBase, "0x300", 0x300, kNotHex}, {kBase, "0300", 0x300, nullptr},
        {kInput, "1FF", 0x301, kRange},   {kCntl, "303", 0x303, nullptr},
        {kBase, "2a0", 0x2A0, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        t.mod().Board[0].BaseAddress = 0x300;
        t.mod().Board[0].PortConfigValue = 0;
        Open();
        QComboBox* box = P().AddressComboBox(c.box, 0);
        const int16_t before = SharedAddress(t.s, c.box, 0);
        Enter(box, c.typed);
        // A refused entry stays as typed; an accepted one is shown in capitals.
        EXPECT_EQ(box->currentText(), c.refusal ? QString(c.typed) : QString(c.typed).toUpper());
        EXPECT_EQ(SharedAddress(t.s, c.box, 0), c.shared);
        EXPECT_EQ(Focused() == box, c.refusal != nullptr) << "a refusal keeps the focus";
        EXPECT_EQ(w->cmdSave->isEnabled(), c.shared != before) << "only a changed value";
        ASSERT_EQ(t.messages.shown.size(), c.refusal ? 1u : 0u);
        if (c.refusal) {
            EXPECT_EQ(t.messages.shown[0].Title, c.refusal);
        }
    }
}

TEST_F(ConfigScreenWidgetTest, ARefusedEntryVoidsTheClickThatLeftItAndCancelReloadsTheStore) {
    Open();
    QComboBox* base = P().cmbBaseAddress[0];
    Focus(base);
    base->lineEdit()->selectAll();
    QTest::keyClicks(base, "401");
    QTest::mouseClick(w->cmdExit, Qt::LeftButton);
    EXPECT_TRUE(w->isVisible());
    EXPECT_EQ(Focused(), base);
    EXPECT_EQ(t.messages.shown.size(), 1u);
    // Put right, the next click goes through: Cancel reloads the store without a question.
    Enter(base, "280");
    ASSERT_EQ(t.mod().Board[0].BaseAddress, 0x280);
    QTest::mouseClick(w->cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(w->isVisible());
    EXPECT_EQ(t.mod().Board[0].BaseAddress, 0x300);
    EXPECT_EQ(t.messages.shown.size(), 1u);
}

TEST_F(ConfigScreenWidgetTest, ListsGrowAtEachVisitAndAnEmptiedBoxShowsZero) {
    Open();
    // The first control has the focus as the screen comes up, and its list is filled.
    QComboBox* chip = P().cmbChipSetType[0];
    EXPECT_EQ(Focused(), chip);
    EXPECT_EQ(chip->count(), 7);
    EXPECT_EQ(chip->itemText(6), "ACL-7125");
    QComboBox* base = P().cmbBaseAddress[0];
    Focus(base);
    EXPECT_EQ(base->count(), 16);
    EXPECT_EQ(base->itemText(0), "200");
    EXPECT_EQ(base->currentText(), "300") << "filling the list leaves the text alone";
    EXPECT_EQ(base->lineEdit()->selectedText(), "300");
    Focus(chip);
    EXPECT_EQ(chip->count(), 14);
    Focus(base);
    EXPECT_EQ(base->count(), 32);
    EXPECT_EQ(P().cmbPortConfigValue[0]->count(), 32);
    // Each box takes its own column of the address rows, at list position = row number.
    EXPECT_EQ(P().cmbInputAddress[0]->itemText(1), "221");
    EXPECT_EQ(P().cmbCntlAddress[0]->itemText(2), "243");
    EXPECT_EQ(P().cmbPortConfigValue[0]->itemText(15), "9B");
    EXPECT_EQ(P().cmbBaseAddress[1]->count(), 0) << "board 1's lists stay empty";

    base->lineEdit()->selectAll();
    QTest::keyClick(base, Qt::Key_Delete);
    EXPECT_EQ(base->currentText(), "0");
    // Enter moves on as Tab does, and the emptied address is taken as none.
    QTest::keyClick(base, Qt::Key_Return);
    EXPECT_EQ(Focused(), P().cmbInputAddress[0]);
    EXPECT_EQ(t.mod().Board[0].BaseAddress, 0);
}

TEST_F(ConfigScreenWidgetTest, NamesCheckBoxesAndTheLogPath) {
    Open();
    EXPECT_FALSE(w->cmdSave->isEnabled()) << "warning off and nothing changed";
    Enter(P().txtRelayName[0], "Pump");
    EXPECT_EQ(t.mod().Board[0].RelayName[0], "Pump");
    EXPECT_TRUE(w->cmdSave->isEnabled());
    EXPECT_TRUE(w->Menu("mnuFileSave")->isEnabled());

    ClickBox(P().chkWarnOverlapTime);
    EXPECT_EQ(t.mod().WarnOverLapTime, True);
    ClickBox(P().chkLogBoard[0]);
    EXPECT_EQ(t.mod().Board[0].LogBoard, 0);

    // A typed directory is thrown away when the field is left.
    Enter(P().txtLogFilePath, "/tmp/elsewhere");
    EXPECT_EQ(P().txtLogFilePath->text().toStdString(), temp.dir().Path());
    EXPECT_EQ(t.mod().LogFilePath, temp.dir().Path());

    EXPECT_FALSE(P().cmbBaseAddress[1]->isEnabled());
    EXPECT_FALSE(P().txtRelayName[8]->isEnabled());
    EXPECT_TRUE(P().txtRelayName[7]->isEnabled());
}

// Closing a changed screen asks; Yes stores only what reached the shared state (a status
// colour waits for Save and is lost), No reloads the store, Cancel keeps the screen.
TEST_F(ConfigScreenWidgetTest, ClosingAChangedScreenAsks) {
    for (Answer answer : {Answer::No, Answer::Cancel, Answer::Yes}) {
        SCOPED_TRACE(static_cast<int>(answer));
        ConfigurationLoadFromReg(t.s);
        Open();
        Enter(P().txtRelayName[0], "Pump");
        chooser.answer = 0x0A0B0C;
        QTest::mouseClick(w->Colors->cmdSetColorIndicator[1], Qt::LeftButton);
        EXPECT_EQ(w->Colors->cmdSetColorIndicator[1]->ColorShown(), 0x0A0B0C);
        t.messages.answers = {answer};
        if (answer == Answer::No)
            QTest::keyClick(w.get(), Qt::Key_Escape);  // Esc takes the same route
        else
            EXPECT_EQ(w->close(), answer == Answer::Yes);
        ASSERT_EQ(t.messages.shown.size(), 1u);
        EXPECT_EQ(t.messages.shown[0].DefaultButton, 2) << "No is the default";
        EXPECT_EQ(w->isVisible(), answer == Answer::Cancel);
        EXPECT_EQ(t.mod().Board[0].RelayName[0], answer == Answer::No ? "Relay 1" : "Pump");
        EXPECT_EQ(Stored("Brd1RNam1"), answer == Answer::Yes ? "Pump" : "Relay 1");
        EXPECT_EQ(Stored("ColorRelayON"), std::to_string(kRelayON));
    }
}

TEST_F(ConfigScreenWidgetTest, ACancelledColourChoiceChangesNothing) {
    Open(ConfigScreenKind::ConfigColors);
    ColorButton* time = w->Colors->cmdSetColorIndicator[3];
    QTest::mouseClick(time, Qt::LeftButton);
    ASSERT_EQ(chooser.asked.size(), 1u);
    EXPECT_EQ(chooser.asked[0].second, kTimeON);
    EXPECT_EQ(time->ColorShown(), kTimeON);
    EXPECT_FALSE(w->cmdSave->isEnabled());
    EXPECT_FALSE(w->Model().FormChanged);

    // The menu entry numbered 0 is the button "Group 1 Color", and its colour goes at once.
    chooser.answer = 0x123456;
    w->Menu("mnuSetColorGroupBkgrnd", 0)->trigger();
    EXPECT_EQ(w->Colors->cmdSetColorGroupBkgrnd[0]->ColorShown(), 0x123456);
    EXPECT_EQ(t.mod().ColorRelayGroup[0], 0x123456);
    EXPECT_TRUE(w->cmdSave->isEnabled());
}

// The colour menu goes with the colour buttons, the names' reset with the board controls.
TEST_F(ConfigScreenWidgetTest, TheThreeCutsOfTheDesignAndTheirResetsAndSave) {
    using enum ConfigScreenKind;
    const std::tuple<ConfigScreenKind, bool, bool> cases[] = {
        {Configuration, true, true}, {ConfigBoards, true, false}, {ConfigColors, false, true}};
    const ModRelay stored = t.mod();
    for (const auto& [kind, boards, colors] : cases) {
        t.mod() = stored;
        ConfigurationSaveToReg(t.s);
        Open(kind);
        SCOPED_TRACE(static_cast<int>(kind));
        EXPECT_EQ(w->Boards != nullptr, boards);
        EXPECT_EQ(w->Colors != nullptr, colors);
        EXPECT_EQ(w->Menu("mnuSetColors")->isVisible(), colors);
        EXPECT_EQ(w->Menu("mnuResetNamesDefaults")->isVisible(), boards);
        // The resets fill this screen's controls only, and only a check box marks it changed:
        // names and colours wait for Save, which stores them and keeps the screen open.
        if (boards) w->Menu("mnuResetNamesDefaults")->trigger();
        EXPECT_FALSE(w->cmdSave->isEnabled());
        w->Menu("mnuResetAll")->trigger();
        EXPECT_EQ(w->cmdSave->isEnabled(), boards);
        EXPECT_TRUE(!boards || P().txtRelayName[0]->text() == "Relay: 1");
        EXPECT_TRUE(!colors || w->Colors->cmdSetColorIndicator[0]->ColorShown() == 65535);
        EXPECT_EQ(t.mod().ColorNameBkgrnd, kNameBk);
        EXPECT_EQ(t.mod().Board[0].RelayName[0], "Relay 1");
        QTest::mouseClick(w->cmdSave, Qt::LeftButton);
        EXPECT_FALSE(w->cmdSave->isEnabled());
        EXPECT_TRUE(w->isVisible());
        EXPECT_EQ(Stored("Brd1RNam1"), boards ? "Relay: 1" : "Relay 1");
        EXPECT_EQ(Stored("ColorNameBkgrnd"), boards && colors ? "65535" : std::to_string(kNameBk));
    }
}

}  // namespace
}  // namespace vantrellion::test
