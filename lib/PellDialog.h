#pragma once

#include "lib/DialogBase.h"
#include "lib/PellBaseWnd.h"
#include "lib/pell_export.h"

// Base of the library's dialogs. Each derived dialog declares Q_OBJECT: its class name keys its
// stored placement.
class PELL_EXPORT CPellDialog : public CPellBaseWnd<CDialogBase> {
    Q_OBJECT
public:
    explicit CPellDialog(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr)
        : CPellBaseWnd(std::move(receiver), parent) {}
};
