#include "receiver/LiveData.h"

#include "SimulatedReceiver.h"
#include "receiver/Satellites.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <gtest/gtest.h>

namespace {

using pell::SatelliteInfo;

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

TEST(SatellitesTest, NamedAsASurveyorReadsThem) {
    struct Case {
        int usi;
        int slot; // NN
        const char* name;
        const char* system;
        int number;
    } const cases[] = {
        {5, 255, "G05", "GPS", 5},        {37, 255, "G37", "GPS", 37},
        {45, 12, "R12", "GLONASS", 12},   {39, 255, "R??", "GLONASS", 0},
        {52, 25, "R25", "GLONASS", 25},   {71, 255, "E01", "Galileo", 1},
        {106, 255, "E36", "Galileo", 36}, {123, 255, "S123", "SBAS", 123},
        {176, 255, "I01", "NavIC", 1},    {195, 255, "J03", "QZSS", 3},
        {225, 255, "C23", "BeiDou", 23},  {239, 255, "C37", "BeiDou", 37},
        {0, 255, "?0", "unknown", 0},     {65, 255, "?65", "unknown", 0},
        {250, 255, "?250", "unknown", 0},
    };
    for (const Case& c : cases) {
        SatelliteInfo satellite;
        satellite.USI = static_cast<std::uint8_t>(c.usi);
        satellite.NN = static_cast<std::uint8_t>(c.slot);
        EXPECT_EQ(pell::SatelliteName(satellite), c.name) << c.usi;
        EXPECT_EQ(pell::ConstellationName(pell::ConstellationOf(satellite)), c.system) << c.usi;
        EXPECT_EQ(pell::SatelliteNumber(satellite), c.number) << c.usi;
    }
}

} // namespace
