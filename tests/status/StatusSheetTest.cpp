#include "Pty.h"
#include "SimulatedReceiver.h"
#include "TestSupport.h"
#include "lib/Tick.h"
#include "rxio/ReceiverConnection.h"
#include "status/ReceiverStatusPS.h"
#include "status/StatusSatListPP.h"
#include "status/StatusSatPlotPP.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QSlider>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

using pell::test::Spin;

// The steady clock, with jumps a test makes.
class JumpingTicks final : public pell::ITickSource {
public:
    std::uint32_t Now() override { return m_steady.Now() + m_jumped; }
    void Jump(std::uint32_t ms) { m_jumped += ms; }

private:
    pell::CSteadyTickSource m_steady;
    std::uint32_t m_jumped = 0;
};

class ScopedTicks {
public:
    ScopedTicks()
        : m_ticks(std::make_shared<JumpingTicks>()), m_previous(pell::SetTickSource(m_ticks)) {}
    ~ScopedTicks() { pell::SetTickSource(m_previous); }
    JumpingTicks& operator*() { return *m_ticks; }

private:
    std::shared_ptr<JumpingTicks> m_ticks;
    std::shared_ptr<pell::ITickSource> m_previous;
};

bool Waits(const std::function<bool()>& condition, int ms = 5000) {
    return QTest::qWaitFor(condition, ms);
}

void ClickHeader(CSatListCtrl& list, int column) {
    QHeaderView* header = list.horizontalHeader();
    const QPoint at(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                    header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
}

TEST(StatusSheetTest, LiveSkyFromTheSimulatedReceiver) {
    ScopedTicks ticks;
    pell::test::SimulatedReceiver simulated;
    CPellWindow<CReceiverStatusPS> sheet(simulated.Receiver(), nullptr);
    sheet.resize(760, 560);
    sheet.show();
    CSkyPlot& plot = sheet.PlotPage().Plot();

    // Satellites appear on both pages; the mask and the almanacs come from the receiver.
    ASSERT_TRUE(Waits([&] { return sheet.Sky().Records().size() > 20; }));
    EXPECT_TRUE(simulated.Simulator().ReceivedCommands().join(';').contains(QStringLiteral("em,")));
    ASSERT_TRUE(Waits([&] { return plot.ElevationMask() == 5.0; }));
    ASSERT_TRUE(Waits([&] { return !simulated.Receiver()->Almanacs().Satellites().empty(); }));
    sheet.PlotPage().TracksBox().setChecked(true);
    plot.repaint();
    EXPECT_GT(plot.PlacedSatellites().size(), 20U);

    // Twelve hours ahead the almanac places the satellites; back to now, the receiver does.
    sheet.PlotPage().MomentSlider().setValue(sheet.PlotPage().MomentSlider().maximum());
    EXPECT_TRUE(plot.Prediction());
    EXPECT_EQ(plot.PredictionOffset(), 12 * 3600000LL);
    plot.repaint();
    EXPECT_GT(plot.PlacedSatellites().size(), 10U);
    sheet.PlotPage().MomentSlider().setValue(0);
    EXPECT_FALSE(plot.Prediction());

    // A satellite the receiver no longer reports fades, then goes.
    sheet.SetActivePage(1);
    CSatListCtrl& list = sheet.ListPage().List();
    ASSERT_GT(list.Model().rowCount(), 20);
    const std::uint8_t hidden = list.Model().Satellite(0).USI;
    simulated.Simulator().GetFaults().hiddenSatellites.insert(hidden);
    ASSERT_TRUE(Waits([&] { return sheet.Sky().Records().at(hidden).GetAge() > 2000; }));
    const QRgb base = list.palette().color(QPalette::Base).rgb();
    const CSatelliteInfoEx& fading = sheet.Sky().Records().at(hidden);
    EXPECT_NE(fading.GetBkColor(base), sheet.Sky().Records().rbegin()->second.GetBkColor(base));
    (*ticks).Jump(CLiveSky::kDropAfterMs);
    ASSERT_TRUE(Waits([&] { return !sheet.Sky().Records().contains(hidden); }));
    EXPECT_TRUE(Waits([&] { return sheet.Sky().Records().size() > 20; }));

    // A click on a header sorts by that column within each constellation; a second turns it.
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        ClickHeader(list, 1);
        SCOPED_TRACE(order == Qt::AscendingOrder ? "ascending" : "descending");
        const CSatListModel& model = list.Model();
        ASSERT_EQ(model.Column(1), CSatelliteInfoEx::EColumn::Elevation);
        for (int row = 1; row < model.rowCount(); ++row) {
            const CSatelliteInfoEx& a = model.Satellite(row - 1);
            const CSatelliteInfoEx& b = model.Satellite(row);
            EXPECT_FALSE(CSatelliteInfoEx::LE(b, a, CSatelliteInfoEx::EColumn::Elevation,
                                              order == Qt::AscendingOrder, true))
                << a.GetSVN().toStdString() << " before " << b.GetSVN().toStdString();
        }
    }

    // One constellation in its own columns.
    sheet.ListPage().Selector().setCurrentIndex(2); // GLONASS
    EXPECT_EQ(list.Model().headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(),
              QStringLiteral("SN"));
    for (int row = 0; row < list.Model().rowCount(); ++row)
        EXPECT_EQ(list.Model().Satellite(row).GetConstellation(true),
                  rxio::ISatListListener::SatelliteInfo::GLONASS);

    // The connection drops: the sheet closes with Cancel.
    simulated.Simulator().DropConnection();
    ASSERT_TRUE(Waits([&] { return !sheet.isVisible(); }));
    EXPECT_EQ(sheet.result(), pell::IDCANCEL);
}

TEST(StatusSheetTest, ClosingStopsTheLiveData) {
    pell::test::SimulatedReceiver simulated;
    {
        CPellWindow<CReceiverStatusPS> sheet(simulated.Receiver(), nullptr);
        sheet.show();
        ASSERT_TRUE(Waits([&] { return !sheet.Sky().Records().empty(); }));
        sheet.reject();
        EXPECT_EQ(sheet.result(), pell::IDCANCEL);
    }
    EXPECT_TRUE(Waits([&] {
        return simulated.Simulator().ReceivedCommands().join(';').contains(QStringLiteral("dm,"));
    }));
}

// A receiver that speaks only NMEA, over a serial line: a capture replayed, nothing answered.
TEST(StatusSheetTest, AReceiverThatOnlySpeaksNmea) {
    QFile capture(QStringLiteral(TEST_DATA_DIR "/nmea/ublox-zed-f9p-nmea.log"));
    ASSERT_TRUE(capture.open(QIODevice::ReadOnly));
    QByteArray sentences;
    while (!capture.atEnd()) {
        const QByteArray line = capture.readLine();
        if (line.startsWith('$'))
            sentences += line.trimmed() + "\r\n";
    }
    rxsim::CPty pty;
    auto opened = rxio::OpenSerialLink(pty.SlavePath(), 115200, false);
    ASSERT_TRUE(opened.link) << opened.error.toStdString();
    auto receiver = rxio::CReceiverConnection::Create(std::move(opened.link));
    qsizetype position = 0;
    QTimer replay;
    QObject::connect(&replay, &QTimer::timeout, [&] {
        pty.write(sentences.mid(position, 400));
        position = (position + 400) % sentences.size();
    });
    replay.start(20);

    CPellWindow<CReceiverStatusPS> sheet(receiver, nullptr);
    sheet.show();
    ASSERT_TRUE(Waits([&] { return sheet.Sky().Records().size() > 10; }));
    ASSERT_TRUE(Waits([&] { return sheet.ListPage().List().Model().rowCount() > 10; }));
    // The mask is asked for and never comes; the plot goes on without one.
    Spin(CStatusSatPlotPP::kMaskTimeoutMs + 500);
    EXPECT_LT(sheet.PlotPage().Plot().ElevationMask(), 0.0);
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_TRUE(receiver->Almanacs().Satellites().empty());
    sheet.reject();
    EXPECT_EQ(sheet.result(), pell::IDCANCEL);
}

} // namespace
