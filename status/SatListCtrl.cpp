#include "status/SatListCtrl.h"

#include "lib/PellLib.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextOption>
#include <algorithm>
#include <map>

namespace {

using Getter = CSatelliteInfoEx::Getter;

Getter GetterOf(CSatelliteInfoEx::EColumn column) {
    static const std::map<CSatelliteInfoEx::EColumn, Getter> getters = [] {
        CSatelliteInfoEx::ColumnGetters all;
        CSatelliteInfoEx::GetAllColumnsEx(all);
        return std::map<CSatelliteInfoEx::EColumn, Getter>(all.begin(), all.end());
    }();
    const auto found = getters.find(column);
    return found == getters.end() ? nullptr : found->second;
}

// Paints a row as the receiver's list has always looked: the cell filled with the satellite's
// fading constellation tint, framed in the list's background, the icon at the left of the first
// cell.
class CSatRowDelegate final : public QStyledItemDelegate {
public:
    CSatRowDelegate(CSatListModel& model, CSatelliteImageLib& images, QObject* parent)
        : QStyledItemDelegate(parent), m_model(model), m_images(images) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const CSatelliteInfoEx& satellite = m_model.Satellite(index.row());
        const QColor background = option.palette.color(QPalette::Base);
        const QColor fill = QColor::fromRgb(satellite.GetBkColor(background.rgb()));
        painter->save();
        painter->setPen(QPen(background, 1));
        painter->setBrush(fill);
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
        if (option.state & QStyle::State_Selected) {
            QColor highlight = option.palette.color(QPalette::Highlight);
            highlight.setAlpha(70);
            painter->fillRect(option.rect.adjusted(0, 0, -1, -1), highlight);
        }
        QRect text = option.rect.adjusted(4, 0, -4, 0);
        if (index.column() == 0) {
            const QSize icon = CSatelliteImageLib::GetImageSize();
            const int top = option.rect.top() + (option.rect.height() - icon.height()) / 2;
            m_images.Draw(*painter, QPoint(option.rect.left() + 2, top),
                          satellite.GetConstellation(false), satellite.SS,
                          satellite.Scintillation != 0);
            text.setLeft(option.rect.left() + icon.width() + 6);
        }
        painter->setPen(option.palette.color(QPalette::Text));
        painter->setFont(option.font);
        const Qt::Alignment alignment =
            (index.column() == 0 ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter;
        painter->drawText(QRectF(text), index.data(Qt::DisplayRole).toString(),
                          QTextOption(alignment));
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        const QSize icon = CSatelliteImageLib::GetImageSize();
        size.setHeight(std::max(size.height(), icon.height() + 4));
        if (index.column() == 0)
            size.setWidth(size.width() + icon.width() + 6);
        return size;
    }

private:
    CSatListModel& m_model;
    CSatelliteImageLib& m_images;
};

} // namespace

CSatListModel::CSatListModel(QObject* parent) : QAbstractTableModel(parent) {
    SetConstellation(std::nullopt);
}

void CSatListModel::SetConstellation(std::optional<EConstellation> constellation) {
    beginResetModel();
    m_constellation = constellation;
    // All constellations together share the columns every constellation has.
    CSatelliteInfoEx::GetColumnsFor(constellation.value_or(EConstellation::Unused), m_columns);
    m_sortColumn = std::clamp(m_sortColumn, 0, static_cast<int>(m_columns.size()) - 1);
    m_rows = Rows();
    endResetModel();
}

void CSatListModel::SetSatellites(const std::vector<CSatelliteInfoEx>& satellites) {
    m_all = satellites;
    std::vector<CSatelliteInfoEx> rows = Rows();
    // The same satellites in the same order: only the cells change, and the selection and the
    // scroll position stay where the user left them.
    const bool sameRows = std::equal(
        rows.begin(), rows.end(), m_rows.begin(), m_rows.end(),
        [](const CSatelliteInfoEx& a, const CSatelliteInfoEx& b) { return a.USI == b.USI; });
    if (sameRows) {
        m_rows = std::move(rows);
        if (!m_rows.empty())
            emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        return;
    }
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

std::vector<CSatelliteInfoEx> CSatListModel::Rows() const {
    std::vector<CSatelliteInfoEx> rows;
    for (const CSatelliteInfoEx& satellite : m_all)
        if (!m_constellation || satellite.GetConstellation(true) == *m_constellation)
            rows.push_back(satellite);
    const EColumn column = Column(m_sortColumn);
    const bool ascending = m_order == Qt::AscendingOrder;
    std::stable_sort(rows.begin(), rows.end(),
                     [column, ascending](const CSatelliteInfoEx& a, const CSatelliteInfoEx& b) {
                         return CSatelliteInfoEx::LE(a, b, column, ascending, true);
                     });
    return rows;
}

void CSatListModel::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= columnCount())
        return;
    emit layoutAboutToBeChanged();
    // The selection follows its satellite to its new row.
    const QModelIndexList before = persistentIndexList();
    std::vector<std::uint8_t> selected;
    for (const QModelIndex& at : before)
        selected.push_back(m_rows[at.row()].USI);
    m_sortColumn = column;
    m_order = order;
    m_rows = Rows();
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i) {
        const auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const auto& satellite) {
            return satellite.USI == selected[i];
        });
        after.push_back(index(static_cast<int>(row - m_rows.begin()), before[i].column()));
    }
    changePersistentIndexList(before, after);
    emit layoutChanged();
}

int CSatListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int CSatListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant CSatListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount())
        return {};
    const CSatelliteInfoEx& satellite = m_rows[index.row()];
    const EColumn column = Column(index.column());
    if (role == Qt::DisplayRole) {
        const Getter getter = GetterOf(column);
        return getter ? (satellite.*getter)() : QString();
    }
    if (role == Qt::ToolTipRole && column == EColumn::SS)
        return satellite.GetSSFull();
    return {};
}

QVariant CSatListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    return g_PellLibApp.XLoadString(m_columns[section].second);
}

CSatListCtrl::CSatListCtrl(QWidget* parent) : QTableView(parent) {
    setModel(&m_model);
    setItemDelegate(new CSatRowDelegate(m_model, m_images, this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(
        std::max(CSatelliteImageLib::GetImageSize().height() + 4, fontMetrics().height() + 6));
    horizontalHeader()->setMinimumSectionSize(
        fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 16);
    // The columns share the width; narrower than their minimum, the list scrolls sideways.
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSectionsClickable(true);
    setSortingEnabled(true);
}
