#pragma once

#include "config/ReceiverSettingsFilePage.h"
#include "lib/PellPropertySheet.h"
#include "lib/pell_export.h"

class CReceiverSettingsExport_SelectParametersPP;

// The export wizard's last page: where the file goes. Finish writes the checked settings.
class PELL_EXPORT CReceiverSettingsExport_SelectFilePP : public CReceiverSettingsFilePage {
    Q_OBJECT
public:
    CReceiverSettingsExport_SelectFilePP(std::shared_ptr<rxio::IReceiver> receiver,
                                         CReceiverSettingsExport_SelectParametersPP& parameters,
                                         QWidget* parent = nullptr);

protected:
    void OnSetActive() override;
    bool OnWizardFinish() override;

private:
    CReceiverSettingsExport_SelectParametersPP& m_parameters;
};

// Saves the connected receiver's settings to a JSON file: choose in the tree, then the file.
class PELL_EXPORT CReceiverSettingsExportWizard : public CPellPropertySheet {
    Q_OBJECT
public:
    explicit CReceiverSettingsExportWizard(std::shared_ptr<rxio::IReceiver> receiver,
                                           QWidget* parent = nullptr);

    CReceiverSettingsExport_SelectParametersPP& ParametersPage() { return *m_parameters; }
    CReceiverSettingsExport_SelectFilePP& FilePage() { return *m_file; }

private:
    CReceiverSettingsExport_SelectParametersPP* m_parameters;
    CReceiverSettingsExport_SelectFilePP* m_file;
};

// Shows the export wizard modally; ID_WIZFINISH or IDCANCEL.
PELL_EXPORT int run_ReceiverSettingsExportWizard(std::shared_ptr<rxio::IReceiver> receiver,
                                                 QWidget* parent);
