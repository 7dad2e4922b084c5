#include "receiver/LiveData.h"

#include "SimulatedReceiver.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <gtest/gtest.h>

namespace {

// The documented lines go out as they are, unanswered by anyone waiting; a receiver that never
// answers holds nothing up (the next command is answered in its time).
TEST(LiveDataTest, RequestAndStopArePostedAsDocumented) {
    EXPECT_EQ(pell::LiveDataStartLine(),
              "em,/cur/term,nmea/GGA;em,/cur/term,nmea/RMC;em,/cur/term,nmea/GSA;"
              "em,/cur/term,nmea/GSV;em,/cur/term,nmea/PELSAT");
    EXPECT_EQ(pell::LiveDataStopLine(),
              "dm,/cur/term,nmea/GGA;dm,/cur/term,nmea/RMC;dm,/cur/term,nmea/GSA;"
              "dm,/cur/term,nmea/GSV;dm,/cur/term,nmea/PELSAT");
    pell::test::SimulatedReceiver receiver;
    receiver.Simulator().GetFaults().silentPaths.insert(QStringLiteral("cur/term"));
    EXPECT_TRUE(pell::StartLiveData(*receiver.Receiver()));
    EXPECT_EQ(
        CVexReceiverMate(receiver.Receiver()).Run(pell::vexcmd::Print(QStringLiteral("pos/elm"))),
        receiver.Value(QStringLiteral("pos/elm")));
    EXPECT_TRUE(pell::StopLiveData(*receiver.Receiver()));
    pell::test::Spin(20);
    EXPECT_EQ(receiver.Simulator().ReceivedCommands().first(), pell::LiveDataStartLine());
    EXPECT_EQ(receiver.Simulator().ReceivedCommands().last(), pell::LiveDataStopLine());
    EXPECT_EQ(receiver.Receiver()->UnmatchedReplies(), 0u);
    receiver.Receiver()->Disconnect();
    EXPECT_FALSE(pell::StopLiveData(*receiver.Receiver()));
}

} // namespace
