#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <gtest/gtest.h>

namespace {

using namespace pell::vexcmd;

TEST(CommandFormats, OneFormatPerValueKind) {
    const std::pair<QString, const char*> cases[] = {
        {Print(QStringLiteral("pos/elm")), "print,pos/elm"},
        {Print(QStringLiteral("/log/&[name,size,time]")), "print,/log/&[name,size,time]"},
        {PrintNeedsReset(QStringLiteral("net/ip/addr")), "print,net/ip/addr&reset"},
        {Reset(), "reset,yes"},
        {SetChoice(QStringLiteral("/par/dev/ser/a/rate"), QStringLiteral("115200")),
         "set,/par/dev/ser/a/rate,115200"},
        {SetSigned(QStringLiteral("dev/pps/a/offs/ns"), -250), "set,dev/pps/a/offs/ns,-250"},
        {SetUnsigned(QStringLiteral("grpnum"), 4000000000u), "set,grpnum,4000000000"},
        {SetReal(QStringLiteral("mask"), 12.5), "set,mask,12.500000"},
        {SetReal(QStringLiteral("mask"), -0.0000004), "set,mask,-0.000000"},
        {SetText(QStringLiteral("usr/01/name"), QStringLiteral("Ann")), "set,usr/01/name,\"Ann\""},
        {SetText(QStringLiteral("n"), QString()), "set,n,\"\""},
        {SetText(QStringLiteral("n"), QStringLiteral("a\"b\\c\r\nd\te")),
         "set,n,\"a\\\"b\\\\c\\r\\nd\te\""},
    };
    for (const auto& [command, expected] : cases)
        EXPECT_EQ(command, QString::fromUtf8(expected));
}

TEST(CommandFormats, NothingUnsafeBecomesACommand) {
    const auto refused = [](const std::function<QString()>& build) {
        return pell::test::ErrorCodeOf(build) == pell::ERROR_INVALID_PARAMETER;
    };
    for (const char* path : {"pos/elm;reset,yes", "pos/elm,x", "a]b[,c", ""})
        EXPECT_TRUE(refused([&] { return Print(QString::fromUtf8(path)); })) << path;
    for (const char* word : {"on;power,off", "on off", "\"on\"", "{on}", "on\n"})
        EXPECT_TRUE(refused([&] {
            return SetChoice(QStringLiteral("p"), QString::fromUtf8(word));
        })) << word;
    for (const double value :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        EXPECT_TRUE(refused([&] { return SetReal(QStringLiteral("p"), value); })) << value;
    for (const QString& text : {QStringLiteral("a\x01b"), QString(QChar(0)), QString(QChar(0x7F)),
                                QString(QChar(0xD800))})
        EXPECT_TRUE(refused([&] { return SetText(QStringLiteral("p"), text); }))
            << text.toStdString();
    EXPECT_TRUE(refused([] { return SetText(QStringLiteral("p;x"), QStringLiteral("a")); }));
}

TEST(CommandFormats, QuotingRoundTrips) {
    const QString texts[] = {
        QString(),
        QStringLiteral("\""),
        QStringLiteral("\\"),
        QStringLiteral("\\\""),
        QStringLiteral("a\r\nb"),
        QStringLiteral("Grüße 東京 🛰"),
    };
    for (const QString& text : texts)
        EXPECT_EQ(UnquoteText(QuoteText(text, QStringLiteral("p"))), text);
    for (const char* broken : {"", "\"", "a", "\"a", "\"a\"b\"", "\"a\\\"", "\"\\x\""})
        EXPECT_FALSE(UnquoteText(QString::fromUtf8(broken))) << broken;
}

// What a user may type into a name field, sent to the simulated receiver: each must arrive as
// exactly the one intended command and come back unchanged, or be refused before anything is sent.
TEST(CommandFormats, HostileTextReachesTheReceiverAsOneCommand) {
    pell::test::SimulatedReceiver sim;
    CVexReceiverMate mate(sim.Receiver());
    const QString path = QStringLiteral("wlan/ap/passwd");
    const QString texts[] = {
        QStringLiteral("x\";set,pos/elm,7;print,\""),
        QStringLiteral("x\"\r\nset,pos/elm,7\r\n"),
        QStringLiteral("a\\"),
        QStringLiteral("\\\";reset,yes;\""),
        QStringLiteral("{},;=&:on"),
        QStringLiteral("%ls%n%s"),
        QStringLiteral("$GPGGA,1*00"),
        QStringLiteral("RE000004%1%ok"),
        QStringLiteral("Grüße 東京"),
    };
    const QString elevationMask = sim.Value(QStringLiteral("pos/elm"));
    for (const QString& text : texts) {
        const qsizetype before = sim.Simulator().ReceivedCommands().size();
        const QString command = SetText(path, text);
        EXPECT_NO_THROW(mate.Run(command)) << text.toStdString();
        const QStringList received = sim.Simulator().ReceivedCommands().mid(before);
        EXPECT_EQ(received, QStringList{command}) << text.toStdString();
        EXPECT_EQ(mate.Run(Print(path), CVexReceiverMate::RemoveQuotes), text);
    }
    EXPECT_EQ(sim.Value(QStringLiteral("pos/elm")), elevationMask);

    const qsizetype before = sim.Simulator().ReceivedCommands().size();
    EXPECT_THROW(mate.Run(SetText(path, QStringLiteral("a\x1b[2J"))), ulm_std::CWinException);
    EXPECT_EQ(sim.Simulator().ReceivedCommands().size(), before) << "refused text sent";
}

} // namespace
