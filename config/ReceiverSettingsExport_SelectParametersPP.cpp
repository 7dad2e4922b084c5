#include "config/ReceiverSettingsExport_SelectParametersPP.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QLabel>
#include <QProgressBar>
#include <QTimer>

CReceiverSettingsExport_SelectParametersPP::CReceiverSettingsExport_SelectParametersPP(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CReceiverSettingsParametersPage(std::move(receiver), pell::ids::SettingsExportParameters,
                                      pell::ids::SettingsExportParametersHint,
                                      VOXA2JSON::EDirection::Export, parent) {}

void CReceiverSettingsExport_SelectParametersPP::OnInitDialog() {
    CReceiverSettingsParametersPage::OnInitDialog();
    if (!Root())
        return;
    // From the event loop, not from inside the sheet's own handling: Cancel stays clickable.
    QTimer::singleShot(0, this, &CReceiverSettingsExport_SelectParametersPP::ReadValues);
    connect(&Tree(), &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        if (item->checkState(0) == Qt::Checked)
            QTimer::singleShot(0, this, &CReceiverSettingsExport_SelectParametersPP::ReadValues);
    });
}

void CReceiverSettingsExport_SelectParametersPP::OnSetActive() {
    CReceiverSettingsParametersPage::OnSetActive();
    GetSheet()->SetWizardButtons(m_read ? pell::PSWIZB_NEXT : 0);
}

// The checked variables; what was read before comes from the accessor's cache without a command,
// so a box checked later costs only its own reading.
void CReceiverSettingsExport_SelectParametersPP::ReadValues() {
    if (IsReading()) {
        m_readAgain = true;
        return;
    }
    SetReading(true);
    GetSheet()->SetWizardButtons(0);
    bool done = false;
    try {
        do {
            m_readAgain = false;
            done = VOXA2JSON::ReadAll(
                *Root(), Accessor(),
                [this](int read, int total) {
                    Progress().setRange(0, std::max(total, 1));
                    Progress().setValue(read);
                    if (read < total)
                        Status().setText(g_PellLibApp.XLoadString(pell::ids::SettingsReading)
                                             .arg(read + 1)
                                             .arg(total));
                    return !CancelRequested();
                },
                [this](const VOXA2JSON::Variable& variable) { Tree().UpdateVariable(variable); });
        } while (done && m_readAgain);
    } catch (const ulm_std::CWinException& error) {
        // Cancelled, or the connection went and its notice closes the wizard.
        if (error.GetErrorCode() != pell::ERROR_CANCELLED &&
            error.GetErrorCode() != pell::ERROR_DEV_NOT_EXIST)
            error.ReportError(this);
        done = false;
    }
    SetReading(false);
    if (!done)
        return;
    m_read = true;
    Status().setText(g_PellLibApp.XLoadString(pell::ids::SettingsRead)
                         .arg(VOXA2JSON::SelectedValueCount(*Root())));
    if (GetSheet()->GetActivePage() == this)
        GetSheet()->SetWizardButtons(pell::PSWIZB_NEXT);
}
