#pragma once

#include "lib/PellPropertySheet.h"
#include "lib/pell_export.h"
#include "status/LiveSky.h"

#include <memory>

class CStatusSatPlotPP;
class CStatusSatListPP;

// The receiver status sheet: the sky plot and the satellite list of the receiver's live sky.
// Opening it asks the receiver for its live data and closing it stops them.
class PELL_EXPORT CReceiverStatusPS : public CPellPropertySheet {
    Q_OBJECT
public:
    explicit CReceiverStatusPS(std::shared_ptr<rxio::IReceiver> receiver,
                               QWidget* parent = nullptr);

    CStatusSatPlotPP& PlotPage() { return *m_plotPage; }
    CStatusSatListPP& ListPage() { return *m_listPage; }
    CLiveSky& Sky() { return *m_sky; }

protected:
    void OnInitDialog() override;
    void OnDestroy() override;

private:
    std::shared_ptr<CLiveSky> m_sky;
    CStatusSatPlotPP* m_plotPage;
    CStatusSatListPP* m_listPage;
};

// Shows the receiver status sheet modally; IDOK or IDCANCEL.
PELL_EXPORT int run_ReceiverStatusPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent);
