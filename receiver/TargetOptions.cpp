#include "receiver/TargetOptions.h"

#include <QObject>

namespace pell {

namespace {

const QString kSimulator = QStringLiteral("--simulator");

} // namespace

CTargetOptions::CTargetOptions(QStringList profiles)
    : m_profiles(std::move(profiles)),
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
               QStringLiteral("DEVICE[@RATE][,rtscts]")) {}

void CTargetOptions::AddTo(QCommandLineParser& parser) const {
    parser.addOptions({m_simulator, m_tcp, m_serial});
}

// QCommandLineParser knows options that always or never take a value; "--simulator" takes one
// only when a word that is not an option follows. As the value of another option it stays as is.
void CTargetOptions::JoinSimulatorProfile(QStringList& arguments, const QStringList& valued,
                                          bool onlyProfiles) const {
    const auto takesNext = [&valued](const QString& argument) {
        return argument == QLatin1String("--connect") || argument == QLatin1String("--serial") ||
               valued.contains(argument);
    };
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        if (takesNext(arguments[i])) {
            ++i;
            continue;
        }
        if (arguments[i] != kSimulator)
            continue;
        const bool named = i + 1 < arguments.size() &&
                           !arguments[i + 1].startsWith(QLatin1Char('-')) &&
                           (!onlyProfiles || m_profiles.contains(arguments[i + 1]));
        arguments[i] =
            kSimulator + QLatin1Char('=') + (named ? arguments.takeAt(i + 1) : QString());
    }
}

std::optional<ReceiverTarget> CTargetOptions::Read(const QCommandLineParser& parser,
                                                   QString& error) const {
    error.clear();
    // Counted per value, so that a repeated option is refused too.
    const qsizetype chosen = parser.values(m_simulator).size() + parser.values(m_tcp).size() +
                             parser.values(m_serial).size();
    if (chosen > 1) {
        error = QObject::tr("Choose one receiver: --simulator, --connect or --serial.");
        return std::nullopt;
    }
    std::optional<ReceiverTarget> target;
    if (parser.isSet(m_simulator)) {
        QString profile = parser.value(m_simulator);
        if (profile.isEmpty() && !m_profiles.isEmpty())
            profile = m_profiles.front();
        if (!m_profiles.contains(profile)) {
            error = QObject::tr("Unknown simulator profile \"%1\"; the profiles are: %2.")
                        .arg(profile, m_profiles.join(QStringLiteral(", ")));
            return std::nullopt;
        }
        target = ReceiverTarget{ReceiverTarget::Simulator, profile, 0, false};
    } else if (parser.isSet(m_tcp)) {
        target = ReceiverTarget::FromUrl(parser.value(m_tcp));
        if (!target)
            error = QObject::tr("--connect takes tcp://HOST:PORT, not \"%1\".")
                        .arg(parser.value(m_tcp));
    } else if (parser.isSet(m_serial)) {
        target = ReceiverTarget::FromSerial(parser.value(m_serial));
        if (!target)
            error = QObject::tr("--serial takes DEVICE[@RATE][,rtscts], not \"%1\".")
                        .arg(parser.value(m_serial));
    }
    return target;
}

} // namespace pell
