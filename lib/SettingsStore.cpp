#include "lib/SettingsStore.h"

#include <QSettings>

namespace pell {

namespace {

// Registry paths use backslashes; QSettings groups use slashes on every platform.
QString SettingsPath(const QString& key, const QString& name) {
    QString path = key;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return path + QLatin1Char('/') + name;
}

} // namespace

ISettingsStore::~ISettingsStore() = default;

CQSettingsStore::CQSettingsStore()
    : m_settings(std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                             QString::fromLatin1(kOrganizationName),
                                             QString::fromLatin1(kApplicationKeyName))) {}

CQSettingsStore::~CQSettingsStore() = default;

std::optional<std::uint32_t> CQSettingsStore::ReadDword(const QString& key, const QString& name) {
    const QVariant value = m_settings->value(SettingsPath(key, name));
    bool ok = false;
    const qulonglong number = value.toULongLong(&ok);
    if (!value.isValid() || !ok || number > 0xFFFFFFFFULL)
        return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

std::optional<QString> CQSettingsStore::ReadString(const QString& key, const QString& name) {
    const QVariant value = m_settings->value(SettingsPath(key, name));
    if (!value.isValid())
        return std::nullopt;
    return value.toString();
}

void CQSettingsStore::WriteDword(const QString& key, const QString& name, std::uint32_t value) {
    m_settings->setValue(SettingsPath(key, name), QVariant::fromValue(value));
}

void CQSettingsStore::WriteString(const QString& key, const QString& name, const QString& value) {
    m_settings->setValue(SettingsPath(key, name), value);
}

void CQSettingsStore::Flush() {
    m_settings->sync();
}

} // namespace pell
