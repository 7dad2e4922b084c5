#pragma once

#include "lib/PellPropertyPage.h"
#include "lib/pell_export.h"
#include "status/LiveSky.h"
#include "status/SatListCtrl.h"

#include <memory>

class QComboBox;

// The status sheet's satellite list: every satellite, or those of one constellation in its own
// columns, as the selector above the list chooses.
class PELL_EXPORT CStatusSatListPP : public CPellPropertyPage {
    Q_OBJECT
public:
    CStatusSatListPP(std::shared_ptr<rxio::IReceiver> receiver, std::shared_ptr<CLiveSky> sky,
                     QWidget* parent = nullptr);

    CSatListCtrl& List() { return *m_list; }
    QComboBox& Selector() { return *m_selector; }

private:
    void Refresh();

    std::shared_ptr<CLiveSky> m_sky;
    QComboBox* m_selector;
    CSatListCtrl* m_list;
};
