#pragma once

#include "config/ParameterDialog.h"
#include "lib/PellDialog.h"
#include "lib/pell_export.h"

#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QTreeWidget;

// One mount point of the receiver's caster: its name, and the message set description kept true
// to the messages the mount point actually serves. Edits the values in memory; the mount points
// dialog writes them.
class PELL_EXPORT CNtrip_Caster_MountpointDlg : public CPellDialog {
    Q_OBJECT
public:
    // `messages`: the message sets enabled on the mount point ("rtcm3/1004", …), none when the
    // receiver did not say (the description is then kept); `others`: the names of the
    // listener's other mount points, which this one may not take.
    CNtrip_Caster_MountpointDlg(const QString& name, const QString& description,
                                std::optional<QStringList> messages, QStringList others,
                                QWidget* parent = nullptr);

    QString Name() const;
    const QString& Description() const { return m_description; }
    void accept() override;

    // The description of a set of messages, grouped by format: "RTCM 3: 1004,1006; JPS: RT", at
    // most the 128 characters a receiver keeps. It is stored on the receiver and compared with
    // what it holds, so it is never translated.
    static QString Describe(QStringList messages);

protected:
    void OnInitDialog() override;

private:
    QString m_stored;
    QString m_description;
    QStringList m_others;
    QLineEdit* m_name;
    QLineEdit* m_descriptionField;
};

// The mount points of one listener of the receiver's caster ("/app/ntrip/caster/<n>/<m>", a
// fixed number of slots; a slot without a name is free): added, changed and deleted here,
// written on OK.
class PELL_EXPORT CNtrip_Caster_MountpointsDlg : public CParameterDialog {
    Q_OBJECT
public:
    CNtrip_Caster_MountpointsDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent,
                                 int listener, int slotCount);

    QTreeWidget& List() const { return *m_list; }
    void AddMountpoint();
    void EditMountpoint();
    void DeleteMountpoint();

private:
    struct Slot {
        QLineEdit* name;
        QLineEdit* description;
        QLabel* messages;
    };
    void Fill();
    // The mount point dialog for `slot`; whether it was taken.
    bool Edit(std::size_t slot);
    // The slot of the list's current row, or none.
    std::optional<std::size_t> CurrentSlot() const;

    std::vector<Slot> m_slots;
    QTreeWidget* m_list;
};
