#pragma once

#include "lib/pell_export.h"
#include "rxio/Listeners.h"

#include <QRgb>
#include <QString>
#include <cstdint>
#include <utility>
#include <vector>

// The display record of one satellite: the receiver's record with its constellation and the
// tick of its last report, every field as the text of its column in the satellite list, the
// column sets and the sort order of the list. See docs/satellites.md.
class PELL_EXPORT CSatelliteInfoEx : public rxio::ISatListListener::SatelliteInfo {
public:
    using SatelliteInfo = rxio::ISatListListener::SatelliteInfo;

    // Scoped: the record already has fields named Elevation, Azimuth, TC and SS.
    enum class EColumn : int {
        SVN = 1,
        Elevation = 2,
        Azimuth = 3,
        SNR1 = 4,
        SNR2 = 5,
        SNR3 = 6,
        SNR4 = 7,
        SNR5 = 8,
        TC = 9,
        SS = 10,
        FCN = 11,
    };

    using Getter = QString (CSatelliteInfoEx::*)() const;
    // A column and the string table id of its title.
    using ColumnTitles = std::vector<std::pair<EColumn, unsigned>>;
    using ColumnGetters = std::vector<std::pair<EColumn, Getter>>;

    // The received record, its constellation taken from USI, stamped now.
    explicit CSatelliteInfoEx(const SatelliteInfo& info);
    // An empty record of `constellation` (the row a list shows for a constellation without
    // satellites), stamped now.
    explicit CSatelliteInfoEx(EConstellation constellation);

    // Replaces every field with a newer report of the satellite and stamps it now.
    void Update(const SatelliteInfo& info);

    // With `mergeSAIF`, SAIF answers SBAS.
    EConstellation GetConstellation(bool mergeSAIF) const;
    // Milliseconds since the last construction or update.
    std::int32_t GetAge() const;

    // Signal-to-noise of the constellation's first to fifth signal in dB-Hz; 255 for none.
    std::uint8_t GetSNR1() const;
    std::uint8_t GetSNR2() const;
    std::uint8_t GetSNR3() const;
    std::uint8_t GetSNR4() const;
    std::uint8_t GetSNR5() const;

    // Whether the status registry counts this satellite's (or `status`'s) code as used in the
    // position solution.
    bool IsSatelliteUsed() const;
    static bool IsSatelliteUsed(std::uint8_t status);

    // The row colour: the constellation's colour over `background`, fading into it over the
    // ten seconds after the first second without a report.
    QRgb GetBkColor(QRgb background) const;

    QString GetSVN() const; // G12; R?? for a GLONASS satellite without slot
    QString GetUSI() const;
    QString GetNN() const;
    QString GetElevation() const; // degrees with the rising/setting mark
    QString GetAzimuth() const;
    QString GetSNR1Str() const;
    QString GetSNR2Str() const;
    QString GetSNR3Str() const;
    QString GetSNR4Str() const;
    QString GetSNR5Str() const;
    QString GetTC() const; // :45 below a minute, whole minutes after
    QString GetSS() const;
    QString GetSSFull() const; // the status described in the user's language
    QString GetFCN() const;    // GLONASS frequency channel
    QString GetSystem() const; // short system name
    QString GetSystemX() const;

    // The long or short name of a constellation; empty above Reserved.
    static QString GetSystem(EConstellation constellation, bool shortName);
    // The same in the user's language.
    static QString GetSystemX(EConstellation constellation, bool shortName);

    // The columns a constellation's list shows, in display order, with their titles.
    static void GetColumnsFor(EConstellation constellation, ColumnTitles& columns);
    static void GetColumnsForGPS(ColumnTitles& columns);
    static void GetColumnsForGLONASS(ColumnTitles& columns);
    static void GetColumnsForGalileo(ColumnTitles& columns);
    static void GetColumnsForBeiDou(ColumnTitles& columns);
    static void GetColumnsForSBAS(ColumnTitles& columns);
    static void GetColumnsForSAIF(ColumnTitles& columns);
    static void GetColumnsForQZSS(ColumnTitles& columns);
    static void GetColumnsForIRNSS(ColumnTitles& columns);
    static void GetColumnsForUnknown(ColumnTitles& columns);
    // Every column in value order with the getter of its text.
    static void GetAllColumnsEx(ColumnGetters& columns);
    static void GetAllColumns(std::vector<EColumn>& columns);

    // Whether `a` goes before `b` in a list sorted by `column`. Constellations stay grouped in
    // ascending order whatever `ascending` says.
    static bool LE(const CSatelliteInfoEx& a, const CSatelliteInfoEx& b, EColumn column,
                   bool ascending, bool mergeSAIF);

    // The number shown after the system letter; 255 and above is unknown.
    unsigned SatelliteNumber() const;

    std::uint32_t UpdateTick = 0; // tick (ms) of the last construction or update
    EConstellation Constellation = Unused;

private:
    std::uint8_t SignalOf(int column) const;
};
