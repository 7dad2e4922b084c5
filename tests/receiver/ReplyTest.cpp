#include "TestSupport.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "receiver/SettingsTree.h"
#include "receiver/VexReceiverMate.h"

#include <gtest/gtest.h>

namespace {

using Mate = CVexReceiverMate;

TEST(ReplyHelpers, StripBracesTakesOnePairOnly) {
    const std::pair<const char*, const char*> cases[] = {
        {"{a,b}", "a,b"}, {"{{a}}", "{a}"}, {"{}", ""},   {"a", "a"},
        {"{a", "{a"},     {"a}", "a}"},     {"}{", "}{"}, {"", ""},
    };
    for (const auto& [in, out] : cases)
        EXPECT_EQ(Mate::StripBraces(QString::fromUtf8(in)), QString::fromUtf8(out)) << in;
}

TEST(ReplyHelpers, SplitListKeepsNestedBracesAndQuotedText) {
    const std::pair<const char*, QStringList> cases[] = {
        {"{a,b,{c,d}}", {"a", "b", "{c,d}"}},
        {"{}", {}},
        {"", {}},
        {"{ a , b }", {"a", "b"}},
        {"{\"x,{y\",z}", {"\"x,{y\"", "z"}},
        {"{\"q\\\",r\",s}", {"\"q\\\",r\"", "s"}},
        {"{a,,b}", {"a", "", "b"}},
        {"{{a,{b,c}},{d}}", {"{a,{b,c}}", "{d}"}},
        {"a,b", {"a", "b"}},
        {"{a}},b}", {"a}}", "b"}}, // unbalanced: never more than the commas allow
    };
    for (const auto& [in, out] : cases)
        EXPECT_EQ(Mate::SplitList(QString::fromUtf8(in)), out) << in;
}

TEST(ReplyHelpers, KeyedListIndexesFrom0To255) {
    EXPECT_EQ(
        Mate::SplitKeyedList(QStringLiteral("{0={name=\"a\"},07=x,255={}}"), QStringLiteral("Op")),
        (std::vector<std::pair<unsigned, QString>>{{0, "{name=\"a\"}"}, {7, "x"}, {255, "{}"}}));
    EXPECT_TRUE(Mate::SplitKeyedList(QStringLiteral("{}"), QStringLiteral("Op")).empty());
}

TEST(ReplyHelpers, AnyBadElementFailsTheWholeKeyedList) {
    const char* cases[] = {
        "{0=a,300=b}", "{256=a}", "{a=b}",  "{1}",
        "{=x}",        "{-1=a}",  "{1 =a}", "{99999999999999999999=a}",
        "{0=a,}",      "{１=a}",
    };
    for (const char* in : cases)
        EXPECT_EQ(pell::test::ErrorCodeOf(
                      [&] { Mate::SplitKeyedList(QString::fromUtf8(in), QStringLiteral("Op")); }),
                  pell::ERROR_INVALID_PARAMETER)
            << in;
}

TEST(ReplyHelpers, RecordsAndKeyedRecords) {
    const auto record = Mate::SplitRecord(QStringLiteral("{name=\"a=b\",grpnum=3,junk,\"q=1\"}"));
    EXPECT_EQ(record, (std::map<QString, QString>{{"name", "\"a=b\""}, {"grpnum", "3"}}));

    const auto users = Mate::SplitKeyedRecords(
        QStringLiteral("{00={name=\"ann\",passwd=\"x\"},01={name=\"bob\"},02={passwd=\"y\"}}"),
        QStringLiteral("Op"), {QStringLiteral("name"), QStringLiteral("passwd")});
    ASSERT_EQ(users.size(), 1u);
    EXPECT_EQ(users[0].first, 0u);
    EXPECT_EQ(users[0].second.at(QStringLiteral("name")), QStringLiteral("\"ann\""));
}

TEST(SettingsTree, ParsesRecordsListsAndLeaves) {
    const auto tree = pell::SettingsNode::Parse(
        QStringLiteral("{ssid=\"a,b=c\",sats={1,2,3},pos={W84,N1},usr={00={name=\"x\"}},e={}}"),
        true);
    ASSERT_FALSE(tree.leaf);
    EXPECT_EQ(tree.children.at("ssid").value, QStringLiteral("\"a,b=c\""));
    EXPECT_TRUE(tree.children.at("sats").leaf);
    EXPECT_TRUE(tree.children.at("pos").leaf);
    EXPECT_EQ(tree.children.at("e").value, QStringLiteral("{}"));
    const auto& usr = tree.children.at("usr");
    ASSERT_FALSE(usr.leaf);
    EXPECT_EQ(usr.children.at("00").children.at("name").value, QStringLiteral("\"x\""));
}

TEST(SettingsTree, RestoreCommandsPutBackOnlyWhatChanged) {
    using pell::SettingsNode;
    const auto recorded = SettingsNode::Parse(
        QStringLiteral("{a=1,b=\"t\",usr={00={n=\"x\"},02={n=\"y\"}},ro=\"s\"}"), true);
    const auto current = SettingsNode::Parse(
        QStringLiteral("{a=2,b=\"t\",usr={00={n=\"z\"},05={n=\"new\"}},ro=\"s\"}"), true);
    QStringList skipped;
    EXPECT_EQ(pell::RestoreCommands(QStringLiteral("net"), recorded, current, &skipped),
              (QStringList{"remove,net/usr/05", "create,net/usr,2", "set,net/a,1",
                           "set,net/usr/00/n,\"x\"", "set,net/usr/02/n,\"y\""}));
    EXPECT_TRUE(skipped.isEmpty());
    EXPECT_TRUE(
        pell::RestoreCommands(QStringLiteral("net"), recorded, recorded, &skipped).isEmpty());
    // A list that had no items, or has none now, prints as a bare "{}".
    const auto empty = SettingsNode::Parse(QStringLiteral("{usr={}}"), true);
    EXPECT_EQ(pell::RestoreCommands(QStringLiteral("net"), empty, current, &skipped),
              (QStringList{"remove,net/usr/00", "remove,net/usr/05"}));
    EXPECT_EQ(pell::RestoreCommands(QStringLiteral("net"), recorded, empty, &skipped),
              (QStringList{"create,net/usr,0", "create,net/usr,2", "set,net/usr/00/n,\"x\"",
                           "set,net/usr/02/n,\"y\""}));
}

TEST(SettingsTree, ValuesThatWouldBeTwoCommandsAreNeverWrittenBack) {
    using pell::SettingsNode;
    const auto recorded =
        SettingsNode::Parse(QStringLiteral("{a=x;reset,yes,b=\"ok;\",c=,d=\"\\\n\",e\n=1}"), true);
    const auto current = SettingsNode::Parse(QStringLiteral("{a=1,b=\"no\",c=1,d=1,e\n=2}"), true);
    QStringList skipped;
    EXPECT_EQ(pell::RestoreCommands(QStringLiteral("p"), recorded, current, &skipped),
              QStringList{"set,p/b,\"ok;\""});
    EXPECT_EQ(skipped, (QStringList{"p/a", "p/c", "p/d"}));
}

} // namespace
