#pragma once

#include "config/ReceiverSettingsTree.h"
#include "config/VexReceiverAccessor.h"
#include "lib/PellPropertyPage.h"
#include "lib/pell_export.h"

#include <memory>
#include <stop_token>

class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;

// What the export and the import wizard's parameter pages share: the dictionary, loaded when
// the page is set up (a dictionary that cannot be loaded is reported and ends the wizard), as a
// tree with check boxes; the process-wide "show values" box; the details of the current item; a
// progress bar with a line of status under the tree; and the receiver accessor the wizard reads
// and writes through, whose command under way Cancel abandons.
class PELL_EXPORT CReceiverSettingsParametersPage : public CPellPropertyPage {
    Q_OBJECT
public:
    CReceiverSettingsParametersPage(std::shared_ptr<rxio::IReceiver> receiver, unsigned titleId,
                                    unsigned subtitleId, VOXA2JSON::EDirection direction,
                                    QWidget* parent = nullptr);

    CReceiverSettingsTree& Tree() { return *m_tree; }
    const std::shared_ptr<VOXA2JSON::Object>& Root() const { return m_tree->Root(); }
    CVexReceiverAccessor& Accessor() { return *m_accessor; }
    // Shows the details box of the current item.
    void ShowDetails();

protected:
    void OnInitDialog() override;
    bool OnQueryCancel() override;
    // Stops a walk under way: the wizard may close on a receiver's notice without asking.
    void OnDestroy() override;

    // While the receiver is being read, the details (which would talk to it too) wait.
    void SetReading(bool reading);
    bool IsReading() const { return m_reading; }
    QProgressBar& Progress() { return *m_progress; }
    QLabel& Status() { return *m_status; }
    bool CancelRequested() const { return m_cancel.stop_requested(); }

private:
    VOXA2JSON::EDirection m_direction;
    CReceiverSettingsTree* m_tree;
    QCheckBox* m_showValues;
    QPushButton* m_details;
    QProgressBar* m_progress;
    QLabel* m_status;
    std::stop_source m_cancel;
    std::unique_ptr<CVexReceiverAccessor> m_accessor;
    bool m_reading = false;
};
