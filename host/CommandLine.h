#pragma once

#include "receiver/TargetOptions.h"

#include <QCommandLineParser>
#include <QStringList>

namespace dorrit {

// dorrit's command line: where to connect, and whether to render screenshots instead.
class CommandLine {
public:
    // `profiles`: the simulator's profile names, the first being the default.
    explicit CommandLine(QStringList profiles);

    // Reads `arguments` (the program first); false with Error() set when they make no sense.
    bool Parse(QStringList arguments);
    QString Error() const { return m_error; }

    bool WantsHelp() const;
    bool WantsVersion() const;
    // Prints the usage and exits.
    [[noreturn]] void ShowHelp() { m_parser.showHelp(); }
    [[noreturn]] void ShowVersion() { m_parser.showVersion(); }

    const std::optional<pell::ReceiverTarget>& Target() const { return m_target; }
    QString ScreenshotFolder() const;

private:
    pell::CTargetOptions m_targetOptions;
    QCommandLineParser m_parser;
    QCommandLineOption m_help;
    QCommandLineOption m_version;
    QCommandLineOption m_screenshots;
    std::optional<pell::ReceiverTarget> m_target;
    QString m_error;
};

} // namespace dorrit
