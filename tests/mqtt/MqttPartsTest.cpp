// The bridge's parts that need no broker: topics, JSON payloads, commands, the broker's URL,
// the password file and the delays between attempts.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "mqtt/MqttConnection.h"
#include "mqtt/MqttPayloads.h"
#include "mqtt/MqttSettings.h"
#include "mqtt/MqttTopics.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

TEST(MqttParts, DiscoveryPayloadsEscapeNamesAndFollowRemoteControl) {
    EXPECT_EQ(DiscoveryNodeId("vantrellion/glass house.2"), "vantrellion_glass_house_2");
    DiscoveryEntity e{"vantrellion_gh",         "vantrellion/gh", 3,
                      "Pump \"A\"\\\xc3\xa4\n", "Vantrellion gh", "2001.5.1"};
    const std::string on = SwitchConfigPayload(e, true);
    EXPECT_NE(on.find("\"unique_id\":\"vantrellion_gh_relay3\""), std::string::npos);
    // Quotes, backslashes and control characters escaped; UTF-8 as it stands.
    EXPECT_NE(on.find("\"name\":\"Pump \\\"A\\\"\\\\\xc3\xa4\\n\""), std::string::npos) << on;
    EXPECT_NE(on.find("\"command_topic\":\"vantrellion/gh/relay/3/set\""), std::string::npos);
    EXPECT_NE(on.find("\"device\":{\"identifiers\":[\"vantrellion_gh\"],\"name\":\"Vantrellion "
                      "gh\""),
              std::string::npos);
    EXPECT_NE(on.find("\"sw_version\":\"2001.5.1\"}}"), std::string::npos);
    EXPECT_EQ(SwitchConfigPayload(e, false).find("command_topic"), std::string::npos);
    // A name that is not UTF-8 is taken as Latin-1; other control bytes as \u escapes.
    EXPECT_EQ(JsonString("S\xfc"
                         "d\x01"),
              "\"S\xc3\xbc"
              "d\\u0001\"");
    EXPECT_EQ(RelayAttributesPayload(RelayReason::Stopped, std::nullopt),
              "{\"reason\":\"stopped\",\"next_switch\":null}");
    EXPECT_EQ(RelayAttributesPayload(RelayReason::Schedule, "2026-11-16T14:07:00"),
              "{\"reason\":\"schedule\",\"next_switch\":\"2026-11-16T14:07:00\"}");
}

TEST(MqttParts, CommandsAreParsedStrictly) {
    std::string error;
    auto c = ParseMqttCommand("b/x", "b/x/relay/8/set", " on\n", 8, error);
    ASSERT_TRUE(c);
    EXPECT_EQ(c->Kind, MqttCommandKind::Manual);
    EXPECT_EQ(c->Record, 7);
    EXPECT_TRUE(c->On);
    c = ParseMqttCommand("b/x", "b/x/relay/1/stop", "OFF", 8, error);
    ASSERT_TRUE(c);
    EXPECT_EQ(c->Kind, MqttCommandKind::HardStop);
    EXPECT_EQ(c->Record, 0);
    EXPECT_FALSE(c->On);
    for (const auto& [topic, payload] :
         std::vector<std::pair<std::string, std::string>>{{"b/x/relay/9/set", "ON"},
                                                          {"b/x/relay/0/set", "ON"},
                                                          {"b/x/relay/-1/set", "ON"},
                                                          {"b/x/relay//set", "ON"},
                                                          {"b/x/relay/1/state", "ON"},
                                                          {"b/y/relay/1/set", "ON"},
                                                          {"b/x/relay/1/set", "1"},
                                                          {"b/x/relay/1/set", ""},
                                                          {"b/x/relay/1/set/extra", "ON"}}) {
        EXPECT_FALSE(ParseMqttCommand("b/x", topic, payload, 8, error)) << topic << " " << payload;
        EXPECT_FALSE(error.empty());
    }
}

TEST(MqttParts, UrlPasswordFileBaseTopicAndDelays) {
    std::string error;
    auto b = ParseMqttUrl("mqtt://127.0.0.1:1884", error);
    ASSERT_TRUE(b);
    EXPECT_EQ(b->Host, "127.0.0.1");
    EXPECT_EQ(b->Port, 1884);
    EXPECT_FALSE(b->Tls);
    b = ParseMqttUrl("mqtts://broker.example", error);
    ASSERT_TRUE(b);
    EXPECT_EQ(b->Port, 8883);
    EXPECT_TRUE(b->Tls);
    b = ParseMqttUrl("mqtt://[::1]:99", error);
    ASSERT_TRUE(b);
    EXPECT_EQ(b->Host, "::1");
    EXPECT_EQ(b->Port, 99);
    for (const char* bad : {"http://h", "mqtt://", "mqtt://h:", "mqtt://h:70000", "mqtt://h:x"})
        EXPECT_FALSE(ParseMqttUrl(bad, error)) << bad;

    TempDir dir;
    const std::string file = dir.File("password");
    std::ofstream(file) << "s3cret\nignored\n";
    ::chmod(file.c_str(), 0644);
    EXPECT_FALSE(ReadMqttPasswordFile(file, error));
    EXPECT_NE(error.find("may be read or written by other users"), std::string::npos);
    ::chmod(file.c_str(), 0600);
    EXPECT_EQ(ReadMqttPasswordFile(file, error).value_or("none"), "s3cret");
    EXPECT_FALSE(ReadMqttPasswordFile(dir.File("missing"), error));

    MqttSettings s;
    s.BaseTopic = "greenhouse/1//";
    EXPECT_EQ(EffectiveBaseTopic(s), "greenhouse/1");
    s.BaseTopic = "";
    EXPECT_EQ(EffectiveBaseTopic(s), "vantrellion/" + MachineName());

    const std::vector<int> delays{1, 2, 4, 8, 16, 32, 60, 60};
    for (size_t i = 0; i < delays.size(); ++i)
        EXPECT_EQ(MqttReconnectDelaySeconds(static_cast<int>(i) + 1), delays[i]);
    EXPECT_EQ(MqttReconnectDelaySeconds(1000), 60);
}

}  // namespace
}  // namespace vantrellion::test
