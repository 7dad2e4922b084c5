#pragma once

#include "config/ParameterDialog.h"
#include "lib/pell_export.h"

class QLabel;
class QLineEdit;

// An account of one of the receiver's servers: its login and password, written on OK. An account
// whose name is fixed (the web interface's "admin" and "user") shows the name and takes only
// the password.
class PELL_EXPORT CUserCredentialsDlg : public CParameterDialog {
    Q_OBJECT
public:
    // `loginPath` empty: the account is `fixedLogin`, not changed here.
    CUserCredentialsDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent,
                        const QString& caption, const QString& loginPath,
                        const QString& passwordPath, const QString& fixedLogin = {});

    QString Login() const;

private:
    QLineEdit* m_login = nullptr;
    QLabel* m_fixedLogin = nullptr;
};
