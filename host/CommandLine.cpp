#include "CommandLine.h"

#include <QObject>

namespace dorrit {

CommandLine::CommandLine(QStringList profiles)
    : m_targetOptions(std::move(profiles)), m_help(m_parser.addHelpOption()),
      m_version(m_parser.addVersionOption()),
      m_screenshots(QStringLiteral("screenshots"),
                    QObject::tr("Save a PNG of every window into DIR and exit."),
                    QStringLiteral("DIR")) {
    m_parser.setApplicationDescription(
        QObject::tr("Field application for configuring and monitoring a GNSS receiver."));
    m_parser.addOption(m_screenshots);
    m_targetOptions.AddTo(m_parser);
}

bool CommandLine::Parse(QStringList arguments) {
    m_target.reset();
    m_error.clear();
    m_targetOptions.JoinSimulatorProfile(arguments, {QStringLiteral("--screenshots")});
    if (!m_parser.parse(arguments)) {
        m_error = m_parser.errorText();
        return false;
    }
    if (!m_parser.positionalArguments().isEmpty()) {
        m_error = QObject::tr("Unexpected argument \"%1\".").arg(m_parser.positionalArguments()[0]);
        return false;
    }
    m_target = m_targetOptions.Read(m_parser, m_error);
    return m_error.isEmpty();
}

bool CommandLine::WantsHelp() const {
    return m_parser.isSet(m_help) || m_parser.isSet(QStringLiteral("help-all"));
}

bool CommandLine::WantsVersion() const {
    return m_parser.isSet(m_version);
}

QString CommandLine::ScreenshotFolder() const {
    return m_parser.value(m_screenshots);
}

} // namespace dorrit
