#pragma once

#include "lib/Common.h"
#include "lib/pell_export.h"
#include "rxio/SolutionType.h"

#include <QString>
#include <cstdint>
#include <map>
#include <memory>

namespace pell {
class ISettingsStore;
struct GlobalSettingsTestAccess;
} // namespace pell

enum EApplicationMode : std::uint32_t {};
enum ECoordSystem : std::uint32_t { CoordSystemGeodetic = 0, CoordSystemCartesian = 1 };
enum EHelpDisplayingMode : std::uint32_t { HelpInBrowser = 1 };

// Controller power-management flags.
struct Torvel_Settings {
    enum : std::uint32_t {
        ReceiverOnBeforeOpen = 0x01,
        ReceiverOffAfterClose = 0x02,
        ReceiverOffAtExit = 0x04,
        ModemOnBeforeOpen = 0x08,
        ModemOffAfterClose = 0x10,
        ModemOffAtExit = 0x20,
    };
    std::uint32_t flags = ReceiverOnBeforeOpen | ModemOnBeforeOpen;

    bool Has(std::uint32_t bit) const { return (flags & bit) != 0; }
};

struct SiteParameters {
    bool AutoSend = true;
    QString SiteName;
    QString Description;
    QString AntennaType;
    float AntennaHeight = 0.0F; // metres
    bool Slant = false;         // the height is measured along the slant
    bool Dynamics = false;
};

// The application-wide preferences shared by the library and its host. Loaded when the instance
// is made, saved when it goes at library unload; tablet mode is written at once.
class PELL_EXPORT CPellGlobalSettings {
public:
    static CPellGlobalSettings& Ref();

    CPellGlobalSettings(const CPellGlobalSettings&) = default;
    CPellGlobalSettings& operator=(const CPellGlobalSettings&) = default;

    EApplicationMode GetApplicationMode() const { return m_applicationMode; }
    void SetApplicationMode(EApplicationMode mode) { m_applicationMode = mode; }
    ECoordSystem GetCoordSystem() const { return m_coordSystem; }
    void SetCoordSystem(ECoordSystem system) { m_coordSystem = system; }
    // Help always opens in the browser: the getter returns 1 and the setter stores 1.
    EHelpDisplayingMode GetHelpDisplayingMode() const { return HelpInBrowser; }
    void SetHelpDisplayingMode(EHelpDisplayingMode mode);
    bool GetModemAutodetection() const { return m_modemAutodetection; }
    void SetModemAutodetection(bool on) { m_modemAutodetection = on; }
    bool GetReceiverCacheUse() const { return m_receiverCache; }
    void SetReceiverCacheUse(bool on) { m_receiverCache = on; }
    Torvel_Settings GetTorvelSettings() const { return m_torvel; }
    void SetTorvelSettings(const Torvel_Settings& settings) { m_torvel = settings; }
    SiteParameters GetSiteParameters() const { return m_site; }
    void SetSiteParameters(const SiteParameters& site) { m_site = site; }

    // Grey for a type without a colour.
    pell::COLORREF GetSolutionTypeColor(rxio::ESolutionType type) const;
    void SetSolutionTypeColor(rxio::ESolutionType type, pell::COLORREF colour);
    static pell::COLORREF DefaultSolutionTypeColor(int type);

    bool GetFtpPort(unsigned long key, unsigned short& port) const;
    // Port 0 removes the key.
    void SetFtpPort(unsigned long key, unsigned short port);

    unsigned GetDTPBlockSize() const { return m_dtpBlockSize; }
    void SetDTPBlockSize(unsigned size) { m_dtpBlockSize = size; }
    unsigned GetDTPTimeout() const { return m_dtpTimeout; }
    void SetDTPTimeout(unsigned timeout) { m_dtpTimeout = timeout; }

    bool IsAutoScalingEnabled() const { return m_autoScaling; }
    void EnableAutoScaling(bool on) { m_autoScaling = on; }
    double GetManualScalingRatio() const { return m_manualScalingRatio; }
    void SetManualScalingRatio(double ratio) { m_manualScalingRatio = ratio; }

    bool IsTabletModeSuppressed() const { return m_tabletModeSuppressed; }
    void SuppressTabletMode(bool suppress);

    // Forgets the values that are never stored (the FTP ports).
    void ResetVolatileSettings();

    // Key of the window placements, below the application's key.
    const QString& GetWindowPlacementKey() const { return m_keyWindowPlacement; }

private:
    friend struct pell::GlobalSettingsTestAccess;

    explicit CPellGlobalSettings(std::shared_ptr<pell::ISettingsStore> store);
    CPellGlobalSettings();
    ~CPellGlobalSettings();

    void Load();
    void Save() const;

    std::shared_ptr<pell::ISettingsStore> m_store;
    QString m_keyGeneral;
    QString m_keySiteParameters;
    QString m_keySolutionsColors;
    QString m_keyWindowPlacement;
    EApplicationMode m_applicationMode{1};
    ECoordSystem m_coordSystem{CoordSystemGeodetic};
    EHelpDisplayingMode m_helpDisplayingMode{HelpInBrowser};
    bool m_modemAutodetection = true;
    bool m_receiverCache = false;
    Torvel_Settings m_torvel;
    SiteParameters m_site;
    double m_manualScalingRatio = 1.0;
    bool m_tabletModeSuppressed = false;
    bool m_autoScaling = true;
    std::map<int, pell::COLORREF> m_solutionColors;
    std::map<unsigned long, unsigned short> m_ftpPorts;
    unsigned m_dtpTimeout = 10;
    unsigned m_dtpBlockSize = 512;
};
