// The configuration screens as windows on the offscreen platform: real focus changes, keys and
// clicks on a test system with a store in a scratch directory. Message boxes are the test
// system's fakes; the colour chooser is answered by a fake through the screens' seam.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <filesystem>
#include <memory>

#include "configuration/clsConfiguration.h"
#include "desktop/AltLetterGuard.h"
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

TEST_F(ConfigScreenWidgetTest, ARelayNameTakesNoMoreThanARowShowsAndALongerStoredOneStaysWhole) {
    const QString name = QString::fromUtf8("Gewächshaus Ω");
    t.mod().Board[0].RelayName[2] = S(name);  // from an earlier version, longer than a row takes
    Open();
    EXPECT_LT(w->minimumSizeHint().height(), 400) << "the panels scroll on a low screen";
    EXPECT_EQ(P().txtRelayName[2]->text(), name);
    QLineEdit* field = P().txtRelayName[1];
    Focus(field);
    field->selectAll();
    for (const QChar c : name)
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(c), Qt::NoModifier);
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_EQ(field->text(), name.left(9));
    EXPECT_EQ(t.mod().Board[0].RelayName[1], S(name.left(9)));
}

TEST_F(ConfigScreenWidgetTest, MenusOpenByTheirLettersAndEscapeClosesAsExitDoes) {
    const AltLetterGuard guard;
    Open();
    for (auto [key, menu] :
         {std::pair{Qt::Key_F, "mnuFile"}, std::pair{Qt::Key_S, "mnuSetColors"}}) {
        QTest::keyClick(P().txtRelayName[0], key, Qt::AltModifier);
        QCoreApplication::processEvents();  // the menu bar opens its menu queued
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr) << menu;
        EXPECT_EQ(popup->objectName(), menu);
        popup->close();
    }

    // Escape in the log path field: the typed directory is made and taken first, then comes
    // Exit's "Save File?"; Cancel keeps the screen, No closes it and reloads the store.
    const std::string made = temp.dir().Path() + "made/logs";
    Focus(P().txtLogFilePath);
    P().txtLogFilePath->selectAll();
    QTest::keyClicks(P().txtLogFilePath, made.c_str());
    t.messages.answers = {Answer::Yes, Answer::Cancel};
    QTest::keyClick(P().txtLogFilePath, Qt::Key_Escape);
    ASSERT_EQ(t.messages.shown.size(), 2u);
    EXPECT_EQ(t.messages.shown[1].Prompt, "Save File?");
    EXPECT_TRUE(w->isVisible());
    EXPECT_TRUE(std::filesystem::is_directory(made));
    EXPECT_EQ(P().txtLogFilePath->text().toStdString(), made + "/");
    t.messages.answers = {Answer::No};
    QTest::keyClick(P().txtLogFilePath, Qt::Key_Escape);
    EXPECT_FALSE(w->isVisible());
    EXPECT_EQ(t.mod().LogFilePath, temp.dir().Path());
}

}  // namespace
}  // namespace vantrellion::test
