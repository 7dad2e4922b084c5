#include "lib/PellLibDoc.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QDate>
#include <QLocale>
#include <QStringList>

namespace {

QString Text(unsigned id, bool localised) {
    return localised ? g_PellLibApp.XLoadString(id) : g_PellLibApp.LoadString(id);
}

} // namespace

QString CPellLibDoc::GetShortApplicationName(bool localised) {
    return Text(pell::ids::ShortApplicationName, localised);
}

QString CPellLibDoc::GetLongApplicationName(bool localised) {
    return Text(pell::ids::LongApplicationName, localised);
}

QString CPellLibDoc::GetApplicationVersion(bool localised) {
    // Substituted rather than printf-formatted, so a translation cannot break the call.
    return Text(pell::ids::VersionFormat, localised)
        .replace(QStringLiteral("%ls"), QString::fromLatin1(kBuildNumber));
}

QString CPellLibDoc::GetBuildDate() {
    const QString date = QString::fromLatin1(kBuildDate);
    const QStringList parts = date.split(QLatin1Char('-'));
    if (parts.size() != 3)
        return date;
    return QLocale().toString(QDate(parts[0].toInt(), parts[1].toInt(), parts[2].toInt()),
                              QLocale::LongFormat);
}
