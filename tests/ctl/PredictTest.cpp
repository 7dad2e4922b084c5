#include "Predict.h"

#include <gtest/gtest.h>
#include <numbers>

namespace {

TEST(PredictTest, TimesAndObserversAsTyped) {
    struct TimeCase {
        const char* text;
        const char* utc; // null: refused
    } const times[] = {
        {"2020-01-01T12:00:00Z", "2020-01-01T12:00:00.000Z"},
        {"2020-01-01T12:00Z", "2020-01-01T12:00:00.000Z"},
        {"2020-01-01T12:00:00.250Z", "2020-01-01T12:00:00.250Z"},
        {"2020-01-01T13:30:00+01:30", "2020-01-01T12:00:00.000Z"},
        {"2020-01-01T12:00:00", nullptr},   // no zone: a local time would be a guess
        {"2020-02-30T12:00:00Z", nullptr},  // no such day
        {"1980-01-05T23:59:59Z", nullptr},  // before GPS time
        {" 2020-01-01T12:00:00Z", nullptr}, // nothing around it
        {"2020-01-01T12:00:00Z;x", nullptr},
        {"2020-01-01", nullptr},
        {"", nullptr},
    };
    for (const TimeCase& c : times) {
        const auto parsed = pellctl::ParseUtc(QString::fromUtf8(c.text));
        ASSERT_EQ(parsed.has_value(), c.utc != nullptr) << c.text;
        if (parsed) {
            EXPECT_EQ(parsed->toString(Qt::ISODateWithMs), c.utc) << c.text;
        }
    }

    constexpr double kRadians = std::numbers::pi / 180.0;
    struct ObserverCase {
        const char* text;
        bool good;
        double lat, lon, height; // degrees, degrees, metres
    } const observers[] = {
        {"47.3769,8.5417,408", true, 47.3769, 8.5417, 408},
        {"-33.8688,+151.2093,-20.5", true, -33.8688, 151.2093, -20.5},
        {"90,-180,0", true, 90, -180, 0},
        {"90.1,0,0", false, 0, 0, 0},
        {"0,180.5,0", false, 0, 0, 0},
        {"0,0,100001", false, 0, 0, 0},
        {"47,3769,8.5417,408", false, 0, 0, 0}, // a decimal comma
        {"47.3769,8.5417", false, 0, 0, 0},
        {"47.3769, 8.5417,408", false, 0, 0, 0},
        {"nan,0,0", false, 0, 0, 0},
        {"1e3,0,0", false, 0, 0, 0},
        {"", false, 0, 0, 0},
    };
    for (const ObserverCase& c : observers) {
        const auto parsed = pellctl::ParseObserver(QString::fromUtf8(c.text));
        ASSERT_EQ(parsed.has_value(), c.good) << c.text;
        if (!parsed)
            continue;
        EXPECT_DOUBLE_EQ(parsed->lat, c.lat * kRadians) << c.text;
        EXPECT_DOUBLE_EQ(parsed->lon, c.lon * kRadians) << c.text;
        EXPECT_DOUBLE_EQ(parsed->height, c.height) << c.text;
    }
}

TEST(PredictTest, ListedAsTextAndJson) {
    const std::vector<pellctl::Prediction> predictions{
        {2, "G02", 223.4, 6.6}, {1, "G01", 102.4, -45.4}, {193, "J01", 0.0, 0.0}};
    EXPECT_EQ(pellctl::PredictionText(predictions).toStdString(), "sat      az     el\n"
                                                                  "G02   223.4    6.6  up\n"
                                                                  "G01   102.4  -45.4\n"
                                                                  "J01     0.0    0.0\n");
    EXPECT_EQ(pellctl::PredictionJson(predictions,
                                      QDateTime(QDate(2020, 1, 1), QTime(12, 0), Qt::UTC),
                                      {0.0, 0.0, 408.0})
                  .toStdString(),
              R"({"at":"2020-01-01T12:00:00Z","observer":{"height":408,"lat":0,"lon":0},)"
              R"("satellites":[{"azimuth":223.4,"elevation":6.6,"id":"G02","up":true,"usi":2},)"
              R"({"azimuth":102.4,"elevation":-45.4,"id":"G01","up":false,"usi":1},)"
              R"({"azimuth":0,"elevation":0,"id":"J01","up":false,"usi":193}]})"
              "\n");
}

} // namespace
