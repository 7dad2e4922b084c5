#include "config/UserCredentialsDlg.h"

#include "config/ParameterPage.h"
#include "config/PasswordField.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

CUserCredentialsDlg::CUserCredentialsDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent,
                                         const QString& caption, const QString& loginPath,
                                         const QString& passwordPath, const QString& fixedLogin)
    : CParameterDialog(std::move(receiver), caption, parent) {
    auto* password = new QLineEdit;
    MaskPassword(password);
    const int width = password->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 28;
    password->setMinimumWidth(width);
    auto* page = new QVBoxLayout(&Body());
    QFormLayout* form = CParameterPage::Form(nullptr);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow); // long logins and passwords
    page->addLayout(form);
    const QString loginLabel = g_PellLibApp.XLoadString(pell::ids::NetworkLogin) + QLatin1Char(':');
    if (loginPath.isEmpty()) {
        m_fixedLogin = new QLabel(fixedLogin);
        form->addRow(loginLabel, m_fixedLogin);
    } else {
        m_login = new QLineEdit;
        m_login->setMinimumWidth(width);
        form->addRow(loginLabel, m_login);
        Body().BindText(m_login, loginPath);
    }
    form->addRow(g_PellLibApp.XLoadString(pell::ids::NetworkPassword) + QLatin1Char(':'), password);
    Body().BindText(password, passwordPath);
}

QString CUserCredentialsDlg::Login() const {
    return m_login ? m_login->text() : m_fixedLogin->text();
}
