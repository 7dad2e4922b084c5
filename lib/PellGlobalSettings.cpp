#include "lib/PellGlobalSettings.h"

#include "lib/SettingsStore.h"

#include <utility>

namespace {

// Grey for every solution type without a colour of its own.
constexpr pell::COLORREF kGrey = 0x808080;
// A stored colour of this value means "use the built-in colour".
constexpr std::uint32_t kNoColour = 0xFFFFFFFF;

// "Color#0" to "Color#18".
QString ColourValueName(int type) {
    return QStringLiteral("Color#") + QString::number(type);
}

bool ReadBool(pell::ISettingsStore& store, const QString& key, const char* name, bool fallback) {
    return store.ReadDword(key, QString::fromLatin1(name)).value_or(fallback ? 1 : 0) != 0;
}

std::uint32_t ReadDword(pell::ISettingsStore& store, const QString& key, const char* name,
                        std::uint32_t fallback) {
    return store.ReadDword(key, QString::fromLatin1(name)).value_or(fallback);
}

} // namespace

CPellGlobalSettings& CPellGlobalSettings::Ref() {
    static CPellGlobalSettings instance;
    return instance;
}

CPellGlobalSettings::CPellGlobalSettings()
    : CPellGlobalSettings(std::make_shared<pell::CQSettingsStore>()) {}

CPellGlobalSettings::CPellGlobalSettings(std::shared_ptr<pell::ISettingsStore> store)
    : m_store(std::move(store)) {
    ResetVolatileSettings();
    // The store is rooted at the application's own key.
    m_keyGeneral = QStringLiteral("GlobalSettings\\General");
    m_keySiteParameters = QStringLiteral("GlobalSettings\\SiteParameters");
    m_keySolutionsColors = QStringLiteral("GlobalSettings\\SolutionsColors");
    m_keyWindowPlacement = QStringLiteral("WindowPlacement");
    Load();
}

CPellGlobalSettings::~CPellGlobalSettings() {
    Save();
}

void CPellGlobalSettings::Load() {
    auto& store = *m_store;
    const QString& general = m_keyGeneral;
    m_applicationMode = EApplicationMode(ReadDword(store, general, "AppMode", 1));
    m_coordSystem = ECoordSystem(ReadDword(store, general, "CoordSystem", 0));
    SetHelpDisplayingMode(EHelpDisplayingMode(ReadDword(store, general, "HelpDisplayingMode", 0)));
    m_modemAutodetection = ReadBool(store, general, "ModemAutodetection", true);
    m_receiverCache = ReadBool(store, general, "ReceiverCache", false);
    m_torvel.flags = ReadDword(store, general, "Torvel_Settings", m_torvel.flags);

    const QString& site = m_keySiteParameters;
    m_site.AutoSend = ReadBool(store, site, "AutoSend", true);
    m_site.SiteName = store.ReadString(site, QStringLiteral("SiteName")).value_or(QString());
    m_site.Description = store.ReadString(site, QStringLiteral("Description")).value_or(QString());
    m_site.AntennaType = store.ReadString(site, QStringLiteral("AntennaType")).value_or(QString());
    // Text to double as the C library reads it: anything unreadable is 0.
    m_site.AntennaHeight = static_cast<float>(
        store.ReadString(site, QStringLiteral("AntennaHeight")).value_or(QString()).toDouble());
    m_site.Slant = ReadBool(store, site, "Slant", false);
    m_site.Dynamics = ReadBool(store, site, "Dynamics", false);

    for (int type = 0; type < rxio::kSolutionTypeCount; ++type) {
        std::uint32_t colour =
            store.ReadDword(m_keySolutionsColors, ColourValueName(type)).value_or(kNoColour);
        if (colour == kNoColour)
            colour = DefaultSolutionTypeColor(type);
        m_solutionColors[type] = colour;
    }

    m_dtpTimeout = 10;
    m_dtpBlockSize = 512;

    m_autoScaling = ReadBool(store, general, "EnableAutoScalingUI", true);
    m_manualScalingRatio = ReadDword(store, general, "ManualScalingRatioUI", 1000) / 1000.0;
    SuppressTabletMode(ReadBool(store, general, "SuppressTabletMode", false));
}

void CPellGlobalSettings::Save() const {
    auto& store = *m_store;
    const QString& general = m_keyGeneral;
    store.WriteDword(general, QStringLiteral("AppMode"), m_applicationMode);
    store.WriteDword(general, QStringLiteral("CoordSystem"), m_coordSystem);
    store.WriteDword(general, QStringLiteral("HelpDisplayingMode"), m_helpDisplayingMode);
    store.WriteDword(general, QStringLiteral("ModemAutodetection"), m_modemAutodetection);
    store.WriteDword(general, QStringLiteral("ReceiverCache"), m_receiverCache);
    store.WriteDword(general, QStringLiteral("Torvel_Settings"), m_torvel.flags);

    const QString& site = m_keySiteParameters;
    store.WriteDword(site, QStringLiteral("AutoSend"), m_site.AutoSend);
    store.WriteString(site, QStringLiteral("SiteName"), m_site.SiteName);
    store.WriteString(site, QStringLiteral("Description"), m_site.Description);
    store.WriteString(site, QStringLiteral("AntennaType"), m_site.AntennaType);
    store.WriteString(site, QStringLiteral("AntennaHeight"),
                      QString::asprintf("%f", static_cast<double>(m_site.AntennaHeight)));
    store.WriteDword(site, QStringLiteral("Slant"), m_site.Slant);
    store.WriteDword(site, QStringLiteral("Dynamics"), m_site.Dynamics);

    for (const auto& [type, colour] : m_solutionColors)
        store.WriteDword(m_keySolutionsColors, ColourValueName(type), colour);

    store.WriteDword(general, QStringLiteral("EnableAutoScalingUI"), m_autoScaling);
    store.WriteDword(general, QStringLiteral("ManualScalingRatioUI"),
                     static_cast<std::uint32_t>(m_manualScalingRatio * 1000.0));
}

void CPellGlobalSettings::SetHelpDisplayingMode(EHelpDisplayingMode) {
    // Help opens in the browser; no other mode can be chosen.
    m_helpDisplayingMode = HelpInBrowser;
}

pell::COLORREF CPellGlobalSettings::DefaultSolutionTypeColor(int type) {
    switch (type) {
    case 1:
        return 0x0000FF; // red
    case 2:
        return 0x4080FF; // orange
    case 3:
    case 14:
        return 0x00FF00; // green
    case 4:
    case 13:
        return 0xFF0000; // blue
    case 9:
        return 0xFF8000; // azure
    case 10:
        return 0x004080; // brown
    case 11:
        return 0xFF0080; // violet
    case 12:
        return 0xFE00FE; // magenta, one step off pure on purpose
    default:
        return kGrey;
    }
}

pell::COLORREF CPellGlobalSettings::GetSolutionTypeColor(rxio::ESolutionType type) const {
    const auto it = m_solutionColors.find(static_cast<int>(type));
    return it == m_solutionColors.end() ? kGrey : it->second;
}

void CPellGlobalSettings::SetSolutionTypeColor(rxio::ESolutionType type, pell::COLORREF colour) {
    m_solutionColors[static_cast<int>(type)] = colour;
}

bool CPellGlobalSettings::GetFtpPort(unsigned long key, unsigned short& port) const {
    const auto it = m_ftpPorts.find(key);
    port = it == m_ftpPorts.end() ? 0 : it->second;
    return it != m_ftpPorts.end();
}

void CPellGlobalSettings::SetFtpPort(unsigned long key, unsigned short port) {
    if (port == 0)
        m_ftpPorts.erase(key);
    else
        m_ftpPorts[key] = port;
}

void CPellGlobalSettings::SuppressTabletMode(bool suppress) {
    m_tabletModeSuppressed = suppress;
    m_store->WriteDword(m_keyGeneral, QStringLiteral("SuppressTabletMode"), suppress);
    m_store->Flush();
}

void CPellGlobalSettings::ResetVolatileSettings() {
    m_ftpPorts.clear();
}
