#include "CommandLine.h"

#include <gtest/gtest.h>

namespace pell {

void PrintTo(const ReceiverTarget& target, std::ostream* os) {
    *os << target.kind << ' ' << target.name.toStdString() << ' ' << target.number
        << (target.rtsCts ? " rtscts" : "");
}

} // namespace pell

namespace {

using dorrit::CommandLine;
using pell::ReceiverTarget;

ReceiverTarget Simulator(const char* profile) {
    return {ReceiverTarget::Simulator, QString::fromUtf8(profile), 0, false};
}
ReceiverTarget Serial(const char* device, int rate, bool rtsCts = false) {
    return {ReceiverTarget::Serial, QString::fromUtf8(device), rate, rtsCts};
}
ReceiverTarget Tcp(const char* host, int port) {
    return {ReceiverTarget::Tcp, QString::fromUtf8(host), port, false};
}

TEST(CommandLineTest, ReceiverTargets) {
    struct Case {
        QStringList arguments;
        std::optional<ReceiverTarget> target;
        const char* error; // a part of the message; null when the arguments are good
    };
    const Case cases[] = {
        {{}, std::nullopt, nullptr},
        {{"--simulator"}, Simulator("alpha"), nullptr},
        {{"--simulator", "beta"}, Simulator("beta"), nullptr},
        {{"--simulator", "--screenshots", "out"}, Simulator("alpha"), nullptr},
        {{"--simulator", "gamma"}, std::nullopt, "alpha, beta"},
        {{"--simulator=gamma"}, std::nullopt, "\"gamma\""},
        {{"--serial", "/dev/ttyUSB0"}, Serial("/dev/ttyUSB0", 115200), nullptr},
        {{"--serial", "/dev/ttyUSB0@9600"}, Serial("/dev/ttyUSB0", 9600), nullptr},
        {{"--serial=/dev/ttyUSB0@921600,rtscts"}, Serial("/dev/ttyUSB0", 921600, true), nullptr},
        {{"--serial", "COM3,RTSCTS"}, Serial("COM3", 115200, true), nullptr},
        {{"--serial", "/dev/ttyUSB0@0"}, std::nullopt, "--serial"},
        {{"--serial", "/dev/ttyUSB0@+9600"}, std::nullopt, "--serial"},
        {{"--serial", "/dev/ttyUSB0@99999999999"}, std::nullopt, "--serial"},
        {{"--serial", "/dev/ttyUSB0@9600,xonxoff"}, std::nullopt, "--serial"},
        {{"--serial", "@9600"}, std::nullopt, "--serial"},
        {{"--connect", "tcp://127.0.0.1:8002"}, Tcp("127.0.0.1", 8002), nullptr},
        {{"--connect", "rx.local:8002"}, Tcp("rx.local", 8002), nullptr},
        {{"--connect", "tcp://[::1]:8002"}, Tcp("::1", 8002), nullptr},
        {{"--connect", "tcp://rx.local"}, std::nullopt, "--connect"},
        {{"--connect", "http://rx.local:80"}, std::nullopt, "--connect"},
        {{"--connect", "tcp://rx.local:0"}, std::nullopt, "--connect"},
        {{"--connect", "tcp://rx.local:70000"}, std::nullopt, "--connect"},
        {{"--connect", "tcp://rx.local:8002/path"}, std::nullopt, "--connect"},
        {{"--connect", "tcp://user@rx.local:8002"}, std::nullopt, "--connect"},
        {{"--connect", "tcp://:8002"}, std::nullopt, "--connect"},
        {{"--simulator", "--serial", "/dev/ttyUSB0"}, std::nullopt, "one receiver"},
        {{"--serial", "a", "--serial", "b"}, std::nullopt, "one receiver"},
        {{"--simulator", "alpha", "beta"}, std::nullopt, "\"beta\""},
        {{"--frobnicate"}, std::nullopt, "frobnicate"},
    };
    for (const Case& c : cases) {
        const QStringList arguments = QStringList{QStringLiteral("dorrit")} + c.arguments;
        SCOPED_TRACE(arguments.join(QLatin1Char(' ')).toStdString());
        CommandLine commandLine({QStringLiteral("alpha"), QStringLiteral("beta")});
        const bool parsed = commandLine.Parse(arguments);
        EXPECT_EQ(parsed, c.error == nullptr) << commandLine.Error().toStdString();
        if (c.error)
            EXPECT_TRUE(commandLine.Error().contains(QString::fromUtf8(c.error)))
                << commandLine.Error().toStdString();
        else
            EXPECT_EQ(commandLine.Target(), c.target);
    }
}

// "--simulator" that is the value of another option is that option's value.
TEST(CommandLineTest, AnOptionsValueStaysAsTyped) {
    CommandLine commandLine({QStringLiteral("alpha")});
    ASSERT_TRUE(commandLine.Parse({QStringLiteral("dorrit"), QStringLiteral("--screenshots"),
                                   QStringLiteral("--simulator")}));
    EXPECT_EQ(commandLine.ScreenshotFolder(), QStringLiteral("--simulator"));
    EXPECT_FALSE(commandLine.Target());
}

} // namespace
