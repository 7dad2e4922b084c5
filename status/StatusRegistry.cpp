#include "status/StatusRegistry.h"

#include <QDomDocument>
#include <QFile>

namespace pell {

namespace {

// "Wings" is a Boolean written by people: true, yes and 1 (in any case) mean used, anything
// else (an absent attribute included) not used, so a typo never counts a satellite as used.
bool ParseWings(const QString& text) {
    const QString value = text.trimmed();
    return value.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 ||
           value.compare(QLatin1String("yes"), Qt::CaseInsensitive) == 0 ||
           value == QLatin1String("1");
}

} // namespace

SatelliteStatusTable ParseStatusRegistry(const QByteArray& xml) {
    SatelliteStatusTable table;
    QDomDocument document;
    if (!document.setContent(xml))
        return table;
    const QDomElement root = document.documentElement();
    if (root.isNull() || root.tagName().compare(QLatin1String("SatelliteNavigationStatusRegistry"),
                                                Qt::CaseInsensitive) != 0)
        return table;
    for (QDomElement entry = root.firstChildElement(); !entry.isNull();
         entry = entry.nextSiblingElement()) {
        if (entry.tagName().compare(QLatin1String("Status"), Qt::CaseInsensitive) != 0)
            continue;
        bool ok = false;
        const uint id = entry.attribute(QStringLiteral("ID")).trimmed().toUInt(&ok);
        if (!ok || id > 254)
            continue;
        const auto code = static_cast<std::uint8_t>(id);
        table.try_emplace(
            code, SatelliteStatus{code, ParseWings(entry.attribute(QStringLiteral("Wings"))),
                                  entry.attribute(QStringLiteral("XLATE_Description"))});
    }
    return table;
}

SatelliteStatusTable LoadStatusRegistry(const QString& path) {
    // The shipped file has a few kilobytes; anything far larger is not a status registry.
    constexpr qint64 kLargest = 1 << 20;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kLargest)
        return {};
    return ParseStatusRegistry(file.readAll());
}

} // namespace pell
