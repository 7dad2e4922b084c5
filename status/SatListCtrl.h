#pragma once

#include "lib/pell_export.h"
#include "status/SatelliteImageLib.h"
#include "status/SatelliteInfoEx.h"

#include <QAbstractTableModel>
#include <QTableView>
#include <optional>
#include <utility>
#include <vector>

// The rows of the satellite list: the satellites of one constellation (SAIF among SBAS) in its
// column set, or of all of them in the set shared by every constellation, sorted by the column
// the user chose.
class PELL_EXPORT CSatListModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    using EConstellation = rxio::ISatListListener::SatelliteInfo::EConstellation;
    using EColumn = CSatelliteInfoEx::EColumn;

    explicit CSatListModel(QObject* parent = nullptr);

    // std::nullopt: every satellite.
    void SetConstellation(std::optional<EConstellation> constellation);
    const std::optional<EConstellation>& Constellation() const { return m_constellation; }
    void SetSatellites(const std::vector<CSatelliteInfoEx>& satellites);

    const CSatelliteInfoEx& Satellite(int row) const { return m_rows.at(row); }
    EColumn Column(int column) const { return m_columns.at(column).first; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // Constellations stay grouped; within each, by `column` in `order`.
    void sort(int column, Qt::SortOrder order) override;

private:
    // The satellites shown, in the chosen order.
    std::vector<CSatelliteInfoEx> Rows() const;

    std::optional<EConstellation> m_constellation;
    CSatelliteInfoEx::ColumnTitles m_columns;
    std::vector<CSatelliteInfoEx> m_all;
    std::vector<CSatelliteInfoEx> m_rows;
    int m_sortColumn = 0;
    Qt::SortOrder m_order = Qt::AscendingOrder;
};

// The satellite list: one owner-drawn row per satellite, tinted in its constellation's colour
// while fresh and fading when it is no longer reported, its icon in the first cell. A click on
// a column's header sorts by it; a second click turns the order round.
class PELL_EXPORT CSatListCtrl final : public QTableView {
    Q_OBJECT
public:
    explicit CSatListCtrl(QWidget* parent = nullptr);

    CSatListModel& Model() { return m_model; }
    CSatelliteImageLib& ImageLib() { return m_images; }

private:
    CSatListModel m_model;
    CSatelliteImageLib m_images;
};
