#pragma once

#include "lib/PellPropertyPage.h"
#include "lib/pell_export.h"

class QLabel;
class QLineEdit;
class QToolButton;

// What the two file pages share: a file-name box with a "..." button that opens the platform's
// file dialog (JSON files, ".json" by default), and the path remembered under the page's own
// key, "private\<page class>" value "JSONPath".
class PELL_EXPORT CReceiverSettingsFilePage : public CPellPropertyPage {
    Q_OBJECT
public:
    enum EMode { Save, Open };

    CReceiverSettingsFilePage(std::shared_ptr<rxio::IReceiver> receiver, unsigned titleId,
                              unsigned subtitleId, EMode mode, QWidget* parent = nullptr);

    QString FilePath() const;
    void SetFilePath(const QString& path);
    // Stores the path for the next time the page opens.
    void RememberFilePath();
    // A line under the file name; none when empty.
    void SetSummary(const QString& text);

protected:
    void OnInitDialog() override;

private:
    QString SettingsKey() const;
    void Browse();

    EMode m_mode;
    QLineEdit* m_path;
    QToolButton* m_browse;
    QLabel* m_summary;
};
