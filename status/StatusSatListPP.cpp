#include "status/StatusSatListPP.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

using EConstellation = rxio::ISatListListener::SatelliteInfo::EConstellation;

// SAIF shows among SBAS.
constexpr EConstellation kSelectable[] = {
    EConstellation::GPS,  EConstellation::GLONASS, EConstellation::Galileo, EConstellation::BeiDou,
    EConstellation::SBAS, EConstellation::QZSS,    EConstellation::IRNSS};

} // namespace

CStatusSatListPP::CStatusSatListPP(std::shared_ptr<rxio::IReceiver> receiver,
                                   std::shared_ptr<CLiveSky> sky, QWidget* parent)
    : CPellPropertyPage(std::move(receiver), g_PellLibApp.XLoadString(pell::ids::StatusSatListPage),
                        parent),
      m_sky(std::move(sky)), m_selector(new QComboBox), m_list(new CSatListCtrl) {
    m_selector->addItem(g_PellLibApp.XLoadString(pell::ids::StatusAllSystems), -1);
    for (const EConstellation constellation : kSelectable)
        m_selector->addItem(CSatelliteInfoEx::GetSystemX(constellation, false),
                            static_cast<int>(constellation));

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(g_PellLibApp.XLoadString(pell::ids::StatusSystem)));
    top->addWidget(m_selector);
    top->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(top);
    layout->addWidget(m_list, 1);

    connect(m_selector, &QComboBox::currentIndexChanged, this, [this] {
        const int value = m_selector->currentData().toInt();
        m_list->Model().SetConstellation(
            value < 0 ? std::nullopt : std::optional(static_cast<EConstellation>(value)));
    });
    connect(m_sky.get(), &CLiveSky::changed, this, &CStatusSatListPP::Refresh);
    Refresh();
}

void CStatusSatListPP::Refresh() {
    m_list->Model().SetSatellites(m_sky->Satellites());
}
