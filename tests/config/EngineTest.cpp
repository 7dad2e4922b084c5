#include "SimulatedReceiver.h"
#include "config/SettingsFile.h"
#include "config/VOXA2JSON.h"
#include "config/VexReceiverAccessor.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using namespace VOXA2JSON;

// A dictionary over parameters every profile of the simulator has, and one only some have.
constexpr char kDictionary[] = R"(<?xml version="1.0"?>
<Objects>
  <Object Name="Receiver" XLATE_FriendlyName="Receiver" Attr="DONOTIMPORTBYDEFAULT">
    <Variable Name="Model" Type="qstring" Attr="READONLY"><VOXA Parameter="rcv/model"/></Variable>
    <Variable Name="Missing" Type="integer"><VOXA Parameter="no/such/path"/></Variable>
  </Object>
  <Object Name="Positioning" XLATE_FriendlyName="Positioning">
    <Variable Name="Mask" Type="integer"><VOXA Parameter="pos/elm"/></Variable>
    <Variable Name="MaskAgain" Type="Integer"><VOXA Parameter="/par/pos/elm"/></Variable>
    <Variable Name="MaskHex" Type="integer" Attr="DONOTEXPORTBYDEFAULT">
      <VOXA Parameter="pos/elm" Radix="16"/></Variable>
    <Variable Name="MaskRadix3" Type="integer" Attr="DONOTEXPORTBYDEFAULT">
      <VOXA Parameter="pos/elm" Radix="3"/></Variable>
    <Variable Name="Pdop" Type="float"><VOXA Parameter="pos/pdop"/></Variable>
    <Variable Name="Gps" Type="[boolean"><VOXA Parameter="pos/gps/sat" True="y" False="n"/></Variable>
    <Variable Name="Gps3" Type="boolean" Attr="DONOTEXPORTBYDEFAULT">
      <VOXA Parameter="pos/gps/sat" Index="2" True="y" False="n"/></Variable>
    <Variable Name="Mode" Type="string"><VOXA Parameter="pos/mode/cur"/></Variable>
    <Variable Name="Heading" Type="string">
      <VOXA Parameter="hd/mode" ReceiverModels="Pardo-7;broken;a-b-c"/></Variable>
  </Object>
  <Object Name="Messages" Attr="DONOTEXPORTBYDEFAULT">
    <Variable Name="OMode" Type="[string"><VOXA Parameter="dev/ser/b/msgs"/></Variable>
    <Variable Name="DefMsgSet" Type="[message"><VOXA Parameter="msg/def/"/></Variable>
  </Object>
  <Object Name="Network" Attr="DONOTEXPORTBYDEFAULT">
    <Variable Name="Password" Type="qstring"><VOXA Parameter="net/passwd"/></Variable>
  </Object>
  <Unknown Name="Skipped"/>
</Objects>)";

std::shared_ptr<Object> LoadTestDictionary() {
    QString error;
    auto root = Dictionary::Parse(kDictionary, &error);
    EXPECT_TRUE(root) << error.toStdString();
    return root;
}

Variable& Find(Object& root, const QString& path) {
    for (Variable* variable : SelectedVariables(root))
        if (variable->Path() == path)
            return *variable;
    ADD_FAILURE() << "no variable " << path.toStdString();
    static Variable none;
    return none;
}

TEST(SettingsEngine, NamesTypesAndPatterns) {
    EXPECT_EQ(ParseAttributes("readonly; DoNotExportByDefault ;writeonly;other"),
              ReadOnly | DoNotExportByDefault | WriteOnly);
    EXPECT_EQ(ParseAttributes("readonly;DONOTEXPORTBYDEFAULT;x"), ReadOnly | DoNotExportByDefault);
    const struct {
        const char* text;
        EType type;
        const char* display;
    } types[] = {
        {"Boolean", EType::Boolean, "Boolean"},       {"[qstring", EType::QStringList, "[QString"},
        {"[MESSAGE", EType::MessageList, "[Message"}, {"[[integer", EType::Unknown, "Unknown"},
        {"int", EType::Unknown, "Unknown"},           {"", EType::Unknown, "Unknown"}};
    for (const auto& type : types) {
        EXPECT_EQ(ParseType(type.text), type.type) << type.text;
        EXPECT_EQ(TypeDisplayName(type.type), QString(type.display));
    }
    const struct {
        const char* pattern;
        const char* text;
        bool matches;
    } patterns[] = {{"4.*", "4.3.02 Mar,14,2024", true},
                    {"3.?", "3.9", true},
                    {"3.?", "3.10", false},
                    {"tre_3*", "TRE_3E", true},
                    {"*a*b*c*", "xxaxxbxxc", true},
                    {"*a*b*c*", "xxaxxcxxb", false},
                    {"", "", true},
                    {"", "x", false}};
    for (const auto& pattern : patterns)
        EXPECT_EQ(PatternMatches(pattern.pattern, pattern.text), pattern.matches)
            << pattern.pattern << " / " << pattern.text;
    const struct {
        const char* item;
        const char* model;
        bool matches;
    } models[] = {{"Ostrel-Q", "Ostrel Q", true},
                  {"ostrel-*", "Ostrel W", true},
                  {"Lumen-7", "Lumen7", true},
                  {"Lumen-7", "Lumen 8", false},
                  {"Pardo-7", "Pardo-7", true}};
    for (const auto& model : models)
        EXPECT_EQ(ModelMatches(*ParseModelPattern(model.item), model.model), model.matches)
            << model.item << " / " << model.model;
    for (const char* malformed : {"Ostrel", "a-b-c", "-Q", "Ostrel-", "Ost rel-Q"})
        EXPECT_FALSE(ParseModelPattern(malformed)) << malformed;
}

TEST(SettingsEngine, RefusesWhatIsNoDictionary) {
    const QByteArray deep = QByteArray("<Objects>") + QByteArray("<Object>").repeated(100000) +
                            QByteArray("</Object>").repeated(100000) + "</Objects>";
    for (const QByteArray& xml : {QByteArray(), QByteArray("<Objects>"),
                                  QByteArray("<Things><Object Name=\"a\"/></Things>"), deep}) {
        QString error;
        EXPECT_FALSE(Dictionary::Parse(xml, &error)) << xml.left(40).constData();
        EXPECT_EQ(error, XString(pell::ids::SettingsInvalidFileFormat));
    }
    QString error;
    EXPECT_FALSE(Dictionary::Load(QStringLiteral("/no/such/VOXA2JSON.xml"), &error));
    EXPECT_EQ(error, XString(pell::ids::SettingsInvalidFileFormat));
}

TEST(SettingsEngine, ReadsTheTreeAndItsBindings) {
    auto root = LoadTestDictionary();
    ASSERT_TRUE(root);
    EXPECT_EQ(root->name, QStringLiteral("<ROOT>"));
    ASSERT_EQ(root->children.size(), 4u); // the unknown element is skipped
    const Variable& gps3 = Find(*root, QStringLiteral("Positioning/Gps3"));
    EXPECT_EQ(gps3.type, EType::Boolean);
    EXPECT_EQ(gps3.bindings.at(0).index, 2);
    EXPECT_EQ(Find(*root, QStringLiteral("Positioning/MaskHex")).bindings.at(0).radix, 16);
    EXPECT_EQ(Find(*root, QStringLiteral("Positioning/Mask")).bindings.at(0).index, -1);
    const Variable& heading = Find(*root, QStringLiteral("Positioning/Heading"));
    EXPECT_EQ(heading.bindings.at(0).models, (std::vector<ModelPattern>{{"Pardo", "7"}}));
    EXPECT_EQ(root->children[0]->DisplayName(), QStringLiteral("Receiver"));
    EXPECT_EQ(Find(*root, QStringLiteral("Positioning/Mask")).DisplayName(),
              QStringLiteral("Mask"));
}

class SettingsEngineTest : public testing::Test {
protected:
    std::shared_ptr<Object> Export(pell::test::SimulatedReceiver& receiver, bool all = false) {
        auto root = LoadTestDictionary();
        SelectDefaults(*root, EDirection::Export, all);
        CVexReceiverAccessor accessor(receiver.Receiver());
        EXPECT_TRUE(ReadAll(*root, accessor));
        return root;
    }

    // Imports `json` into `receiver`: each selected variable's outcome and error by path.
    std::map<QString, std::pair<EWriteOutcome, QString>>
    Import(pell::test::SimulatedReceiver& receiver, const QByteArray& json, bool all = false) {
        auto root = LoadTestDictionary();
        auto document = SettingsDocument::Parse(json);
        EXPECT_TRUE(document) << json.constData();
        SelectDefaults(*root, EDirection::Import, all);
        TakeValues(*root, *document);
        CVexReceiverAccessor accessor(receiver.Receiver());
        std::map<QString, std::pair<EWriteOutcome, QString>> outcomes;
        for (Variable* variable : SelectedVariables(*root)) {
            const EWriteOutcome outcome = WriteVariable(*variable, accessor);
            outcomes[variable->Path()] = {outcome, variable->error};
        }
        return outcomes;
    }

    QString Run(pell::test::SimulatedReceiver& receiver, const QString& command) {
        return CVexReceiverMate(receiver.Receiver()).Run(command);
    }

    qsizetype Sent(pell::test::SimulatedReceiver& receiver, const QString& command) {
        return receiver.Simulator().ReceivedCommands().count(command);
    }

    static QString Gps(const char* changed) {
        QStringList items(32, QStringLiteral("y"));
        for (const char* c = changed; *c; ++c)
            items[*c - 'a'] = QStringLiteral("n");
        return QLatin1Char('{') + items.join(QLatin1Char(',')) + QLatin1Char('}');
    }
};

TEST_F(SettingsEngineTest, ExportsTheSelectedTreeMemberByMember) {
    pell::test::SimulatedReceiver receiver(QStringLiteral("pardo7"));
    Run(receiver, QStringLiteral("set,pos/elm,12"));
    Run(receiver, QStringLiteral("set,pos/gps/sat,") + Gps("bd"));
    auto root = Export(receiver);
    const QString gps = QStringLiteral("[true,false,true,false") +
                        QStringLiteral(",true").repeated(28) + QLatin1Char(']');
    // Missing failed to read and is left out; its object stays. Network is off by default.
    EXPECT_EQ(QString::fromUtf8(BuildJson(*root)),
              QStringLiteral(R"({"Receiver":{"Model":"Pardo7"},"Positioning":{"Mask":12,)"
                             R"("MaskAgain":12,"Pdop":30.0,"Gps":%1,"Mode":"pd","Heading":"off"}})")
                  .arg(gps));
    EXPECT_EQ(Find(*root, QStringLiteral("Receiver/Missing")).error,
              XString(pell::ids::SettingsDoesNotApply));
    // Two variables on one path, one print; the identity is asked once for the whole walk.
    EXPECT_EQ(Sent(receiver, QStringLiteral("print,pos/elm")), 1);
    EXPECT_EQ(Sent(receiver, QStringLiteral("print,/par/pos/elm")), 1);
    EXPECT_EQ(Sent(receiver, QStringLiteral("print,rcv/model")), 1);
}

TEST_F(SettingsEngineTest, ReadsEachKindOrSaysWhyNot) {
    pell::test::SimulatedReceiver receiver(QStringLiteral("ostrel-q"));
    Run(receiver, QStringLiteral("set,pos/elm,-1"));
    Run(receiver, QStringLiteral("set,net/passwd,\"a \\\"b\\\" c\""));
    auto root = Export(receiver, true);
    const struct {
        const char* path;
        const char* display;
        unsigned error;
    } cases[] = {
        {"Positioning/MaskHex", "", pell::ids::SettingsCannotParseReply}, // "-1" is no hex number
        {"Positioning/MaskRadix3", "", pell::ids::SettingsCannotParseReply},
        {"Positioning/Gps3", "true", 0},
        {"Positioning/Heading", "", pell::ids::SettingsDoesNotApply},
        {"Network/Password", "a \"b\" c", 0},
        {"Positioning/Pdop", "30", 0},
    };
    for (const auto& c : cases) {
        const Variable& variable = Find(*root, c.path);
        EXPECT_EQ(DisplayText(variable), QString(c.display)) << c.path;
        EXPECT_EQ(variable.error, c.error ? XString(c.error) : QString()) << c.path;
    }
}

TEST_F(SettingsEngineTest, WritesEachKindAsOneCommand) {
    pell::test::SimulatedReceiver receiver(QStringLiteral("ostrel-q"));
    const struct {
        const char* json;
        const char* command; // what reaches the receiver, or nothing
        EWriteOutcome outcome;
        unsigned error; // a text of ours, or 0 for none or the receiver's reply
    } cases[] = {
        {R"({"Positioning":{"Mask":-7}})", "set,pos/elm,-7", EWriteOutcome::Written, 0},
        {R"({"Positioning":{"MaskHex":26}})", "set,pos/elm,1A", EWriteOutcome::Failed, 0},
        {R"({"Positioning":{"MaskRadix3":26}})", nullptr, EWriteOutcome::Failed,
         pell::ids::SettingsCannotCompose},
        {R"({"Positioning":{"Pdop":2.5}})", "set,pos/pdop,2.500000", EWriteOutcome::Written, 0},
        {R"({"Positioning":{"Mode":"rtk"}})", "set,pos/mode/cur,rtk", EWriteOutcome::Failed, 0},
        {R"({"Positioning":{"Mode":"sp;reset,yes"}})", nullptr, EWriteOutcome::Failed,
         pell::ids::SettingsCannotCompose},
        {R"({"Network":{"Password":"x\";reset,yes"}})", R"(set,net/passwd,"x\";reset,yes")",
         EWriteOutcome::Written, 0},
        {R"({"Network":{"Password":"line\nbreak"}})", R"(set,net/passwd,"line\nbreak")",
         EWriteOutcome::Written, 0},
        {R"({"Network":{"Password":"bell\u0007"}})", nullptr, EWriteOutcome::Failed,
         pell::ids::SettingsCannotCompose},
        {R"({"Positioning":{"Gps3":false}})", nullptr, EWriteOutcome::Written, 0},
        {R"({"Positioning":{"Heading":"on"}})", nullptr, EWriteOutcome::Failed,
         pell::ids::SettingsDoesNotApply},
        {R"({"Receiver":{"Model":"Other"}})", nullptr, EWriteOutcome::Skipped, 0},
    };
    for (const auto& c : cases) {
        const qsizetype before = receiver.Simulator().ReceivedCount();
        const auto outcomes = Import(receiver, c.json, true);
        const auto written = std::find_if(outcomes.begin(), outcomes.end(), [](const auto& entry) {
            return entry.second.first != EWriteOutcome::Skipped;
        });
        const auto& [outcome, error] = written == outcomes.end()
                                           ? std::pair{EWriteOutcome::Skipped, QString()}
                                           : written->second;
        EXPECT_EQ(outcome, c.outcome) << c.json;
        const QString expected = c.error ? XString(c.error) : error;
        EXPECT_EQ(error, expected) << c.json;
        EXPECT_EQ(outcome == EWriteOutcome::Failed && !c.error, error.startsWith(QLatin1Char('{')))
            << c.json << error.toStdString();
        const QStringList& received = receiver.Simulator().ReceivedCommands();
        const QStringList sets =
            received.mid(received.size() - (receiver.Simulator().ReceivedCount() - before))
                .filter(QRegularExpression(QStringLiteral("^set,")));
        if (c.command) {
            EXPECT_EQ(sets, QStringList{c.command}) << c.json;
        } else {
            EXPECT_EQ(sets.size(), c.outcome == EWriteOutcome::Written ? 1 : 0) << c.json;
        }
    }
    // The indexed write changed item 2 alone.
    EXPECT_EQ(receiver.Value(QStringLiteral("pos/gps/sat")), Gps("c"));
    EXPECT_EQ(receiver.Value(QStringLiteral("net/passwd")), QStringLiteral(R"("line\nbreak")"));
}

// A port's output messages and the default message set go out as their message commands; an item
// that cannot be written stops the variable before anything is sent.
TEST_F(SettingsEngineTest, MessageSetsGoOutAsTheirCommands) {
    const char* kGga = R"({"Message":"nmea/GGA","Period":1,"Phase":0,"Count":0,"Flags":0})";
    const char* kRt = R"({"Message":"jps/RT","Period":0.5,"Phase":0.25,"Count":3,"Flags":26})";
    const struct {
        QByteArray json;
        QStringList commands;
        unsigned error; // 0 for written
    } cases[] = {
        {R"({"Messages":{"OMode":["nmea/GGA","jps/RT"]}})",
         {"dm,dev/ser/b/msgs", "em,dev/ser/b/msgs,nmea/GGA", "em,dev/ser/b/msgs,jps/RT"},
         0},
        {R"({"Messages":{"OMode":[]}})", {"dm,dev/ser/b/msgs"}, 0},
        {R"({"Messages":{"OMode":["nmea/GGA","no such"]}})", {}, pell::ids::SettingsCannotCompose},
        {R"({"Messages":{"OMode":["nmea/GGA","nmea/XYZ","jps/RT"]}})",
         {"dm,dev/ser/b/msgs", "em,dev/ser/b/msgs,nmea/GGA", "em,dev/ser/b/msgs,nmea/XYZ"},
         1},
        {QByteArray(R"({"Messages":{"DefMsgSet":[)") + kGga + "," + kRt + "]}}",
         {"remove,msg/def/", "create,msg/def/nmea/GGA",
          "set,msg/def/nmea/GGA,{1.000000,0.000000,0,0x0}", "create,msg/def/jps/RT",
          "set,msg/def/jps/RT,{0.500000,0.250000,3,0x1a}"},
         0},
        {QByteArray(R"({"Messages":{"DefMsgSet":[)") + kGga +
             R"(,{"Message":"nmea/XYZ","Period":1,"Phase":0,"Count":0,"Flags":0}]}})",
         {"remove,msg/def/", "create,msg/def/nmea/GGA",
          "set,msg/def/nmea/GGA,{1.000000,0.000000,0,0x0}", "create,msg/def/nmea/XYZ"},
         pell::ids::SettingsMessagesRestored},
        {QByteArray(R"({"Messages":{"DefMsgSet":[)") + kGga +
             R"(,{"Message":"a;reset,yes","Period":1,"Phase":0,"Count":0,"Flags":0}]}})",
         {},
         pell::ids::SettingsCannotCompose},
    };
    pell::test::SimulatedReceiver receiver(QStringLiteral("ostrel-q"));
    for (const auto& c : cases) {
        const qsizetype before = receiver.Simulator().ReceivedCount();
        const auto outcomes = Import(receiver, c.json, true);
        const QStringList& received = receiver.Simulator().ReceivedCommands();
        QStringList sent =
            received.mid(received.size() - (receiver.Simulator().ReceivedCount() - before));
        sent.removeIf([](const QString& line) {
            return line.startsWith(QLatin1String("list,")) ||
                   line.startsWith(QLatin1String("print,"));
        });
        EXPECT_EQ(sent, c.commands) << c.json.constData();
        const auto written = std::find_if(outcomes.begin(), outcomes.end(), [](const auto& entry) {
            return entry.second.first != EWriteOutcome::Skipped;
        });
        ASSERT_NE(written, outcomes.end()) << c.json.constData();
        const auto& [outcome, error] = written->second;
        EXPECT_EQ(outcome, c.error ? EWriteOutcome::Failed : EWriteOutcome::Written);
        const QString expected = c.error == pell::ids::SettingsMessagesRestored
                                     ? QString::asprintf(qUtf8Printable(XString(c.error)), 1u, 2u)
                                     : (c.error == 1 ? QStringLiteral("{2,,value out of range}")
                                                     : (c.error ? XString(c.error) : QString()));
        EXPECT_EQ(error, expected) << c.json.constData();
    }
    EXPECT_EQ(receiver.Value(QStringLiteral("msg/def")),
              QStringLiteral("{nmea/GGA={1.00,0.00,0,0x0}}"));
}

TEST_F(SettingsEngineTest, RoundTripPutsTheReceiverBack) {
    pell::test::SimulatedReceiver receiver(QStringLiteral("pardo7"));
    Run(receiver, QStringLiteral("set,pos/elm,15;set,hd/mode,rover;set,net/passwd,\"s3cret\""));
    const QByteArray exported = BuildJson(*Export(receiver, true));
    Run(receiver,
        QStringLiteral("set,pos/elm,3;set,hd/mode,off;set,pos/pdop,9;set,net/passwd,\"\""));
    Run(receiver, QStringLiteral("set,pos/gps/sat,") + Gps("aq"));
    ASSERT_NE(BuildJson(*Export(receiver, true)), exported);
    for (const auto& [path, outcome] : Import(receiver, exported, true))
        EXPECT_NE(outcome.first, EWriteOutcome::Failed)
            << path.toStdString() << " " << outcome.second.toStdString();
    EXPECT_EQ(BuildJson(*Export(receiver, true)), exported);
}

TEST_F(SettingsEngineTest, ImportIntoAnotherProfileSaysWhatDoesNotApply) {
    pell::test::SimulatedReceiver pardo(QStringLiteral("pardo7"));
    const QByteArray json = BuildJson(*Export(pardo));
    pell::test::SimulatedReceiver lumen(QStringLiteral("lumen7"));
    const auto outcomes = Import(lumen, json);
    EXPECT_EQ(outcomes.at(QStringLiteral("Positioning/Heading")),
              std::pair(EWriteOutcome::Failed, XString(pell::ids::SettingsDoesNotApply)));
    EXPECT_EQ(outcomes.at(QStringLiteral("Positioning/Mask")).first, EWriteOutcome::Written);
    EXPECT_FALSE(outcomes.contains(QStringLiteral("Receiver/Model"))); // not imported by default
    // Filtered away by its model before the receiver is asked.
    EXPECT_EQ(Sent(lumen, QStringLiteral("list,hd/mode")), 0);
}

TEST(SettingsFile, HostileFilesAreRefusedOrSkippedMemberByMember) {
    const QByteArray deep = QByteArray("{\"a\":") + QByteArray("[").repeated(100000) +
                            QByteArray("]").repeated(100000) + "}";
    QByteArray huge(SettingsDocument::kMaxBytes + 1, ' ');
    huge[0] = '{';
    huge[huge.size() - 1] = '}';
    for (const QByteArray& json :
         {QByteArray(), QByteArray("not json"), QByteArray("[1,2]"), QByteArray("{} {}"),
          QByteArray("{\"a\":\"\xff\xfe\"}"), QByteArray("{\"a\":NaN}"),
          QByteArray("{\"a\":1e400}"), deep, huge})
        EXPECT_FALSE(SettingsDocument::Parse(json)) << json.left(40).constData();

    auto root = LoadTestDictionary();
    const auto document = SettingsDocument::Parse(
        R"({"Receiver":[],"Positioning":{"Mask":"12","MaskAgain":4294967296,"Pdop":7,)"
        R"("Gps":[true,1],"Mode":"sp","Unknown":{"x":1}},"Extra":true})");
    ASSERT_TRUE(document);
    TakeValues(*root, *document);
    SelectDefaults(*root, EDirection::Import, true);
    QStringList valid;
    for (const Variable* variable : SelectedVariables(*root))
        if (!variable->value.invalid)
            valid << variable->Path() + QLatin1Char('=') + DisplayText(*variable);
    EXPECT_EQ(valid, (QStringList{"Positioning/Pdop=7", "Positioning/Mode=sp"}));
}

TEST(SettingsFile, NumbersReadAsTheDoublesTheyWrite) {
    const struct {
        const char* text;
        double value;
    } numbers[] = {{"0.07000000000000001", 0.07000000000000001},
                   {"99999999999999999999999992", 99999999999999999999999992.0},
                   {"0e90", 0.0},
                   {"-1e-400", -0.0},
                   {"18446744073709551616", 18446744073709551616.0}};
    for (const auto& number : numbers) {
        auto root = LoadTestDictionary();
        const auto document =
            SettingsDocument::Parse(QByteArray(R"({"Positioning":{"Pdop":)") + number.text + "}}");
        ASSERT_TRUE(document) << number.text;
        TakeValues(*root, *document);
        const Value& value = Find(*root, QStringLiteral("Positioning/Pdop")).value;
        EXPECT_FALSE(value.invalid) << number.text;
        EXPECT_EQ(value.real, number.value) << number.text;
        EXPECT_EQ(std::signbit(value.real), std::signbit(number.value)) << number.text;
    }
}

TEST_F(SettingsEngineTest, FailedOrStoppedExportLeavesTheEarlierFile) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("settings.json"));
    QFile earlier(path);
    ASSERT_TRUE(earlier.open(QIODevice::WriteOnly));
    earlier.write("{\"earlier\":true}");
    earlier.close();

    pell::test::SimulatedReceiver receiver;
    auto root = LoadTestDictionary();
    SelectDefaults(*root, EDirection::Export);
    CVexReceiverAccessor accessor(receiver.Receiver());
    QString error;
    const auto stopHalfWay = [](int done, int total) {
        return done < total / 2;
    };
    EXPECT_FALSE(ExportSettings(*root, accessor, path, stopHalfWay, &error));
    EXPECT_TRUE(error.isEmpty());

    std::stop_source cancel;
    cancel.request_stop();
    CVexReceiverAccessor cancelled(receiver.Receiver());
    cancelled.SetCancel(cancel.get_token());
    EXPECT_THROW(ExportSettings(*root, cancelled, path, {}, &error), ulm_std::CWinException);

    EXPECT_FALSE(
        WriteSettingsFile(dir.filePath(QStringLiteral("no/such/folder/x.json")), "{}", &error));
    EXPECT_FALSE(error.isEmpty());
    ASSERT_TRUE(earlier.open(QIODevice::ReadOnly));
    EXPECT_EQ(earlier.readAll(), QByteArray("{\"earlier\":true}"));
    earlier.close();

    EXPECT_TRUE(ExportSettings(*root, accessor, path, {}, &error));
    const auto written = ReadSettingsFile(path, &error);
    EXPECT_TRUE(written);
    EXPECT_FALSE(ReadSettingsFile(dir.filePath(QStringLiteral("none.json")), &error));
    EXPECT_EQ(error, XString(pell::ids::SettingsFileCannotBeParsed));
}

} // namespace
