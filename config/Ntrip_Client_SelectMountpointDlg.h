#pragma once

#include "config/NtripSourceTable.h"
#include "lib/PellDialog.h"
#include "lib/pell_export.h"

#include <memory>
#include <optional>
#include <stop_token>

class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;
class CSourceTableModel;
class CObserverListener;
namespace pell {
class CPositionFeed;
}

// Chooses a mount point from the source table the receiver fetched from its caster
// ("ntrip/caster/table"): every stream in a list that sorts by any column and narrows to what the
// user types, with the distance from the receiver's latest fix to each stream's base.
class PELL_EXPORT CNtrip_Client_SelectMountpointDlg : public CPellDialog {
    Q_OBJECT
public:
    // `current`: the mount point the client uses now, selected when the list shows.
    CNtrip_Client_SelectMountpointDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                      const QString& current, QWidget* parent = nullptr);
    ~CNtrip_Client_SelectMountpointDlg() override;

    // The stream chosen with OK; empty while none is.
    std::optional<ntrip::Stream> Selected() const;
    // The list as the user sees it, sorted and filtered.
    QSortFilterProxyModel& List() const { return *m_proxy; }
    QLineEdit& Filter() const { return *m_filter; }

    // Cancel and Escape also stop a table still coming.
    void reject() override;

protected:
    void OnInitDialog() override;

private:
    void UpdateCount();
    void SelectMountpoint(const QString& mountpoint);

    QString m_current;
    CSourceTableModel* m_model;
    QSortFilterProxyModel* m_proxy;
    QLineEdit* m_filter;
    QTreeView* m_view;
    QLabel* m_count;
    QLabel* m_remark;
    bool m_userSorted = false;
    std::stop_source m_stopReading;
    std::shared_ptr<CObserverListener> m_observer;
    std::unique_ptr<pell::CPositionFeed> m_feed;
};
