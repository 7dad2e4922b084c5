#include "receiver/LiveData.h"

#include "lib/Exceptions.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <QStringList>

namespace pell {

namespace {

// `verb,/cur/term,<set>` for every set, joined into one line.
QString ForEverySet(const QString& verb) {
    static const char* const sets[] = {"nmea/GGA", "nmea/RMC", "nmea/GSA", "nmea/GSV",
                                       "nmea/PELSAT"};
    QStringList parts;
    for (const char* set : sets)
        parts << verb + QStringLiteral(",/cur/term,") + QLatin1String(set);
    return parts.join(QLatin1Char(';'));
}

constexpr char kPositionSet[] = "nmea/GGA";

} // namespace

QString LiveDataStartLine() {
    return ForEverySet(QStringLiteral("em"));
}

QString LiveDataStopLine() {
    return ForEverySet(QStringLiteral("dm"));
}

bool StartLiveData(rxio::IReceiver& receiver) {
    return receiver.Post(LiveDataStartLine());
}

bool StopLiveData(rxio::IReceiver& receiver) {
    return receiver.Post(LiveDataStopLine());
}

CPositionFeed::CPositionFeed(std::shared_ptr<rxio::IReceiver> receiver)
    : m_receiver(std::move(receiver)) {
    try {
        const QString sent =
            CVexReceiverMate(m_receiver).Run(vexcmd::Print(QStringLiteral("/cur/term/msgs")));
        if (CVexReceiverMate::SplitList(CVexReceiverMate::StripBraces(sent))
                .contains(QLatin1String(kPositionSet)))
            return;
    } catch (const ulm_std::CException&) {
        // A receiver that does not say what its port sends is asked anyway.
    }
    m_started = m_receiver->Post(
        vexcmd::EnableMessages(QStringLiteral("/cur/term"), QLatin1String(kPositionSet)));
}

CPositionFeed::~CPositionFeed() {
    if (m_started)
        m_receiver->Post(
            vexcmd::DisableMessages(QStringLiteral("/cur/term"), QLatin1String(kPositionSet)));
}

} // namespace pell
