#pragma once

#include "config/ReceiverSettingsFilePage.h"
#include "lib/PellPropertySheet.h"
#include "lib/pell_export.h"

class CReceiverSettingsImport_SelectParametersPP;
class CReceiverSettingsImport_ProgressPP;

// The import wizard's first page: the file to load. Next reads and parses it whole.
class PELL_EXPORT CReceiverSettingsImport_SelectFilePP : public CReceiverSettingsFilePage {
    Q_OBJECT
public:
    CReceiverSettingsImport_SelectFilePP(std::shared_ptr<rxio::IReceiver> receiver,
                                         CReceiverSettingsImport_SelectParametersPP& parameters,
                                         QWidget* parent = nullptr);

protected:
    int OnWizardNext() override;

private:
    CReceiverSettingsImport_SelectParametersPP& m_parameters;
};

// Loads a settings file into the connected receiver: the file, the choice in the tree, then
// the progress with one row per setting.
class PELL_EXPORT CReceiverSettingsImportWizard : public CPellPropertySheet {
    Q_OBJECT
public:
    explicit CReceiverSettingsImportWizard(std::shared_ptr<rxio::IReceiver> receiver,
                                           QWidget* parent = nullptr);

    CReceiverSettingsImport_SelectFilePP& FilePage() { return *m_file; }
    CReceiverSettingsImport_SelectParametersPP& ParametersPage() { return *m_parameters; }
    CReceiverSettingsImport_ProgressPP& ProgressPage() { return *m_progress; }

private:
    CReceiverSettingsImport_SelectParametersPP* m_parameters;
    CReceiverSettingsImport_SelectFilePP* m_file;
    CReceiverSettingsImport_ProgressPP* m_progress;
};

// Shows the import wizard modally; ID_WIZFINISH or IDCANCEL.
PELL_EXPORT int run_ReceiverSettingsImportWizard(std::shared_ptr<rxio::IReceiver> receiver,
                                                 QWidget* parent);
