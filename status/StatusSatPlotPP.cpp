#include "status/StatusSatPlotPP.h"

#include "lib/PellLib.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"
#include "rxio/ReceiverConnection.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <QVBoxLayout>

namespace {

using EConstellation = rxio::ISatListListener::SatelliteInfo::EConstellation;

QLabel* LegendIcon(CSatelliteImageLib& images, std::uint8_t status) {
    QPixmap icon(CSatelliteImageLib::GetImageSize());
    icon.fill(Qt::transparent);
    {
        QPainter painter(&icon);
        images.Draw(painter, QPoint(0, 0), EConstellation::GPS, status, false);
    }
    auto* label = new QLabel;
    label->setPixmap(icon);
    return label;
}

} // namespace

CStatusSatPlotPP::CStatusSatPlotPP(std::shared_ptr<rxio::IReceiver> receiver,
                                   std::shared_ptr<CLiveSky> sky, QWidget* parent)
    : CPellPropertyPage(std::move(receiver), g_PellLibApp.XLoadString(pell::ids::StatusSkyPlotPage),
                        parent),
      m_sky(std::move(sky)), m_plot(new CSkyPlot), m_moment(new QSlider(Qt::Horizontal)),
      m_now(new QPushButton(g_PellLibApp.XLoadString(pell::ids::StatusNow))),
      m_tracks(new QCheckBox(g_PellLibApp.XLoadString(pell::ids::StatusShowTracks))),
      m_note(new QLabel) {
    const int steps = kSlideRangeHours * 60 / kSlideStepMinutes;
    m_moment->setRange(-steps, steps);
    m_moment->setPageStep(60 / kSlideStepMinutes);
    m_moment->setTickInterval(3 * 60 / kSlideStepMinutes);
    m_moment->setTickPosition(QSlider::TicksBelow);
    m_moment->setToolTip(g_PellLibApp.XLoadString(pell::ids::StatusMoment));
    m_note->setWordWrap(true);
    m_note->setTextFormat(Qt::PlainText);
    m_note->hide();

    auto* controls = new QHBoxLayout;
    controls->addWidget(m_tracks);
    controls->addSpacing(8);
    controls->addWidget(m_moment, 1);
    controls->addWidget(m_now);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(m_plot, 1);
    layout->addWidget(m_note);
    layout->addWidget(BuildLegend());
    layout->addLayout(controls);

    connect(m_moment, &QSlider::valueChanged, this, &CStatusSatPlotPP::OnMomentChanged);
    connect(m_now, &QPushButton::clicked, this, [this] { m_moment->setValue(0); });
    connect(m_tracks, &QCheckBox::toggled, this, [this](bool on) {
        m_plot->SetShowTracks(on);
        Refresh();
    });
    connect(m_sky.get(), &CLiveSky::changed, this, &CStatusSatPlotPP::Refresh);
    // The mask is read once, when the sheet opens: a read on every refresh would wait behind the
    // almanacs' long answer with the window held.
    connect(m_plot, &CSkyPlot::refreshDue, this, &CStatusSatPlotPP::Refresh);
    m_plot->SetAlmanacs(GetReceiver() ? &GetReceiver()->Almanacs() : nullptr);
    Refresh();
}

QWidget* CStatusSatPlotPP::BuildLegend() {
    auto* legend = new QWidget;
    auto* row = new QHBoxLayout(legend);
    row->setContentsMargins(0, 0, 0, 0);
    // The status registry marks 0 as used in the solution and 6 as tracked only.
    row->addWidget(LegendIcon(m_plot->ImageLib(), 0));
    row->addWidget(new QLabel(g_PellLibApp.XLoadString(pell::ids::StatusUsed)));
    row->addSpacing(12);
    row->addWidget(LegendIcon(m_plot->ImageLib(), 6));
    row->addWidget(new QLabel(g_PellLibApp.XLoadString(pell::ids::StatusNotUsed)));
    row->addStretch();
    return legend;
}

void CStatusSatPlotPP::OnInitDialog() {
    CPellPropertyPage::OnInitDialog();
    // After the sheet is on screen, and the short read first: the almanacs' answer is long, and
    // a receiver that speaks only NMEA, which never answers, is not asked for them at all.
    QTimer::singleShot(0, this, [this] {
        ReadElevationMask();
        if (m_answers)
            ReadAlmanacs();
    });
}

void CStatusSatPlotPP::OnMomentChanged(int steps) {
    m_plot->SetPrediction(steps != 0);
    m_plot->SetPredictionOffset(qint64{steps} * kSlideStepMinutes * 60000);
    Refresh();
}

void CStatusSatPlotPP::Refresh() {
    m_plot->SetObserver(m_sky->Observer());
    QString note;
    const bool wantsAlmanac = m_plot->Prediction() || m_plot->ShowTracks();
    const rxio::CAlmanacStorage* almanacs = GetReceiver() ? &GetReceiver()->Almanacs() : nullptr;
    if (wantsAlmanac && (!almanacs || almanacs->Satellites().empty()))
        note = g_PellLibApp.XLoadString(pell::ids::StatusNoAlmanac);
    else if (wantsAlmanac && !m_sky->Observer())
        note = g_PellLibApp.XLoadString(pell::ids::StatusNoPosition);
    m_note->setText(note);
    m_note->setVisible(!note.isEmpty());

    if (!m_plot->Prediction()) {
        m_plot->SetSatellites(m_sky->Satellites());
        return;
    }
    // Every satellite the almanac knows, whether the receiver tracks it now or not; what it
    // will use then is not known, so none is shown as used.
    std::vector<CSatelliteInfoEx> predicted;
    if (almanacs) {
        for (const int usi : almanacs->Satellites()) {
            rxio::ISatListListener::SatelliteInfo info;
            info.USI = static_cast<std::uint8_t>(usi);
            predicted.emplace_back(info);
        }
    }
    m_plot->SetSatellites(std::move(predicted));
}

void CStatusSatPlotPP::ReadElevationMask() {
    const std::shared_ptr<rxio::IReceiver>& receiver = GetReceiver();
    if (!receiver || !receiver->IsConnected() || CVexReceiverMate::IsPending(receiver.get()))
        return;
    CVexReceiverMate mate(receiver);
    mate.SetTimeout(kMaskTimeoutMs);
    try {
        bool number = false;
        const double mask =
            mate.Run(pell::vexcmd::Print(QStringLiteral("/par/pos/elm"))).toDouble(&number);
        if (number)
            m_plot->SetElevationMask(mask);
    } catch (const ulm_std::CWinException& error) {
        // A receiver that speaks only NMEA never answers, and a mask is not worth a message: the
        // plot goes on without one.
        m_answers = error.GetErrorCode() != pell::ERROR_TIMEOUT;
    } catch (const ulm_std::CCommException&) {
        // A receiver without the parameter has no mask to show.
    }
}

void CStatusSatPlotPP::ReadAlmanacs() {
    auto* connection = dynamic_cast<rxio::CReceiverConnection*>(GetReceiver().get());
    if (!connection || !connection->Almanacs().Satellites().empty())
        return;
    QPointer<CStatusSatPlotPP> page(this);
    connection->ReadAlmanacs(kAlmanacTimeoutMs, [page](const QString&) {
        // Without an answer the store stays empty and the plot shows no tracks; the note says so.
        if (page)
            page->Refresh();
    });
}
