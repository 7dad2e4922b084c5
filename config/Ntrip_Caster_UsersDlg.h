#pragma once

#include "config/KeyedList.h"
#include "config/ParameterDialog.h"
#include "lib/PellDialog.h"
#include "lib/pell_export.h"

class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QLineEdit;
class QTreeWidget;

// One user of the receiver's caster: name, password, the mount points it may use and when its
// access starts and ends. Edits the values in memory; the users dialog writes them.
class PELL_EXPORT CNtrip_Caster_UserDlg : public CPellDialog {
    Q_OBJECT
public:
    // `others`: the names of the other users, which this one may not take.
    CNtrip_Caster_UserDlg(const CKeyedList::Values& user, QStringList others,
                          QWidget* parent = nullptr);

    CKeyedList::Values User() const;
    void accept() override;

protected:
    void OnInitDialog() override;

private:
    CKeyedList::Values m_user;
    QStringList m_others;
    QLineEdit* m_name;
    QLineEdit* m_password;
    QComboBox* m_access;
    QCheckBox* m_fromSet;
    QDateTimeEdit* m_from;
    QCheckBox* m_untilSet;
    QDateTimeEdit* m_until;
};

// The users of the receiver's caster ("/app/ntrip/caster/usr"): added, changed and deleted here,
// written on OK.
class PELL_EXPORT CNtrip_Caster_UsersDlg : public CParameterDialog {
    Q_OBJECT
public:
    CNtrip_Caster_UsersDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);

    CKeyedList& Users() { return m_users; }
    QTreeWidget& List() const { return *m_list; }
    void AddUser();
    void EditUser();
    void DeleteUser();

    // "2026/11/23 17:00:00" → the moment; an empty text has none. A text of that form that is no
    // real calendar instant gives the "Invalid date/time" message in `invalid`.
    static std::optional<QDateTime> ParseMoment(const QString& text, QString* invalid);

private:
    void Fill();
    // The user dialog for `row` (-1: a new user); whether it was taken.
    bool Edit(int row);

    CKeyedList m_users;
    QTreeWidget* m_list;
};
