#include "receiver/LiveData.h"

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

} // namespace pell
