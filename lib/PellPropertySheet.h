#pragma once

#include "lib/PellBaseWnd.h"
#include "lib/PropertySheet.h"
#include "lib/pell_export.h"

// Base of the library's property sheets and wizards. Each derived sheet declares Q_OBJECT: its
// class name keys its stored placement.
class PELL_EXPORT CPellPropertySheet : public CPellBaseWnd<CPropertySheetBase> {
    Q_OBJECT
public:
    CPellPropertySheet(std::shared_ptr<rxio::IReceiver> receiver, const QString& caption,
                       QWidget* parent = nullptr)
        : CPellBaseWnd(std::move(receiver), caption, parent) {}
};
