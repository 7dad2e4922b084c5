#include "rxio/Almanac.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <gtest/gtest.h>
#include <map>
#include <numbers>

namespace {

using rxio::CAlmanacStorage;
using rxio::GpsTime;

QString DataFile(const char* name) {
    return QStringLiteral(TEST_DATA_DIR "/almanac/") + QString::fromLatin1(name);
}

QByteArray Read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

// The decoded values of a gnsstk expected-output file, by PRN: the parameter table, plus "week"
// and "sow" of the orbit epoch.
std::map<int, std::map<QString, double>> ReadExpected(const QString& path) {
    std::map<int, std::map<QString, double>> out;
    QByteArray text = Read(path);
    QTextStream in(&text);
    std::map<QString, double>* current = nullptr;
    while (!in.atEnd()) {
        const QStringList words = in.readLine().simplified().split(u' ');
        if (words.size() >= 2 && words.at(words.size() - 2) == u"GPS" && words.contains(u"FOR"))
            current = &out[words.last().toInt()];
        else if (current && words.size() >= 9 && words.first() == u"Orbit") {
            (*current)[QStringLiteral("week")] = words.at(words.size() - 3).toDouble();
            (*current)[QStringLiteral("sow")] = words.at(words.size() - 2).toDouble();
        } else if (current && words.size() >= 2 && words.first() == u"Health")
            (*current)[words.first()] = words.at(1).toUInt(nullptr, 16);
        else if (current && words.size() >= 3) {
            bool ok = false;
            const double value = words.at(1).toDouble(&ok);
            if (ok)
                (*current)[words.first()] = value;
        }
    }
    return out;
}

TEST(AlmanacTest, ParsedFieldsMatchDecodedValues) {
    struct Case {
        const char* input;
        const char* expected;
        bool yuma;
        int referenceWeek; // the files are from 1987
    };
    for (const Case& c :
         {Case{"gnsstk_test_input_yuma377.txt", "gnsstk_test_output_Yuma_T.exp", true, 400},
          Case{"gnsstk_test_input_sem387.al3", "gnsstk_test_output_SEM_T.exp", false, 100}}) {
        SCOPED_TRACE(c.input);
        const QByteArray text = Read(DataFile(c.input));
        const auto almanacs = c.yuma ? rxio::ParseYuma(text.toStdString(), c.referenceWeek)
                                     : rxio::ParseSem(text.toStdString(), c.referenceWeek);
        const auto expected = ReadExpected(DataFile(c.expected));
        ASSERT_EQ(almanacs.size(), expected.size());
        for (const rxio::Almanac& a : almanacs) {
            SCOPED_TRACE(a.usi);
            ASSERT_TRUE(expected.contains(a.usi));
            auto want = expected.at(a.usi);
            const auto near = [&](double actual, const char* key) {
                const double w = want[QString::fromLatin1(key)];
                EXPECT_NEAR(actual, w, 1e-8 * std::abs(w) + 1e-10) << key;
            };
            EXPECT_EQ(a.week, int(want[QStringLiteral("week")]));
            EXPECT_EQ(a.toa, want[QStringLiteral("sow")]);
            EXPECT_EQ(a.health, unsigned(want[QStringLiteral("Health")]));
            near(a.sqrtA, "AHalf");
            near(a.af1, "af1");
            near(a.af0, "af0");
            near(a.rightAscension, "Omega0");
            near(a.eccentricity, "e");
            near(a.inclination - 0.3 * std::numbers::pi, "deltai");
            near(a.rateOfRightAscension, "Omega_Dot");
            near(a.argumentOfPerigee, "w");
            near(a.meanAnomaly, "M0");
        }
    }
}

TEST(AlmanacTest, TenBitWeekResolvesNearestToReference) {
    struct Case {
        int week10, reference, full;
    } const cases[] = {
        {38, 2090, 2086}, {38, 2597, 2086},   {38, 2599, 3110}, {377, 400, 377},
        {0, 1020, 1024},  {1023, 1030, 1023}, {1000, 10, 1000}, {377, 2400, 2425},
    };
    for (const Case& c : cases)
        EXPECT_EQ(rxio::ResolveWeek(c.week10, c.reference), c.full)
            << c.week10 << " near " << c.reference;
    // A file that gives the full week keeps it, whatever the reference.
    QByteArray full = Read(DataFile("gnsstk_test_input_yuma377.txt"));
    full.replace("week:                        377", "week: 1401");
    for (const rxio::Almanac& a : rxio::ParseYuma(full.toStdString(), 2400))
        EXPECT_EQ(a.week, 1401);
}

TEST(AlmanacTest, UtcToGpsCountsLeapSeconds) {
    struct Case {
        const char* utc;
        int week;
        double secondsOfWeek;
    } const cases[] = {
        {"1980-01-06T00:00:00Z", 0, 0},         {"1999-08-22T00:00:00Z", 1024, 13},
        {"2016-12-31T23:59:59Z", 1930, 16},     {"2017-01-01T00:00:00Z", 1930, 18},
        {"2020-01-01T00:00:00Z", 2086, 259218}, {"2020-01-04T23:59:59.5Z", 2087, 17.5},
    };
    for (const Case& c : cases) {
        const GpsTime t = GpsTime::FromUtc(QDateTime::fromString(c.utc, Qt::ISODateWithMs));
        EXPECT_EQ(t.Week(), c.week) << c.utc;
        EXPECT_DOUBLE_EQ(t.SecondsOfWeek(), c.secondsOfWeek) << c.utc;
    }
}

// Values from tests/data/almanac/azel_reference.py, an implementation apart from this one.
TEST(AlmanacTest, AzimuthElevationMatchIndependentValues) {
    struct Case {
        int prn, week;
        double secondsOfWeek, latitude, longitude, height; // degrees, degrees, metres
        double azimuth, elevation;                         // degrees
    } const cases[] = {
        {1, 2086, 503808, 47.3769, 8.5417, 408, 313.4779, -60.8938},
        {2, 2086, 503808, 47.3769, 8.5417, 408, 50.6313, 28.6954},
        {12, 2086, 520000, -33.8688, 151.2093, 58, 211.4090, 55.8493},
        {24, 2086, 420000, -0.1807, -78.4678, 2850, 131.5534, -35.1229},
        {5, 2087, 100000, 78.2232, 15.6267, 10, 358.2683, -66.7978},
        {32, 2085, 600000, 35.6812, 139.7671, 40, 223.4197, -69.5007},
        {19, 2086, 259218, -77.8463, 166.6683, 20, 41.1640, 57.9794},
        {31, 2086, 0, 64.1466, -21.9426, 0, 170.6052, -14.2246},
    };
    CAlmanacStorage store;
    store.LoadFile(DataFile("maast_alm01jan2020.yuma.txt"), 2090);
    ASSERT_EQ(store.Satellites().size(), 31u);
    constexpr double kRadians = std::numbers::pi / 180.0;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.prn);
        const auto azel =
            store.CalculateAZ_EL(rxio::usi::Gps(c.prn), GpsTime::FromWeek(c.week, c.secondsOfWeek),
                                 {c.latitude * kRadians, c.longitude * kRadians, c.height});
        ASSERT_TRUE(azel);
        EXPECT_NEAR(azel->azimuth / kRadians, c.azimuth, 0.01);
        EXPECT_NEAR(azel->elevation / kRadians, c.elevation, 0.01);
    }
    EXPECT_FALSE(store.CalculateAZ_EL(18, GpsTime::FromWeek(2086, 0), {}));
}

QByteArray Replace(QByteArray text, const char* from, const char* to) {
    return text.replace(from, to);
}

// Every refusal names its reason, and the store keeps what it held.
TEST(AlmanacTest, BrokenInputIsRefusedWhole) {
    const QByteArray yuma = Read(DataFile("gnsstk_test_input_yuma377.txt"));
    const QByteArray sem = Read(DataFile("gnsstk_test_input_sem387.al3"));
    struct Case {
        const char* name;
        QByteArray content;
        const char* reason;
    } const cases[] = {
        {"truncated yuma", yuma.left(yuma.lastIndexOf("Mean Anom")), "has no \"mean anom\""},
        {"decimal comma", Replace(yuma, "0.6597995758E-002", "0,6597995758E-002"),
         "not a number: \"0,6597995758E-002\""},
        {"eccentricity above any orbit", Replace(yuma, "0.6597995758E-002", "0.9"),
         "eccentricity out of range"},
        {"sqrt(A) of nothing", Replace(yuma, "5153.683594", "0.0"), "sqrt(A) out of range"},
        {"unknown prn", Replace(yuma, "ID:                         02", "ID: 99"), "PRN 99"},
        {"prn twice", Replace(yuma, "ID:                         02", "ID: 01"), "appears twice"},
        {"week beyond any", Replace(yuma, "week:                        377", "week: 12000"),
         "week must be a whole number"},
        {"garbage",
         QByteArray("\x7f"
                    "ELF\x02\x01\x01\0\0\0",
                    10),
         "SEM line 1: satellite count"},
        {"empty", QByteArray(), "no almanac"},
        {"huge", QByteArray(rxio::kMaxAlmanacFileSize + 1, ' '), "larger than any almanac file"},
        {"truncated sem", sem.left(sem.size() - 100), "ends before the 30 almanacs"},
        {"sem with more than announced", sem + "\n1\n", "text after the 30 almanacs"},
        {"sem angle not a number", Replace(sem, "0.51536845703125E+0004", "x"),
         "line 8: sqrt(A) is not a number"},
    };
    CAlmanacStorage store;
    store.LoadFile(DataFile("maast_alm01jan2020.yuma.txt"), 2090);
    const rxio::Almanac before = *store.Find(1);
    QTemporaryDir dir;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const QString path = dir.filePath(QString::fromLatin1(c.name));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(c.content);
        file.close();
        try {
            store.LoadFile(path, 400);
            ADD_FAILURE() << "accepted";
        } catch (const rxio::CAlmanacError& e) {
            EXPECT_NE(std::string(e.what()).find(c.reason), std::string::npos) << e.what();
        }
        EXPECT_EQ(store.Satellites().size(), 31u);
        EXPECT_EQ(store.Find(1)->meanAnomaly, before.meanAnomaly);
        EXPECT_EQ(store.Find(1)->week, 2086);
    }
    EXPECT_THROW(store.LoadFile(dir.filePath(QStringLiteral("missing")), 400), rxio::CAlmanacError);

    rxio::Almanac galileo = before;
    galileo.usi = rxio::usi::Galileo(1);
    store.Set(galileo);
    rxio::Almanac broken = galileo;
    broken.inclination = std::nan("");
    EXPECT_THROW(store.Set({galileo, broken}), rxio::CAlmanacError);
    broken.usi = 40; // not a Keplerian constellation's identifier
    broken.inclination = galileo.inclination;
    EXPECT_THROW(store.Set(broken), rxio::CAlmanacError);
    EXPECT_EQ(store.Satellites().size(), 32u);
    EXPECT_EQ(store.Find(rxio::usi::Galileo(1))->inclination, before.inclination);
}

// The receiver's record: what it says is what the store gets, to the last digit; anything else is
// refused with the member and the reason.
TEST(AlmanacTest, TheReceiversRecordReadsWholeOrNotAtAll) {
    CAlmanacStorage file;
    file.LoadFile(DataFile("maast_alm01jan2020.yuma.txt"), 2090);
    const rxio::Almanac a = *file.Find(5);
    const QString values = QString::asprintf(
        "%d,%.17g,%.17g,%.17g,%.17g,%.17g,%.17g,%.17g,%.17g,%.17g,%.17g,%u", a.week, a.toa,
        a.eccentricity, a.inclination, a.rateOfRightAscension, a.sqrtA, a.rightAscension,
        a.argumentOfPerigee, a.meanAnomaly, a.af0, a.af1, a.health);
    const QString good = QStringLiteral(" {5={%1}, 71={%1}} ").arg(values);
    const std::vector<rxio::Almanac> read = rxio::ParseAlmanacRecord(good);
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[1].usi, rxio::usi::Galileo(1));
    const rxio::GpsTime t = a.Epoch();
    EXPECT_EQ(rxio::AzimuthElevation(read[0], t, {0.8, 0.2, 100}).azimuth,
              rxio::AzimuthElevation(a, t, {0.8, 0.2, 100}).azimuth);
    EXPECT_TRUE(rxio::ParseAlmanacRecord(QStringLiteral("{}")).empty());

    const struct {
        QString reply;
        const char* reason;
    } broken[] = {
        {QStringLiteral("5={%1}").arg(values), "not a record"},
        {QStringLiteral("{5={%1},}").arg(values), "a comma ends the record"},
        {QStringLiteral("{5={%1};6={%1}}").arg(values), "member 1: members must be separated"},
        {QStringLiteral("{5={%1},5={%1}}").arg(values), "member 2: satellite 5 appears twice"},
        {QStringLiteral("{40={%1}}").arg(values), "member 1: satellite 40"},
        {QStringLiteral("{x={%1}}").arg(values), "not a satellite identifier"},
        {QStringLiteral("{5={1,2}}"), "twelve values expected, 2 given"},
        {QStringLiteral("{5=%1}").arg(values), "not USI={values}"},
        {QStringLiteral("{5={%1}}")
             .arg(values)
             .replace(QLatin1String("2086,"), QLatin1String("2086.5,")),
         "week must be a whole number"},
        {QStringLiteral("{5={%1}}").arg(values).replace(QLatin1String(",0}"), QLatin1String(",x}")),
         "health must be a whole number"},
    };
    for (const auto& c : broken) {
        SCOPED_TRACE(c.reply.left(40).toStdString());
        try {
            rxio::ParseAlmanacRecord(c.reply);
            ADD_FAILURE() << "accepted";
        } catch (const rxio::CAlmanacError& e) {
            EXPECT_NE(std::string(e.what()).find(c.reason), std::string::npos) << e.what();
        }
    }
}

} // namespace
