#include "SourceTables.h"

#include <QString>
#include <array>

namespace rxsim {
namespace {

struct Town {
    const char* name;
    const char* country;
    double latitude;
    double longitude;
};

// Around the simulated receiver's default site, so that distances look as a user's would.
constexpr std::array<Town, 12> kTowns = {{
    {"Singapore", "SGP", 1.35, 103.82},
    {"Johor Bahru", "MYS", 1.49, 103.74},
    {"Kuala Lumpur", "MYS", 3.14, 101.69},
    {"Malacca", "MYS", 2.19, 102.25},
    {"Batam", "IDN", 1.13, 104.05},
    {"Pekanbaru", "IDN", 0.51, 101.45},
    {"Ipoh", "MYS", 4.60, 101.08},
    {"Penang", "MYS", 5.41, 100.33},
    {"Jakarta", "IDN", -6.20, 106.85},
    {"Palembang", "IDN", -2.99, 104.76},
    {"Kuantan", "MYS", 3.82, 103.33},
    {"Pontianak", "IDN", -0.03, 109.34},
}};

struct Format {
    const char* name;
    const char* details;
    int carrier;
};

constexpr std::array<Format, 5> kFormats = {{
    {"RTCM 3.2", "1006(10),1033(10),1074(1),1084(1),1094(1),1124(1),1230(10)", 2},
    {"RTCM 3.3", "1005(10),1077(1),1087(1),1097(1),1127(1)", 2},
    {"RTCM3", "1004(1),1006(10),1012(1)", 2},
    {"RTCM 2.3", "1(1),3(10),18(1),19(1)", 2},
    {"RTCM 2.1", "1(1),3(10)", 1},
}};

// A line as it stands.
QString Line(const char* text) {
    return QLatin1String(text) + QStringLiteral("\r\n");
}

// A line with values: numbers with a decimal point whatever the locale, as QString::asprintf
// keeps to the C locale.
QString Line(const char* format, auto first, auto... rest) {
    return QString::asprintf(format, first, rest...) + QStringLiteral("\r\n");
}

} // namespace

QString MakeSourceTable(std::size_t streams, bool malformed) {
    QString table = Line("CAS;caster.example.net;2101;PellCaster;Pell Survey Services;0;DEU;"
                         "52.52;13.40;fallback.example.net;2101;");
    table += Line("NET;PELLNET;Pell Survey Services;B;N;https://example.net/net;"
                  "https://example.net/str;https://example.net/reg;none");
    for (std::size_t i = 0; i < streams; ++i) {
        const Town& town = kTowns[i % kTowns.size()];
        const Format& format = kFormats[i / kTowns.size() % kFormats.size()];
        const bool network = i % 7 == 3;
        // Stations spread around their town, a few kilometres apart.
        const std::size_t station = i / kTowns.size();
        const double north = town.latitude + (double(station % 21) - 10) * 0.05;
        const double east = town.longitude + (double(station / 21 % 21) - 10) * 0.05;
        table +=
            Line("STR;%.4s%04zu%s;%s;%s;%s;%d;GPS+GLO+GAL+BDS;PELLNET;%s;%.2f;%.2f;%d;%d;"
                 "GNSS Receiver;none;B;N;%d;%s",
                 town.name, i, network ? "VRS" : "", town.name, format.name, format.details,
                 format.carrier, town.country, north, east, network ? 1 : 0, network ? 1 : 0,
                 2400 + int(i % 5) * 1200, i % 11 == 5 ? "\"misc; with a semicolon\"" : "none");
        if (malformed && i % 50 == 17) {
            table += QStringLiteral("this is no record\r\n");
            table += Line("STR;;Nowhere;RTCM 3.2;;2;GPS;PELLNET;DEU;52.0;13.0;0;0;x;none;B;N;0;");
            table += Line("STR;SHORT%zu;Nowhere", i);
            table += Line("STR;LONG%zu;Far;RTCM 3;1004;2;GPS;NET;DEU;91.5;400;1;0;g;none;B;N;"
                          "9600;misc;extra;fields",
                          i);
            table += Line("STR;QUOTE%zu;\"Unterminated;RTCM 3;;2", i);
            table +=
                QStringLiteral("STR;") + QString(5000, QLatin1Char('X')) + QStringLiteral("\r\n");
        }
    }
    table += QStringLiteral("ENDSOURCETABLE\r\n");
    return table;
}

std::optional<QString> CasterSourceTable(std::string_view host) {
    if (host.starts_with("large."))
        return MakeSourceTable(5000);
    if (host.starts_with("broken."))
        return MakeSourceTable(60, true);
    return std::nullopt;
}

} // namespace rxsim
