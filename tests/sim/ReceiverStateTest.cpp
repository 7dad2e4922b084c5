#include "ReceiverState.h"

#include "Model.h"
#include "SimulatedReceiver.h"

#include <gtest/gtest.h>

namespace {

using pell::test::SmallModel;
using rxsim::CModel;
using rxsim::CReceiverState;

class ReceiverStateTest : public testing::Test {
protected:
    rxsim::Answer Run(const QString& line) { return state.Execute(line, effects); }

    CReceiverState state{*SmallModel(), *SmallModel()->FindProfile(QStringLiteral("alpha"))};
    rxsim::SideEffects effects;
};

struct Exchange {
    const char* command;
    bool error;
    const char* reply;
};

// Commands in order against one receiver; each case sees what the ones before it did. What the
// protocol client already checks against the rxsim program is not repeated here.
TEST_F(ReceiverStateTest, VerbsAndTheirErrors) {
    const Exchange script[] = {
        {"print,pos/elm", false, "10"}, // profile value
        {"print,alm", false, "{}"},     // no almanacs given
        {"print,par/pos/elm&def", false, "5"},
        {"print,pos/elm&reset", false, "n"},
        {"print,dev/ser/b/rate&reset", false, "y"},
        {"print,dev/ser&reset", true, "{1,,unknown path}"},
        {"set,pos/elm,-15", false, ""},
        {"print,pos/elm", false, "-15"},
        {"set,pos/elm,91", true, "{2,,value out of range}"},
        {"set,pos/pdop,-1", true, "{2,,value out of range}"},
        {"set,ant/rcv/h,2.25", false, ""},
        {"print,ant/rcv/h", false, "2.25"},
        {"set,ant/rcv/h,nan", true, "{2,,value out of range}"},
        {"set,dev/ser/a/rate,9600", false, ""},
        {"set,dev/ser/a/rate,9601", true, "{2,,value out of range}"},
        {"set,dev/ser/a/rtscts,ON", true, "{2,,value out of range}"}, // words are case-sensitive
        {"set,omni/rate,1219", false, ""},                            // numeric words
        {"set,nothing,1", true, "{1,,unknown path}"},
        {"set,net/wifi/ssid,\"123456789\"", true, "{2,,value out of range}"},
        {"set,net/wifi/ssid,\"a\"b\"", true, "{3,,bad syntax}"},
        {"set,pos/gps/sat,{n,n,y}", false, ""},
        {"print,pos/gps/sat", false, "{n,n,y}"},
        {"set,pos/gps/sat,{n,n", true, "{2,,value out of range}"},
        {"set,pos/mask,a0", false, ""},
        {"print,pos/mask", false, "A0"}, // hexadecimal, upper case
        {"set,pos/mask,0x10", true, "{2,,value out of range}"},
        {"set,pos/mask,10000", true, "{2,,value out of range}"},
        {"list,/", false, "{ant,app,cur,dev,msg,net,omni,pos,rcv}"}, // "app" holds an empty list
        {"print,app:on", false, "{ntrip={caster={usr={}}}}"},
        {"print,dev/ser/a:on", false, "{msgs={},rate=9600,rtscts=off}"},
        {"create,app/ntrip/caster/usr,3", false, "3"},
        {"create,app/ntrip/caster/usr,4", true, "{2,,value out of range}"}, // the list's maximum
        {"set,app/ntrip/caster/usr/03/name,\"ann\"", false, ""},
        {"create,app/ntrip/caster/usr,3", true, "{2,,value out of range}"}, // "ann" stays
        {"print,app/ntrip/caster/usr:on", false, "{03={grpnum=0,name=\"ann\"}}"},
        {"print,app/ntrip/caster&[usr]", false, "{usr={}}"}, // members are items, not fields
        {"print,app/ntrip/caster/usr&[name", true, "{3,,bad syntax}"},
        {"em,/dev/ser/a,jps/RT", false, ""},
        {"em,/dev/ser/a,jps/RT", false, ""}, // the same set twice is held once
        {"em,dev/ser/a/msgs,nmea/GGA", false, ""},
        {"print,dev/ser/a/msgs", false, "{jps/RT,nmea/GGA}"},
        {"em,/dev/ser/a,jps/XX", true, "{2,,value out of range}"},
        {"dm,/dev/ser/a/msgs,nmea/GGA", false, ""},
        {"set,dev/ser/a/msgs,{}", true, "{2,,access denied}"},
        {"list,dev/ser/a/msgs", false, "{}"},
        {"em,/dev/ser/b,jps/RT", false, ""},
        {"dm,/dev/ser/b", false, ""},
        {"print,dev/ser/b/msgs", false, "{}"},
        // The default message set: named schedules in the order they were created.
        {"print,msg/def/", false, "{nmea/GGA={1.00,0.00,0,0x0}}"},
        {"create,msg/def/jps/RT", false, ""},
        {"create,msg/def/jps/RT", true, "{2,,value out of range}"},
        {"create,msg/def/jps/XX", true, "{2,,value out of range}"},
        {"set,msg/def/jps/RT,{0.5,0.25,3,0x1F}", false, ""},
        {"print,msg/def/jps/RT", false, "{0.50,0.25,3,0x1f}"},
        {"set,msg/def/jps/RT,{0.5,0.25,3}", true, "{2,,value out of range}"},
        {"set,msg/def/jps/RT,{-1,0,0,0x0}", true, "{2,,value out of range}"},
        {"set,msg/def/jps/RT,{1,0,0,1F}", true, "{2,,value out of range}"},
        {"set,msg/def/nmea/GGA", true, "{3,,bad syntax}"},
        {"list,msg/def", false, "{nmea/GGA,jps/RT}"},
        {"print,msg:on", false, "{def={nmea/GGA={1.00,0.00,0,0x0},jps/RT={0.50,0.25,3,0x1f}}}"},
        {"remove,msg/def/nmea/GGA", false, ""},
        {"remove,msg/def/nmea/GGA", true, "{1,,unknown path}"},
        {"print,msg/def/nmea/GGA", true, "{1,,unknown path}"},
        {"remove,msg/def/", false, ""},
        {"print,msg/def", false, "{}"},
        {"init,msg", false, ""},
        {"print,msg/def", false, "{nmea/GGA={1.00,0.00,0,0x0}}"},
        {"out,/dev/ser/b,\"hello\"", false, ""},
        {"event,\"start=1\"", false, ""},
        {"print", true, "{3,,bad syntax}"},
    };
    for (const Exchange& e : script) {
        const rxsim::Answer answer = Run(QString::fromUtf8(e.command));
        EXPECT_EQ(answer.error, e.error) << e.command;
        EXPECT_EQ(answer.text, QString::fromUtf8(e.reply)) << e.command;
    }
    ASSERT_EQ(effects.portOutput.size(), 1u);
    EXPECT_EQ(effects.portOutput[0].first, QStringLiteral("dev/ser/b"));
    EXPECT_EQ(effects.portOutput[0].second, "hello");
    EXPECT_EQ(state.Events(), QStringList{QStringLiteral("start=1")});
    EXPECT_EQ(state.Messages().at(QStringLiteral("dev/ser/a")), QStringList{"jps/RT"});
}

TEST(ReceiverStateProfiles, FeaturesDecideWhichPathsExist) {
    CReceiverState beta(*SmallModel(), *SmallModel()->FindProfile(QStringLiteral("BETA")));
    rxsim::SideEffects effects;
    EXPECT_EQ(beta.Execute("print,net/wifi/ssid", effects).text,
              QStringLiteral("{1,,unknown path}"));
    EXPECT_EQ(beta.Execute("em,/dev/ble/a,x", effects).text, QStringLiteral("{1,,unknown path}"));
    EXPECT_EQ(beta.Execute("print,pos/elm", effects).text, QStringLiteral("5"));
}

TEST(ReceiverStateSplit, JoinedCommandsSplitOutsideQuotesAndBraces) {
    EXPECT_EQ(CReceiverState::SplitCommands("set,x,\"a;b\";print,y"),
              (QStringList{"set,x,\"a;b\"", "print,y"}));
    EXPECT_EQ(CReceiverState::SplitCommands("set,x,{a;b};p"), (QStringList{"set,x,{a;b}", "p"}));
    EXPECT_EQ(CReceiverState::SplitCommands("set,x,\"a\\\";b\""),
              (QStringList{"set,x,\"a\\\";b\""}));
}

TEST(ModelLoading, BrokenFilesGiveAReason) {
    EXPECT_THROW(CModel::Load(QStringLiteral(TEST_DATA_DIR "/does-not-exist.json")),
                 std::runtime_error);
    EXPECT_THROW(CModel::Load(QStringLiteral(TEST_DATA_DIR "/README.md")), std::runtime_error);
}

// The shipped model: every profile loads and answers its own identity.
TEST(ShippedModel, EveryProfileAnswersItsIdentity) {
    const CModel& model = *pell::test::ShippedModel();
    for (const rxsim::Profile& profile : model.Profiles()) {
        SCOPED_TRACE(profile.name.toStdString());
        CReceiverState state(model, profile);
        rxsim::SideEffects effects;
        EXPECT_EQ(state.Execute("print,rcv/model", effects).text, '"' + profile.model + '"');
        EXPECT_EQ(state.Execute("print,/par/rcv/ver/main", effects).text,
                  '"' + profile.firmware + '"');
        EXPECT_EQ(state.Execute("print,rcv/ver/board", effects).text, '"' + profile.board + '"');
        EXPECT_FALSE(state.Execute("print,cur/term/rate", effects).error);
        EXPECT_NE(state.Execute("print,msg/def", effects).text, QStringLiteral("{}"));
    }
}

TEST(ShippedModel, EveryDefaultIsAcceptedBack) {
    // Writing a parameter's own default must succeed: the model and the verbs agree.
    const CModel& model = *pell::test::ShippedModel();
    for (const rxsim::Profile& profile : model.Profiles()) {
        CReceiverState state(model, profile);
        rxsim::SideEffects effects;
        for (const rxsim::ParamSpec& def : model.Params()) {
            // Lists and message sets are nodes: their members are set, not they.
            if (def.readonly || def.kind == rxsim::ParamSpec::List ||
                def.kind == rxsim::ParamSpec::MessageSet ||
                (!def.feature.isEmpty() && !profile.features.contains(def.feature)) ||
                (def.kind == rxsim::ParamSpec::Raw && def.defaultValue.isEmpty()))
                continue;
            const QString value = state.Value(def.path).value_or(QString());
            const rxsim::Answer answer =
                state.Execute(QStringLiteral("set,%1,%2").arg(def.path, value), effects);
            EXPECT_FALSE(answer.error)
                << profile.name.toStdString() << " " << def.path.toStdString() << " = "
                << value.toStdString() << ": " << answer.text.toStdString();
        }
    }
}

} // namespace
