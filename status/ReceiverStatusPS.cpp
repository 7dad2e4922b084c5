#include "status/ReceiverStatusPS.h"

#include "lib/PellLib.h"
#include "receiver/LiveData.h"
#include "resources/StringIds.h"
#include "status/StatusSatListPP.h"
#include "status/StatusSatPlotPP.h"

CReceiverStatusPS::CReceiverStatusPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CPellPropertySheet(receiver, g_PellLibApp.XLoadString(pell::ids::StatusSheet), parent),
      m_sky(std::make_shared<CLiveSky>()),
      m_plotPage(new CPellWindow<CStatusSatPlotPP>(receiver, m_sky)),
      m_listPage(new CPellWindow<CStatusSatListPP>(std::move(receiver), m_sky)) {
    AddPage(m_plotPage);
    AddPage(m_listPage);
}

void CReceiverStatusPS::OnInitDialog() {
    CPellPropertySheet::OnInitDialog();
    if (const std::shared_ptr<rxio::IReceiver>& receiver = GetReceiver()) {
        receiver->RegisterSatListListener(m_sky);
        receiver->RegisterPositionListener(m_sky);
        pell::StartLiveData(*receiver);
    }
}

void CReceiverStatusPS::OnDestroy() {
    if (const std::shared_ptr<rxio::IReceiver>& receiver = GetReceiver())
        pell::StopLiveData(*receiver);
    CPellPropertySheet::OnDestroy();
}

int run_ReceiverStatusPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    CPellWindow<CReceiverStatusPS> sheet(std::move(receiver), parent);
    return sheet.exec();
}
