#pragma once

#include "config/ParameterDialog.h"
#include "config/ParameterPage.h"
#include "lib/pell_export.h"

class QLineEdit;

// The fields of an IPv4 address set.
enum class EIPv4Field { Address, Mask, Gateway, Dns };

// The refusal for a text that is not a dotted IPv4 address ("Invalid IP Address value."), or
// nothing. Each of the four numbers is 0 to 255 in plain decimals; a mask is also ones followed
// by zeros. "0.0.0.0" is an address: the unset one.
PELL_EXPORT QString IPv4Refusal(EIPv4Field field, const QString& text);

// Binds an address field: typing is limited to digits and dots, and a malformed address is
// refused before the page writes anything.
PELL_EXPORT void BindIPv4(CParameterPage& page, QLineEdit* edit, const QString& path,
                          EIPv4Field field);

// An address set of the receiver in a dialog: each field whose path is given ("IP Address",
// "IP Mask", "Gateway", "DNS"), written on OK. The wireless access point's address and mask
// are edited here.
class PELL_EXPORT CIPv4Dlg : public CParameterDialog {
    Q_OBJECT
public:
    // The receiver's paths of the fields; an empty one has no field.
    struct Paths {
        QString address, mask, gateway, dns;
    };

    CIPv4Dlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent, const QString& caption,
             const Paths& paths);

    // The address and the mask as the dialog shows them; empty without the field.
    QString Address() const;
    QString Mask() const;

private:
    QLineEdit* m_address = nullptr;
    QLineEdit* m_mask = nullptr;
};
