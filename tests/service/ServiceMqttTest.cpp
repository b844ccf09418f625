// vantrelliond with its remote status against a real mosquitto broker: discovery configs and
// retained states, states that follow a schedule of short bars, a remote command refused when
// retained and carried out when live, the broker restarted, the last will after kill -9; and
// TLS with a CA made by the test.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Platform.h"
#include "mqtt/MqttSettings.h"
#include "mqtt/MqttTopics.h"
#include "support/MosquittoBroker.h"
#include "tests/service/ServiceTestSupport.h"

namespace vantrellion::test {
namespace {

using Clock = std::chrono::steady_clock;

// Local seconds of the day now, with the steady clock's time of that second's start.
struct LocalNow {
    int Second = 0;
    Clock::time_point SecondStart;
};

LocalNow TakeLocalNow() {
    const auto wall = std::chrono::system_clock::now();
    const auto steady = Clock::now();
    const time_t t = std::chrono::system_clock::to_time_t(wall);
    tm local{};
    localtime_r(&t, &local);
    const auto fraction = wall - std::chrono::system_clock::from_time_t(t);
    return {local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec,
            steady - std::chrono::duration_cast<Clock::duration>(fraction)};
}

// Configured (emulation, logging) with the Run File "bars.run": relays 1 to 7 each on for two
// seconds, one after the other, from `first` on; relay 1 named in UTF-8; relay 8 empty.
std::string PrepareBars(const TempDir& dir, int first,
                        const std::string& name1 = "Gewächshaus Süd") {
    SaveTestConfiguration(dir, True, True);
    TestSystem t;
    t.mod().LoggingOnOff = True;
    for (int r = 0; r < 7; ++r)
        t.SetPair(r, 0, TimeText(first + r - 1), TimeText(first + r + 2));
    t.s.frmRelay.Relay[0].DisplayName = name1;
    EXPECT_TRUE(SaveRunFile(t.s, dir.Path(), "bars.run"));
    return dir.File("bars.run");
}

bool SkipWithoutBroker() {
    return !std::filesystem::exists(MosquittoProgram);
}

int CountWithPrefix(const std::map<std::string, std::string>& latest, const std::string& prefix) {
    int n = 0;
    for (const auto& [topic, payload] : latest)
        n += topic.rfind(prefix, 0) == 0 && topic.size() > 7 &&
             topic.compare(topic.size() - 7, 7, "/config") == 0;
    return n;
}

TEST(ServiceMqtt, BarsScheduleCommandsBrokerRestartAndLastWill) {
    if (SkipWithoutBroker()) GTEST_SKIP() << MosquittoProgram << " is not installed";
    TempDir dir;
    MosquittoBroker broker(dir, false);
    ASSERT_TRUE(broker.Start()) << broker.Log();
    const std::string base = DefaultMqttBaseTopic();
    const std::string node = DiscoveryNodeId(base);
    MqttWatcher watcher(broker.Port());
    ASSERT_TRUE(watcher.Connected());
    // An old retained command waits on the broker; it must not switch relay 8 at the start.
    watcher.Publish(RelaySetTopic(base, 8), "ON", true);

    LocalNow now = TakeLocalNow();
    if (now.Second > 86400 - 30) {  // the bars must not cross midnight
        std::this_thread::sleep_until(now.SecondStart + std::chrono::seconds(86401 - now.Second));
        now = TakeLocalNow();
    }
    const int first = now.Second + 4;  // relay r+1 reads on from first+r to first+r+2
    const std::string runFile = PrepareBars(dir, first);
    Daemon d(dir,
             {"--run", runFile, "--data-dir", dir.Path(), "--mqtt",
              "mqtt://127.0.0.1:" + std::to_string(broker.Port()), "--mqtt-control"},
             "");

    // Discovery: eight switches with a command topic, eight binary sensors, the name in UTF-8.
    ASSERT_TRUE(watcher.WaitUntil(
        [&](const std::vector<ReceivedMessage>& all) {
            int configs = 0;
            for (const auto& m : all)
                configs += m.Topic.rfind("homeassistant/", 0) == 0;
            return configs >= 16;
        },
        5000))
        << d.Stderr();
    auto latest = watcher.Latest();
    EXPECT_EQ(CountWithPrefix(latest, "homeassistant/switch/" + node + "/relay"), 8);
    EXPECT_EQ(CountWithPrefix(latest, "homeassistant/binary_sensor/" + node + "/input"), 8);
    const std::string relay1 = latest[SwitchConfigTopic(node, 1)];
    EXPECT_NE(relay1.find("\"name\":\"Gew\xc3\xa4"
                          "chshaus S\xc3\xbc"
                          "d\""),
              std::string::npos)
        << relay1;
    EXPECT_NE(relay1.find("\"command_topic\":\"" + base + "/relay/1/set\""), std::string::npos);
    EXPECT_NE(relay1.find("\"availability_topic\":\"" + base + "/status\""), std::string::npos);
    EXPECT_NE(relay1.find("\"sw_version\":\"" + std::string(ProgramVersionText) + "\""),
              std::string::npos);
    EXPECT_NE(latest[BinarySensorConfigTopic(node, 3)].find("\"state_topic\":\"" + base +
                                                            "/input/3/state\""),
              std::string::npos);

    // The attributes name each relay's next switch: relay 7's start; none for relay 8.
    EXPECT_TRUE(watcher.WaitFor(RelayAttributesTopic(base, 8),
                                "{\"reason\":\"schedule\",\"next_switch\":null}", 3000));
    EXPECT_NE(
        watcher.Latest()[RelayAttributesTopic(base, 7)].find("T" + TimeText(first + 6) + "\"}"),
        std::string::npos);

    // The bars: each switch on the broker within 2 s of the second it falls on.
    for (int r = 1; r <= 7; ++r) {
        size_t at = 0;  // each relay is on only once; its off comes after its on
        for (const bool on : {true, false}) {
            const auto due =
                now.SecondStart + std::chrono::seconds(first + r - 1 + (on ? 0 : 2) - now.Second);
            const auto wait = std::chrono::duration_cast<std::chrono::milliseconds>(
                due + std::chrono::seconds(2) - Clock::now());
            ASSERT_TRUE(watcher.WaitFor(RelayStateTopic(base, r), on ? "ON" : "OFF",
                                        static_cast<int>(wait.count()), at, &at))
                << "relay " << r << (on ? " on" : " off") << "\n"
                << d.Stderr();
            EXPECT_GT(watcher.Messages()[at].At, due - std::chrono::milliseconds(100))
                << "relay " << r << (on ? " on" : " off") << " early";
        }
    }
    EXPECT_EQ(watcher.Latest()[RelayStateTopic(base, 8)], "OFF");
    EXPECT_NE(d.Stderr().find("relay/8/set ON: ignored, it is a retained message"),
              std::string::npos)
        << d.Stderr();

    // The configs again when Home Assistant starts, and a renamed relay's after a reload.
    size_t from = watcher.Messages().size();
    watcher.Publish("homeassistant/status", "online", false);
    EXPECT_TRUE(watcher.WaitFor(SwitchConfigTopic(node, 1), relay1, 3000, from)) << d.Stderr();
    from = watcher.Messages().size();
    PrepareBars(dir, first, "Fan");
    d.Signal(SIGHUP);
    EXPECT_TRUE(watcher.WaitUntil(
        [&](const std::vector<ReceivedMessage>& all) {
            for (size_t i = from; i < all.size(); ++i)
                if (all[i].Topic == SwitchConfigTopic(node, 1) &&
                    all[i].Payload.find("\"name\":\"Fan\"") != std::string::npos)
                    return true;
            return false;
        },
        3000))
        << d.Stderr();

    // A live command: relay 8 on, on the broker within 2 s and in the log.
    watcher.Publish(RelaySetTopic(base, 8), "", true);  // the retained one is cleared
    from = watcher.Messages().size();
    watcher.Publish(RelaySetTopic(base, 8), "ON", false);
    EXPECT_TRUE(watcher.WaitFor(RelayStateTopic(base, 8), "ON", 2000, from)) << d.Stderr();
    EXPECT_NE(d.Stderr().find("<6>MQTT: command " + base + "/relay/8/set ON: accepted, Manual ON"),
              std::string::npos)
        << d.Stderr();
    std::string log;
    for (const auto& e : std::filesystem::directory_iterator(dir.Path()))
        if (e.path().extension() == ".Log") log += ReadFile(e.path());
    EXPECT_NE(log.find("MQTT command " + base + "/relay/8/set ON: accepted"), std::string::npos)
        << log;
    EXPECT_NE(watcher.Latest()[RelayAttributesTopic(base, 8)].find("\"reason\":\"manual\""),
              std::string::npos);

    // The broker restarts with nothing kept: the service is back and publishes it all again.
    broker.Stop();
    ASSERT_TRUE(broker.Start()) << broker.Log();
    MqttWatcher again(broker.Port());
    ASSERT_TRUE(again.Connected());
    EXPECT_TRUE(again.WaitFor(RelayStateTopic(base, 8), "ON", 5000)) << d.Stderr();
    EXPECT_TRUE(
        again.WaitFor(SwitchConfigTopic(node, 8), latest[SwitchConfigTopic(node, 8)], 2000));
    const std::string err = d.Stderr();
    EXPECT_NE(err.find("<4>MQTT: lost the broker"), std::string::npos) << err;
    EXPECT_EQ(err.find("lost the broker"), err.rfind("lost the broker")) << err;
    EXPECT_NE(err.find("<6>MQTT: back in contact with the broker"), std::string::npos) << err;

    // Killed: the broker sends the will, and keeps it with the last states for newcomers.
    from = again.Messages().size();
    d.Signal(SIGKILL);
    EXPECT_TRUE(again.WaitFor(StatusTopic(base), "offline", 3000, from));
    MqttWatcher late(broker.Port());
    ASSERT_TRUE(late.Connected());
    ASSERT_TRUE(late.WaitFor(RelayStateTopic(base, 8), "ON", 2000));
    for (const ReceivedMessage& m : late.Messages())
        EXPECT_TRUE(m.Retained) << m.Topic;
    EXPECT_TRUE(late.WaitFor(StatusTopic(base), "offline", 1000));
}

// mqtts with the system's certificate store, here the test's CA through SSL_CERT_FILE: a
// broker whose certificate another CA signed is refused with the reason; with the right CA the
// service connects, and without remote control its commands are refused.
TEST(ServiceMqtt, TlsVerifiesTheBrokerAndCommandsNeedRemoteControl) {
    if (SkipWithoutBroker()) GTEST_SKIP() << MosquittoProgram << " is not installed";
    TempDir dir;
    MosquittoBroker broker(dir, true);
    ASSERT_TRUE(broker.Start()) << broker.Log();
    const std::string base = DefaultMqttBaseTopic();
    const std::string node = DiscoveryNodeId(base);
    MqttWatcher watcher(broker.Port());
    ASSERT_TRUE(watcher.Connected());
    const std::string runFile = PrepareServiceDirectory(dir);
    const std::vector<std::string> args{
        "--run",    runFile,  "--data-dir",
        dir.Path(), "--mqtt", "mqtts://127.0.0.1:" + std::to_string(broker.TlsPort())};
    {
        Daemon wrongCa(dir, args, "", {{"SSL_CERT_FILE", dir.File("other-ca.pem")}});
        const std::string err = wrongCa.WaitForStderr("cannot connect", 5000);
        EXPECT_NE(err.find("<4>MQTT: cannot connect to the broker mqtts://127.0.0.1:" +
                           std::to_string(broker.TlsPort()) + ": "),
                  std::string::npos)
            << err;
        EXPECT_NE(err.find("certificate verify failed"), std::string::npos) << err;
        EXPECT_EQ(watcher.Latest().count(StatusTopic(base)), 0u);
    }
    Daemon d(dir, args, "", {{"SSL_CERT_FILE", dir.File("ca.pem")}});
    ASSERT_TRUE(watcher.WaitFor(StatusTopic(base), "online", 5000)) << d.Stderr();
    ASSERT_TRUE(watcher.WaitUntil(
        [&](const std::vector<ReceivedMessage>& all) {
            for (const auto& m : all)
                if (m.Topic == SwitchConfigTopic(node, 1)) return true;
            return false;
        },
        2000));
    EXPECT_EQ(watcher.Latest()[SwitchConfigTopic(node, 1)].find("command_topic"),
              std::string::npos);
    // Relay 3 is off outside 10:30-10:45, relay 2 on all day: neither command may change them.
    ASSERT_TRUE(watcher.WaitFor(RelayStateTopic(base, 2), "ON", 2000));
    std::this_thread::sleep_for(std::chrono::milliseconds(1000));  // past the first second
    watcher.Publish(RelayStopTopic(base, 2), "ON", false);
    watcher.Publish(RelaySetTopic(base, 3), "ON", false);
    const std::string refused = "<4>MQTT: command " + base +
                                "/relay/3/set ON: refused, remote "
                                "control is off";
    const std::string err = d.WaitForStderr(refused, 3000);
    EXPECT_NE(err.find(refused), std::string::npos) << err;
    EXPECT_NE(err.find("relay/2/stop ON: refused, remote control is off"), std::string::npos);
    const auto latest = watcher.Latest();
    EXPECT_EQ(latest.at(RelayStateTopic(base, 2)), "ON");
    EXPECT_NE(latest.at(RelayAttributesTopic(base, 2)).find("\"reason\":\"schedule\""),
              std::string::npos);
    d.Signal(SIGTERM);
    EXPECT_EQ(d.Wait(3000), 0);
    // A clean stop says offline itself.
    EXPECT_TRUE(watcher.WaitFor(StatusTopic(base), "offline", 2000));
}

}  // namespace
}  // namespace vantrellion::test
