#pragma once

#include "lib/PellBaseWnd.h"
#include "lib/PropertySheet.h"
#include "lib/pell_export.h"

// Base of the library's property pages. A page registers for the receiver's notices when it is
// first activated; either notice ends its sheet with IDCANCEL.
class PELL_EXPORT CPellPropertyPage : public CPellBaseWnd<CPropertyPageBase> {
    Q_OBJECT
public:
    explicit CPellPropertyPage(std::shared_ptr<rxio::IReceiver> receiver, const QString& title = {},
                               QWidget* parent = nullptr)
        : CPellBaseWnd(std::move(receiver), title, parent) {}
};
