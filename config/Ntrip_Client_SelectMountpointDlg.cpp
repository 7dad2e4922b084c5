#include "config/Ntrip_Client_SelectMountpointDlg.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "receiver/LiveData.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"
#include "rxio/Listeners.h"
#include "rxio/Receiver.h"

#include <QAbstractTableModel>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>
#include <cmath>
#include <functional>
#include <numbers>

namespace {

// The distance early: on a field controller's narrow screen it is what decides.
enum EColumn {
    Mountpoint,
    Identifier,
    Distance,
    Format,
    Carrier,
    Solution,
    Country,
    Systems,
    ColumnCount
};

constexpr unsigned kHeadings[ColumnCount] = {
    pell::ids::NtripColumnMountpoint, pell::ids::NtripColumnIdentifier,
    pell::ids::NtripColumnDistance,   pell::ids::NtripColumnFormat,
    pell::ids::NtripColumnCarrier,    pell::ids::NtripColumnSolution,
    pell::ids::NtripColumnCountry,    pell::ids::NtripColumnSystems,
};

constexpr int kSortRole = Qt::UserRole;

} // namespace

// Where the receiver is: its latest fix, for the distances.
class CObserverListener final : public rxio::IPositionListener {
public:
    std::function<void(double latitude, double longitude)> onFix;

    void OnPosition(const Position& position) override {
        if (position.solution == rxio::ESolutionType::None || !onFix)
            return;
        constexpr double kDegrees = 180.0 / std::numbers::pi;
        onFix(position.geo.lat * kDegrees, position.geo.lon * kDegrees);
    }
};

class CSourceTableModel final : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetStreams(std::vector<ntrip::Stream> streams) {
        beginResetModel();
        m_streams = std::move(streams);
        endResetModel();
    }
    const std::vector<ntrip::Stream>& Streams() const { return m_streams; }

    // Distances follow the receiver, but only a move of more than 100 m redraws the list.
    void SetObserver(double latitude, double longitude) {
        if (m_hasObserver && ntrip::DistanceKm(m_latitude, m_longitude, latitude, longitude) < 0.1)
            return;
        m_latitude = latitude;
        m_longitude = longitude;
        m_hasObserver = true;
        if (!m_streams.empty())
            emit dataChanged(index(0, Distance), index(rowCount() - 1, Distance));
    }
    bool HasObserver() const { return m_hasObserver; }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : int(m_streams.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : ColumnCount;
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
            return {};
        if (role == Qt::DisplayRole)
            return XString(kHeadings[section]);
        if (role == Qt::TextAlignmentRole && section == Distance)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || std::size_t(index.row()) >= m_streams.size())
            return {};
        const ntrip::Stream& s = m_streams[std::size_t(index.row())];
        if (role == Qt::TextAlignmentRole && index.column() == Distance)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        if (role == Qt::ToolTipRole && index.column() == Format)
            return s.formatDetails;
        if (role == kSortRole && index.column() == Distance) {
            const double km = Km(s);
            return std::isnan(km) ? std::numeric_limits<double>::max() : km;
        }
        if (role != Qt::DisplayRole && role != kSortRole)
            return {};
        switch (EColumn(index.column())) {
        case Mountpoint:
            return s.mountpoint;
        case Identifier:
            return s.identifier;
        case Format:
            return s.format;
        case Carrier:
            return ntrip::CarrierText(s.carrier);
        case Solution:
            return ntrip::SolutionText(s.solution);
        case Systems:
            return s.navSystem;
        case Country:
            return s.country;
        case Distance: {
            const double km = Km(s);
            return std::isnan(km) ? QString() : QLocale().toString(km, 'f', km < 100 ? 1 : 0);
        }
        case ColumnCount:
            break;
        }
        return {};
    }

private:
    double Km(const ntrip::Stream& s) const {
        return m_hasObserver && s.HasPosition()
                   ? ntrip::DistanceKm(m_latitude, m_longitude, s.latitude, s.longitude)
                   : std::numeric_limits<double>::quiet_NaN();
    }

    std::vector<ntrip::Stream> m_streams;
    bool m_hasObserver = false;
    double m_latitude = 0, m_longitude = 0;
};

namespace {

// Narrows the list to the streams that match every word typed.
class CStreamFilter final : public QSortFilterProxyModel {
public:
    CStreamFilter(CSourceTableModel* model, QObject* parent)
        : QSortFilterProxyModel(parent), m_model(model) {
        setSourceModel(model);
        setSortRole(kSortRole);
        setSortCaseSensitivity(Qt::CaseInsensitive);
        setSortLocaleAware(true);
    }

    void SetWords(const QString& words) {
        m_words = words;
        invalidateRowsFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex&) const override {
        return ntrip::Matches(m_model->Streams()[std::size_t(row)], m_words);
    }

private:
    CSourceTableModel* m_model;
    QString m_words;
};

} // namespace

CNtrip_Client_SelectMountpointDlg::CNtrip_Client_SelectMountpointDlg(
    std::shared_ptr<rxio::IReceiver> receiver, const QString& current, QWidget* parent)
    : CPellDialog(std::move(receiver), parent), m_current(current),
      m_model(new CSourceTableModel(this)), m_proxy(new CStreamFilter(m_model, this)),
      m_filter(new QLineEdit), m_view(new QTreeView), m_count(new QLabel), m_remark(new QLabel),
      m_observer(std::make_shared<CObserverListener>()) {
    setWindowTitle(XString(pell::ids::NtripSelectMountpoint));
    m_filter->setClearButtonEnabled(true);
    m_view->setModel(m_proxy);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setSortingEnabled(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->header()->setStretchLastSection(false);
    m_remark->setWordWrap(true);
    m_remark->hide();

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("okButton"));
    ok->setEnabled(false);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cancelButton"));

    auto* layout = new QVBoxLayout(this);
    auto* filterRow = new QFormLayout;
    filterRow->addRow(XString(pell::ids::NtripFilter), m_filter);
    layout->addLayout(filterRow);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_count);
    layout->addWidget(m_remark);
    layout->addWidget(buttons);
    resize(640, 420);

    connect(m_view->header(), &QHeaderView::sectionClicked, this, [this] { m_userSorted = true; });
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        static_cast<CStreamFilter*>(m_proxy)->SetWords(text);
        UpdateCount();
        // Narrowed to one stream: it is the one, and Enter takes it.
        if (m_proxy->rowCount() == 1)
            m_view->selectionModel()->select(m_proxy->index(0, 0),
                                             QItemSelectionModel::ClearAndSelect |
                                                 QItemSelectionModel::Rows);
    });
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, ok] { ok->setEnabled(Selected().has_value()); });
    connect(m_view, &QTreeView::activated, this, [this] {
        if (Selected())
            EndDialog(pell::IDOK);
    });
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { EndDialog(pell::IDOK); });
    connect(buttons, &QDialogButtonBox::rejected, this, &CNtrip_Client_SelectMountpointDlg::reject);
    m_observer->onFix = [this](double latitude, double longitude) {
        const bool first = !m_model->HasObserver();
        m_model->SetObserver(latitude, longitude);
        // Nearest first, unless the user has chosen an order of their own.
        if (first && !m_userSorted) {
            m_view->sortByColumn(Distance, Qt::AscendingOrder);
            if (const QModelIndexList rows = m_view->selectionModel()->selectedRows();
                !rows.empty())
                m_view->scrollTo(rows.front());
        }
    };
}

CNtrip_Client_SelectMountpointDlg::~CNtrip_Client_SelectMountpointDlg() = default;

void CNtrip_Client_SelectMountpointDlg::OnInitDialog() {
    CPellDialog::OnInitDialog();
    // A caster's table may be large and the link slow: the window stays responsive while it
    // comes, says so, and its Cancel stops the waiting.
    m_count->setText(XString(pell::ids::NtripReadingTable));
    repaint();
    ntrip::SourceTable table;
    try {
        table = ntrip::ReadSourceTable(GetReceiver(), m_stopReading.get_token());
    } catch (const ulm_std::CWinException& e) {
        if (e.GetErrorCode() == pell::ERROR_CANCELLED)
            return;
        throw;
    }
    QStringList remarks;
    if (table.streams.empty())
        remarks << XString(pell::ids::NtripTableEmpty);
    if (table.skippedLines > 0)
        remarks << XString(pell::ids::NtripLinesSkipped).arg(table.skippedLines);
    if (!table.streams.empty() && (!table.complete || table.truncated))
        remarks << XString(pell::ids::NtripTableIncomplete);
    m_remark->setText(remarks.join(QLatin1Char(' ')));
    m_remark->setVisible(!remarks.isEmpty());
    m_model->SetStreams(std::move(table.streams));
    m_view->sortByColumn(Mountpoint, Qt::AscendingOrder);
    m_view->header()->resizeSections(QHeaderView::ResizeToContents);
    UpdateCount();
    SelectMountpoint(m_current);
    GetReceiver()->RegisterPositionListener(m_observer);
    m_feed = std::make_unique<pell::CPositionFeed>(GetReceiver());
    m_filter->setFocus();
}

void CNtrip_Client_SelectMountpointDlg::reject() {
    m_stopReading.request_stop();
    CPellDialog::reject();
}

std::optional<ntrip::Stream> CNtrip_Client_SelectMountpointDlg::Selected() const {
    const QModelIndexList rows = m_view->selectionModel()->selectedRows();
    if (rows.isEmpty())
        return std::nullopt;
    const QModelIndex source = m_proxy->mapToSource(rows.front());
    return m_model->Streams()[std::size_t(source.row())];
}

void CNtrip_Client_SelectMountpointDlg::UpdateCount() {
    m_count->setText(
        XString(pell::ids::NtripMountpointCount).arg(m_proxy->rowCount()).arg(m_model->rowCount()));
}

void CNtrip_Client_SelectMountpointDlg::SelectMountpoint(const QString& mountpoint) {
    const auto& streams = m_model->Streams();
    for (std::size_t row = 0; row < streams.size(); ++row) {
        if (streams[row].mountpoint != mountpoint)
            continue;
        const QModelIndex shown = m_proxy->mapFromSource(m_model->index(int(row), 0));
        m_view->selectionModel()->select(shown, QItemSelectionModel::ClearAndSelect |
                                                    QItemSelectionModel::Rows);
        m_view->scrollTo(shown);
        return;
    }
}
