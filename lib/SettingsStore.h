#pragma once

#include "lib/pell_export.h"

#include <QString>
#include <cstdint>
#include <memory>
#include <optional>

class QSettings;

namespace pell {

// Per-user persistent values in registry terms: keys are paths below the application's key
// ("GlobalSettings\\General"), values are 32-bit words or texts.
class PELL_EXPORT ISettingsStore {
public:
    virtual ~ISettingsStore();
    virtual std::optional<std::uint32_t> ReadDword(const QString& key, const QString& name) = 0;
    virtual std::optional<QString> ReadString(const QString& key, const QString& name) = 0;
    virtual void WriteDword(const QString& key, const QString& name, std::uint32_t value) = 0;
    virtual void WriteString(const QString& key, const QString& name, const QString& value) = 0;
    // Makes the writes so far durable now rather than when the store goes.
    virtual void Flush() = 0;
};

// The store on QSettings in its native format: the registry under
// HKEY_CURRENT_USER\Software\Fennickware\PellLib on Windows, ~/.config/Fennickware/PellLib.conf
// elsewhere (QSettings::setPath moves it, as the tests do).
class PELL_EXPORT CQSettingsStore final : public ISettingsStore {
public:
    CQSettingsStore();
    ~CQSettingsStore() override;

    std::optional<std::uint32_t> ReadDword(const QString& key, const QString& name) override;
    std::optional<QString> ReadString(const QString& key, const QString& name) override;
    void WriteDword(const QString& key, const QString& name, std::uint32_t value) override;
    void WriteString(const QString& key, const QString& name, const QString& value) override;
    void Flush() override;

private:
    std::unique_ptr<QSettings> m_settings;
};

inline constexpr const char* kOrganizationName = "Fennickware";
inline constexpr const char* kApplicationKeyName = "PellLib";

} // namespace pell
