#pragma once

#include "lib/pell_export.h"
#include "rxio/Receiver.h"

#include <QString>
#include <QStringView>
#include <cstddef>
#include <limits>
#include <memory>
#include <stop_token>
#include <vector>

// An NTRIP caster's source table as the receiver hands it on: "STR", "CAS" and "NET" records of
// semicolon-separated fields, ended by "ENDSOURCETABLE". The table comes from a caster on the
// internet, so nothing in it is trusted: lines that are no record are skipped and counted, fields
// that are missing read as unknown, extra ones are kept with the last, and the table is bounded.
namespace ntrip {

// Bounds on what a table may hold; a real caster's table of several thousand streams is well
// inside them. Beyond them the rest is left out and the table says it was cut.
constexpr qsizetype kMaxTableChars = 8 << 20;
constexpr std::size_t kMaxRecords = 50000;
constexpr qsizetype kMaxLineChars = 4096;
// How long the receiver may take to hand on its table: a large one over a serial link at
// 115200 baud takes about a minute.
constexpr int kReadTimeoutMs = 300000;

constexpr double kUnknownCoordinate = std::numeric_limits<double>::quiet_NaN();

// A data stream the caster offers: one mount point.
struct PELL_EXPORT Stream {
    QString mountpoint;
    QString identifier; // usually the nearest town
    QString format;     // "RTCM 3.2", "RTCM 2.3", "CMR+", ...
    QString formatDetails;
    int carrier = -1; // 0 none, 1 L1, 2 L1+L2; -1 unknown
    QString navSystem;
    QString network;
    QString country;
    double latitude = kUnknownCoordinate;  // degrees, north positive
    double longitude = kUnknownCoordinate; // degrees, -180 to 180, east positive
    bool nmea = false;                     // the caster wants the rover's position
    int solution = -1;                     // 0 single base, 1 network; -1 unknown
    QString generator;
    QString compression;
    QString authentication; // "N" none, "B" basic, "D" digest
    bool fee = false;
    int bitrate = -1; // bits per second; -1 unknown
    QString misc;

    bool HasPosition() const;
};

// Another caster the table points to.
struct PELL_EXPORT Caster {
    QString host;
    int port = -1;
    QString identifier;
    QString operatorName;
    bool nmea = false;
    QString country;
    double latitude = kUnknownCoordinate;
    double longitude = kUnknownCoordinate;
    QString fallbackHost;
    int fallbackPort = -1;
    QString misc;
};

// A network of streams.
struct PELL_EXPORT Network {
    QString identifier;
    QString operatorName;
    QString authentication;
    bool fee = false;
    QString webNetwork;
    QString webStream;
    QString webRegistration;
    QString misc;
};

struct PELL_EXPORT SourceTable {
    std::vector<Stream> streams;
    std::vector<Caster> casters;
    std::vector<Network> networks;
    std::size_t skippedLines = 0; // lines that were no record
    bool complete = false;        // "ENDSOURCETABLE" was reached
    bool truncated = false;       // the table went beyond the bounds; the rest was left out
};

// Splits the table's text into its records. An HTTP-style response head ("SOURCETABLE 200 OK",
// headers, blank line) before the records is passed over. Fields may be quoted to hold
// semicolons ("a;b", with "" for a quotation mark).
PELL_EXPORT SourceTable ParseSourceTable(QStringView text);

// The table the receiver fetched from its caster ("ntrip/caster/table"), read on the window's
// thread; a stop requested on `cancel` ends the waiting with ERROR_CANCELLED.
PELL_EXPORT SourceTable ReadSourceTable(const std::shared_ptr<rxio::IReceiver>& receiver,
                                        std::stop_token cancel = {});

// "RTCM2", "RTCM 2", "RTCM 2.3", ... and the same for RTCM 3; case does not matter.
PELL_EXPORT bool IsRtcm2(QStringView format);
PELL_EXPORT bool IsRtcm3(QStringView format);

// "Single Base", "Network"; "L1", "L1+L2"; empty when unknown or none.
PELL_EXPORT QString SolutionText(int solution);
PELL_EXPORT QString CarrierText(int carrier);

// Great-circle distance in kilometres between two positions in degrees; NaN when one is unknown.
PELL_EXPORT double DistanceKm(double latitude1, double longitude1, double latitude2,
                              double longitude2);

// Whether the stream shows for a filter typed by the user: every word of the filter is found,
// ignoring case, in one of the fields a user sees in the list.
PELL_EXPORT bool Matches(const Stream& stream, QStringView filter);

} // namespace ntrip
