#include "CommandLine.h"

#include <QObject>

namespace dorrit {

namespace {

const QString kSimulator = QStringLiteral("--simulator");

// The options that take the next argument as their value (unless given with "=").
bool TakesNextArgument(const QString& argument) {
    static const QStringList options = {QStringLiteral("--screenshots"),
                                        QStringLiteral("--connect"), QStringLiteral("--serial")};
    return options.contains(argument);
}

// QCommandLineParser knows options that always or never take a value; "--simulator" takes one
// only when a word that is not an option follows. As the value of another option it stays as is.
void JoinSimulatorProfile(QStringList& arguments) {
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        if (TakesNextArgument(arguments[i])) {
            ++i;
            continue;
        }
        if (arguments[i] != kSimulator)
            continue;
        const bool named =
            i + 1 < arguments.size() && !arguments[i + 1].startsWith(QLatin1Char('-'));
        arguments[i] =
            kSimulator + QLatin1Char('=') + (named ? arguments.takeAt(i + 1) : QString());
    }
}

} // namespace

CommandLine::CommandLine(QStringList profiles)
    : m_profiles(std::move(profiles)), m_help(m_parser.addHelpOption()),
      m_version(m_parser.addVersionOption()),
      m_screenshots(QStringLiteral("screenshots"),
                    QObject::tr("Save a PNG of every window into DIR and exit."),
                    QStringLiteral("DIR")),
      m_simulator(QStringLiteral("simulator"),
                  QObject::tr("Connect to the simulated receiver (one of: %1; the first if none "
                              "is given).")
                      .arg(m_profiles.join(QStringLiteral(", "))),
                  QStringLiteral("PROFILE")),
      m_tcp(QStringLiteral("connect"), QObject::tr("Connect to a receiver at tcp://HOST:PORT."),
            QStringLiteral("URL")),
      m_serial(QStringLiteral("serial"),
               QObject::tr("Connect to a receiver on a serial port; RATE defaults to 115200, "
                           "\",rtscts\" turns on hardware flow control."),
               QStringLiteral("DEVICE[@RATE][,rtscts]")) {
    m_parser.setApplicationDescription(
        QObject::tr("Field application for configuring and monitoring a GNSS receiver."));
    m_parser.addOptions({m_screenshots, m_simulator, m_tcp, m_serial});
}

bool CommandLine::Parse(QStringList arguments) {
    m_target.reset();
    m_error.clear();
    JoinSimulatorProfile(arguments);
    if (!m_parser.parse(arguments)) {
        m_error = m_parser.errorText();
        return false;
    }
    if (!m_parser.positionalArguments().isEmpty()) {
        m_error = QObject::tr("Unexpected argument \"%1\".").arg(m_parser.positionalArguments()[0]);
        return false;
    }
    // Counted per value, so that a repeated option is refused too.
    const qsizetype chosen = m_parser.values(m_simulator).size() + m_parser.values(m_tcp).size() +
                             m_parser.values(m_serial).size();
    if (chosen > 1) {
        m_error = QObject::tr("Choose one receiver: --simulator, --connect or --serial.");
        return false;
    }
    if (m_parser.isSet(m_simulator)) {
        QString profile = m_parser.value(m_simulator);
        if (profile.isEmpty() && !m_profiles.isEmpty())
            profile = m_profiles.front();
        if (!m_profiles.contains(profile)) {
            m_error = QObject::tr("Unknown simulator profile \"%1\"; the profiles are: %2.")
                          .arg(profile, m_profiles.join(QStringLiteral(", ")));
            return false;
        }
        m_target = ReceiverTarget{ReceiverTarget::Simulator, profile, 0, false};
    } else if (m_parser.isSet(m_tcp)) {
        m_target = ReceiverTarget::FromUrl(m_parser.value(m_tcp));
        if (!m_target)
            m_error = QObject::tr("--connect takes tcp://HOST:PORT, not \"%1\".")
                          .arg(m_parser.value(m_tcp));
    } else if (m_parser.isSet(m_serial)) {
        m_target = ReceiverTarget::FromSerial(m_parser.value(m_serial));
        if (!m_target)
            m_error = QObject::tr("--serial takes DEVICE[@RATE][,rtscts], not \"%1\".")
                          .arg(m_parser.value(m_serial));
    }
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
