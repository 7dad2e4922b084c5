#pragma once

#include "lib/PellPropertyPage.h"
#include "lib/pell_export.h"

#include <stop_token>

class CReceiverSettingsImport_SelectParametersPP;
class QLabel;
class QProgressBar;
class QTreeWidget;

// The import wizard's last page: writes each checked setting in tree order as soon as it shows,
// one row per setting with "Successfully Imported" or the reason it failed. Cancel while it
// writes stops within the command under way and puts back what was written.
class PELL_EXPORT CReceiverSettingsImport_ProgressPP : public CPellPropertyPage {
    Q_OBJECT
public:
    CReceiverSettingsImport_ProgressPP(std::shared_ptr<rxio::IReceiver> receiver,
                                       CReceiverSettingsImport_SelectParametersPP& parameters,
                                       QWidget* parent = nullptr);

    QTreeWidget& Rows() { return *m_rows; }
    bool IsWriting() const { return m_writing; }

signals:
    void writingDone();

protected:
    void OnSetActive() override;
    bool OnQueryCancel() override;
    // The wizard may close on a receiver's notice without asking: the walk stops, and nothing is
    // put back into a receiver that is going away.
    void OnDestroy() override;

private:
    void Write();

    CReceiverSettingsImport_SelectParametersPP& m_parameters;
    QTreeWidget* m_rows;
    QProgressBar* m_progress;
    QLabel* m_status;
    std::stop_source m_cancel;
    bool m_writing = false;
    bool m_closing = false;
};
