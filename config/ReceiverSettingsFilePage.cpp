#include "config/ReceiverSettingsFilePage.h"

#include "lib/PellLib.h"
#include "lib/SettingsStore.h"
#include "resources/StringIds.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const QString kPathValue = QStringLiteral("JSONPath");

} // namespace

CReceiverSettingsFilePage::CReceiverSettingsFilePage(std::shared_ptr<rxio::IReceiver> receiver,
                                                     unsigned titleId, unsigned subtitleId,
                                                     EMode mode, QWidget* parent)
    : CPellPropertyPage(std::move(receiver), g_PellLibApp.XLoadString(titleId), parent),
      m_mode(mode), m_path(new QLineEdit), m_browse(new QToolButton), m_summary(new QLabel) {
    SetSubtitle(g_PellLibApp.XLoadString(subtitleId));
    m_path->setObjectName(QStringLiteral("filePath"));
    m_path->setClearButtonEnabled(true);
    m_browse->setText(QStringLiteral("..."));
    m_browse->setObjectName(QStringLiteral("browse"));
    auto* label = new QLabel(g_PellLibApp.XLoadString(pell::ids::SettingsFileLabel));
    label->setBuddy(m_path);

    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_path, 1);
    row->addWidget(m_browse);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(row);
    layout->addWidget(m_summary);
    layout->addStretch();
    m_summary->setWordWrap(true);
    m_summary->hide();
    connect(m_browse, &QToolButton::clicked, this, &CReceiverSettingsFilePage::Browse);
}

QString CReceiverSettingsFilePage::FilePath() const {
    return m_path->text().trimmed();
}

void CReceiverSettingsFilePage::SetFilePath(const QString& path) {
    m_path->setText(path);
}

void CReceiverSettingsFilePage::SetSummary(const QString& text) {
    m_summary->setText(text);
    m_summary->setVisible(!text.isEmpty());
}

QString CReceiverSettingsFilePage::SettingsKey() const {
    return QStringLiteral("private\\") + QLatin1String(metaObject()->className());
}

void CReceiverSettingsFilePage::RememberFilePath() {
    pell::CQSettingsStore().WriteString(SettingsKey(), kPathValue, FilePath());
}

void CReceiverSettingsFilePage::OnInitDialog() {
    CPellPropertyPage::OnInitDialog();
    m_path->setText(
        pell::CQSettingsStore().ReadString(SettingsKey(), kPathValue).value_or(QString()));
}

void CReceiverSettingsFilePage::Browse() {
    QFileDialog dialog(this, GetTitle(), FilePath(),
                       g_PellLibApp.XLoadString(pell::ids::SettingsFileFilter));
    dialog.setAcceptMode(m_mode == Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(m_mode == Save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QStringLiteral("json"));
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
        m_path->setText(dialog.selectedFiles().constFirst());
}
