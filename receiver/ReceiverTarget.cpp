#include "receiver/ReceiverTarget.h"

#include <QObject>
#include <QUrl>
#include <algorithm>

namespace pell {

namespace {

constexpr int kDefaultRate = 115200;

// Digits only: toInt() would also take signs and blanks.
std::optional<int> Number(const QString& text, int max) {
    if (text.isEmpty() || text.size() > 9 ||
        !std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); }))
        return std::nullopt;
    const int value = text.toInt();
    if (value <= 0 || value > max)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<ReceiverTarget> ReceiverTarget::FromSerial(const QString& text) {
    ReceiverTarget target{Serial, text, kDefaultRate, false};
    const QString flow = QStringLiteral(",rtscts");
    if (target.name.endsWith(flow, Qt::CaseInsensitive)) {
        target.name.chop(flow.size());
        target.rtsCts = true;
    }
    if (const qsizetype at = target.name.lastIndexOf(QLatin1Char('@')); at >= 0) {
        const std::optional<int> rate = Number(target.name.mid(at + 1), 4'000'000);
        if (!rate)
            return std::nullopt;
        target.number = *rate;
        target.name.truncate(at);
    }
    if (target.name.trimmed().isEmpty())
        return std::nullopt;
    return target;
}

std::optional<ReceiverTarget> ReceiverTarget::FromUrl(const QString& text) {
    const QString withScheme =
        text.contains(QLatin1String("://")) ? text : QStringLiteral("tcp://") + text;
    const QUrl url(withScheme, QUrl::StrictMode);
    if (!url.isValid() || url.scheme() != QLatin1String("tcp") || url.host().isEmpty() ||
        !url.userInfo().isEmpty() || !(url.path().isEmpty() || url.path() == QLatin1String("/")) ||
        url.hasQuery() || url.hasFragment() || url.port() <= 0)
        return std::nullopt;
    return ReceiverTarget{Tcp, url.host(), url.port(), false};
}

QString ReceiverTarget::Describe() const {
    switch (kind) {
    case Simulator:
        return QObject::tr("simulated receiver %1").arg(name);
    case Serial:
        return rtsCts ? QObject::tr("%1 at %2 baud, RTS/CTS").arg(name).arg(number)
                      : QObject::tr("%1 at %2 baud").arg(name).arg(number);
    case Tcp:
        return name.contains(QLatin1Char(':')) ? QStringLiteral("[%1]:%2").arg(name).arg(number)
                                               : QStringLiteral("%1:%2").arg(name).arg(number);
    }
    return {};
}

std::shared_ptr<const rxio::IPortAddr> ReceiverTarget::PortAddress() const {
    static const rxio::EPortType types[] = {rxio::EPortType::InProcess,
                                            rxio::EPortType::LocalSerial, rxio::EPortType::Tcp};
    return std::make_shared<rxio::CPortAddr>(types[kind], kind == Serial ? name : Describe());
}

} // namespace pell
