#pragma once

#include "config/ReceiverSettingsParametersPage.h"

// The export wizard's first page: the dictionary's tree, checked by DONOTEXPORTBYDEFAULT, with
// the checked variables' values read into it as soon as the page shows; a variable checked later
// is read then. Next waits for the reading.
class PELL_EXPORT CReceiverSettingsExport_SelectParametersPP
    : public CReceiverSettingsParametersPage {
    Q_OBJECT
public:
    explicit CReceiverSettingsExport_SelectParametersPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                        QWidget* parent = nullptr);

    // Every value has been read.
    bool HasRead() const { return m_read; }

protected:
    void OnInitDialog() override;
    void OnSetActive() override;

private:
    void ReadValues();

    bool m_read = false;
    bool m_readAgain = false;
};
