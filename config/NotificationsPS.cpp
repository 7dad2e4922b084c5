#include "config/NotificationsPS.h"

#include "config/PasswordField.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

using namespace rxio::vex;
namespace ids = pell::ids;

// A period the user switches on starts at an hour: a reminder, not a flood of mail.
constexpr int kFirstPeriodS = 3600;
// The receiver's longest period, a day.
constexpr int kLongestPeriodS = 86400;

const std::vector<CKeyedList::Field> kWatcherFields = {
    {QStringLiteral("email"), CKeyedList::Text},
    {QStringLiteral("level"), CKeyedList::Word},
};

QString Translated(const EnumTable& table, int index) {
    return ulm_std::CTranslatorInstance::Ref().XlateEx(table.Name(index));
}

// A threshold as the receiver gave it, in the user's number format.
QString ThresholdText(const QString& reply) {
    bool ok = false;
    const double value = reply.toDouble(&ok);
    return ok ? QLocale().toString(value, 'f', QLocale::FloatingPointShortest) : reply;
}

QPushButton* Button(unsigned text, const char* name) {
    auto* button = new QPushButton(XString(text));
    button->setObjectName(QLatin1String(name));
    return button;
}

} // namespace

const std::array<NotificationEvent, 5>& NotificationEvents() {
    static const std::array<NotificationEvent, 5> events = {{
        {ids::NotifEventSatellites, "/app/notif/sat/nmb/min", false, 0, 64, nullptr},
        {ids::NotifEventBatteryA, "/app/notif/bat/a/level/min", false, 0, 100,
         "/app/notif/bat/a/level/period"},
        {ids::NotifEventBatteryB, "/app/notif/bat/b/level/min", false, 0, 100,
         "/app/notif/bat/b/level/period"},
        {ids::NotifEventDiskSpace, "/app/notif/storage/space/min", false, 0, 65536,
         "/app/notif/storage/space/period"},
        {ids::NotifEventBaseOffset, "/app/notif/pos/dist/max", true, 0, 10000, nullptr},
    }};
    return events;
}

CNotifications_EMailAccountPP::CNotifications_EMailAccountPP(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NotifAccountPage), parent),
      m_host(new QLabel), m_port(new QLabel), m_serverLine(new QLabel) {
    auto* user = new QLineEdit;
    auto* password = new QLineEdit;
    MaskPassword(password);
    auto* server = Button(ids::NotifServerButton, "serverButton");
    server->setMaximumWidth(server->fontMetrics().horizontalAdvance(QStringLiteral("....")) +
                            server->fontMetrics().height() * 2);
    m_serverLine->setObjectName(QStringLiteral("serverLine"));
    m_serverLine->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* page = new QVBoxLayout(this);
    QFormLayout* account = Form(Group(XString(ids::NotifUserGroup), page));
    account->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    account->addRow(XString(ids::NotifUserName), user);
    account->addRow(XString(ids::NotifPassword), password);
    auto* serverRow = new QHBoxLayout(Group(XString(ids::NotifServerGroup), page));
    serverRow->addWidget(m_serverLine, 1);
    serverRow->addWidget(server);
    page->addStretch();

    BindText(user, QStringLiteral("/app/notif/email/user"));
    BindText(password, QStringLiteral("/app/notif/email/password"));
    // The host and port feed the server line.
    Hold(m_host, *this, m_serverLine);
    Hold(m_port, *this, m_serverLine);
    BindShown(m_host, QStringLiteral("/app/notif/email/host"));
    BindShown(m_port, QStringLiteral("/app/notif/email/port"));
    connect(server, &QPushButton::clicked, this,
            [this] { RunUserAction([this] { EditServer(); }); });
}

void CNotifications_EMailAccountPP::EditServer() {
    RunParameterDialog<CNotifications_ServerCfgDlg>(
        *this, [this](CNotifications_ServerCfgDlg& dialog) {
            m_host->setText(dialog.Host());
            m_port->setText(QString::number(dialog.Port()));
            m_serverLine->setText(ServerLine());
        });
}

QString CNotifications_EMailAccountPP::ServerLine() const {
    return AddressLine(m_host->text(), m_port->text());
}

void CNotifications_EMailAccountPP::OnValuesRead() {
    m_serverLine->setText(ServerLine());
}

CNotifications_ServerCfgDlg::CNotifications_ServerCfgDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                                         QWidget* parent)
    : CParameterDialog(std::move(receiver), XString(ids::NotifServerDialog), parent),
      m_host(new QLineEdit), m_port(CParameterPage::PortBox()) {
    auto* authentication = new QComboBox;
    auto* tls = new QCheckBox(XString(ids::NotifTls));
    auto* startTls = new QCheckBox(XString(ids::NotifStartTls));
    m_host->setObjectName(QStringLiteral("hostEdit"));
    m_host->setMinimumWidth(m_host->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 28);

    QFormLayout* form = CParameterPage::Form(&Body());
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->addRow(XString(ids::NotifHostName), m_host);
    form->addRow(XString(ids::NotifTcpPort), m_port);
    form->addRow(XString(ids::NotifAuthentication), authentication);
    form->addRow(QString(), tls);
    form->addRow(QString(), startTls);

    Body().BindText(m_host, QStringLiteral("/app/notif/email/host"));
    Body().BindSigned(m_port, QStringLiteral("/app/notif/email/port"));
    Body().BindChoice(authentication, QStringLiteral("/app/notif/email/auth"),
                      TableOf(EmailAuthentication::EEmailAuthentication{}));
    Body().BindSwitch(tls, QStringLiteral("/app/notif/email/tls"));
    Body().BindSwitch(startTls, QStringLiteral("/app/notif/email/starttls"));
}

QString CNotifications_ServerCfgDlg::Host() const {
    return m_host->text();
}

int CNotifications_ServerCfgDlg::Port() const {
    return m_port->value();
}

CNotifications_EventsPP::CNotifications_EventsPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                 QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NotifEventsPage), parent),
      m_list(List({XString(ids::NotifColumnDescription), XString(ids::NotifColumnThreshold),
                   XString(ids::NotifColumnPeriodically)})) {
    // The descriptions take the spare width, the values keep theirs: on a narrow screen a long
    // description is shortened, whole in its tool tip, and the values stay in sight.
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    ListButtons(m_list, new QVBoxLayout(this), this, {{}, [this] { EditEvent(); }, {}});

    // The values feed the list; they are written by the event dialog.
    for (std::size_t event = 0; event < m_rows.size(); ++event) {
        const NotificationEvent& e = NotificationEvents()[event];
        m_rows[event] = {new QLabel, new QLabel};
        Hold(m_rows[event].threshold, *this, m_list);
        Hold(m_rows[event].period, *this, m_list);
        BindShown(m_rows[event].threshold, QLatin1String(e.threshold));
        if (e.period)
            BindShown(m_rows[event].period, QLatin1String(e.period));
    }
}

void CNotifications_EventsPP::OnValuesRead() {
    // An event the receiver lacks is left out, and one without its period is notified once.
    for (Row& row : m_rows) {
        row.known = IsRead(row.threshold);
        row.periodKnown = IsRead(row.period);
    }
    Fill();
}

void CNotifications_EventsPP::Fill() {
    const int selected =
        m_list->currentItem() ? m_list->currentItem()->data(0, Qt::UserRole).toInt() : 0;
    m_list->clear();
    for (std::size_t event = 0; event < m_rows.size(); ++event) {
        const Row& row = m_rows[event];
        if (!row.known)
            continue;
        const int period = row.periodKnown ? row.period->text().toInt() : 0;
        auto* item = new QTreeWidgetItem(
            m_list,
            {XString(NotificationEvents()[event].description), ThresholdText(row.threshold->text()),
             period > 0 ? XString(ids::NotifEveryPeriod).arg(QLocale().toString(period))
                        : XString(ids::NotifNo)});
        item->setData(0, Qt::UserRole, int(event));
        item->setToolTip(0, item->text(0));
        item->setTextAlignment(1, Qt::AlignRight);
        if (int(event) == selected)
            m_list->setCurrentItem(item);
    }
}

void CNotifications_EventsPP::EditEvent() {
    const QTreeWidgetItem* current = m_list->currentItem();
    if (!current)
        return;
    const int event = current->data(0, Qt::UserRole).toInt();
    RunParameterDialog<CNotifications_EventDlg>(
        *this,
        [this, event](CNotifications_EventDlg& dialog) {
            const Row& row = m_rows[std::size_t(event)];
            row.threshold->setText(dialog.Threshold());
            row.period->setText(QString::number(dialog.Period()));
            Fill();
        },
        event);
}

CNotifications_EventDlg::CNotifications_EventDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                                 QWidget* parent, int event)
    : CParameterDialog(std::move(receiver), XString(ids::NotifEventDialog), parent), m_event(event),
      m_threshold(nullptr), m_once(new QRadioButton(XString(ids::NotifOnce))),
      m_periodically(new QRadioButton(XString(ids::NotifPeriodically))),
      m_period(CParameterPage::SpinBox(0, kLongestPeriodS)) {
    const NotificationEvent& e = NotificationEvents().at(std::size_t(event));
    auto* description = new QLabel(XString(e.description));
    description->setWordWrap(true);
    description->setMinimumWidth(description->fontMetrics().horizontalAdvance(QLatin1Char('x')) *
                                 36);
    m_period->setObjectName(QStringLiteral("periodBox"));
    m_once->setObjectName(QStringLiteral("onceButton"));
    m_periodically->setObjectName(QStringLiteral("periodicallyButton"));
    auto* choice = new QButtonGroup(this);
    choice->addButton(m_once);
    choice->addButton(m_periodically);

    QFormLayout* form = CParameterPage::Form(&Body());
    form->addRow(XString(ids::NotifDescription), description);
    if (e.real) {
        auto* box = CParameterPage::RealBox(e.minimum, e.maximum, 2);
        Body().BindReal(box, QLatin1String(e.threshold));
        m_threshold = box;
    } else {
        auto* box = CParameterPage::SpinBox(e.minimum, e.maximum);
        Body().BindSigned(box, QLatin1String(e.threshold));
        m_threshold = box;
    }
    m_threshold->setObjectName(QStringLiteral("thresholdBox"));
    form->addRow(XString(ids::NotifThreshold), m_threshold);
    form->addRow(QString(), m_once);
    form->addRow(QString(), m_periodically);
    form->addRow(XString(ids::NotifPeriod), m_period);
    if (e.period)
        Body().BindSigned(m_period, QLatin1String(e.period));

    connect(&Body(), &CParameterPage::valuesRead, this, &CNotifications_EventDlg::ShowChoice);
    connect(m_periodically, &QRadioButton::toggled, this, &CNotifications_EventDlg::FollowChoice);
    ShowChoice();
}

void CNotifications_EventDlg::ShowChoice() {
    const bool hasPeriod = NotificationEvents()[std::size_t(m_event)].period != nullptr;
    // A period the page could not read (or one the receiver lacks) is never written: the choice
    // stays as it is shown.
    const bool writable = hasPeriod && m_period->isEnabled() && !m_period->isHidden();
    m_once->setEnabled(writable);
    m_periodically->setEnabled(writable);
    const QSignalBlocker blocker(m_periodically);
    const bool periodic = hasPeriod && m_period->value() > 0;
    (periodic ? m_periodically : m_once)->setChecked(true);
    m_period->setMinimum(periodic ? 1 : 0);
    m_period->setEnabled(writable && periodic);
}

void CNotifications_EventDlg::FollowChoice() {
    if (m_periodically->isChecked()) {
        if (m_period->value() == 0)
            m_period->setValue(kFirstPeriodS);
        m_period->setMinimum(1);
    } else {
        m_period->setMinimum(0);
        m_period->setValue(0);
    }
    m_period->setEnabled(m_periodically->isChecked());
}

QString CNotifications_EventDlg::Threshold() const {
    if (const auto* real = qobject_cast<const QDoubleSpinBox*>(m_threshold))
        return QString::asprintf("%f", real->value());
    return QString::number(static_cast<const QSpinBox*>(m_threshold)->value());
}

int CNotifications_EventDlg::Period() const {
    return m_period->value();
}

CNotifications_WatchersPP::CNotifications_WatchersPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                     QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NotifWatchersPage), parent),
      m_watchers(QStringLiteral("/app/notif/watchers"), kWatcherFields,
                 QStringLiteral("Notifications_GetWatchers")),
      m_list(List({XString(ids::NotifColumnId), XString(ids::NotifColumnEmail),
                   XString(ids::NotifColumnLevel)})) {
    ListButtons(m_list, new QVBoxLayout(this), this,
                {[this] { AddWatcher(); }, [this] { EditWatcher(); },
                 [this] {
                     DeleteWatcher();
                 }});

    BindList(m_list, m_watchers);
    connect(this, &CParameterPage::valuesRead, this, &CNotifications_WatchersPP::Fill);
}

void CNotifications_WatchersPP::Fill() {
    const int selected =
        m_list->currentItem() ? m_list->indexOfTopLevelItem(m_list->currentItem()) : -1;
    m_list->clear();
    const EnumTable& levels = TableOf(NotificationLevel::ENotificationLevel{});
    for (const CKeyedList::Item& watcher : m_watchers.Items()) {
        const QString& level = watcher.values.at(QStringLiteral("level"));
        const int known = levels.Parse(level, -1);
        auto* row = new QTreeWidgetItem(
            m_list, {watcher.index >= 0 ? QString::number(watcher.index) : QStringLiteral("–"),
                     watcher.values.at(QStringLiteral("email")),
                     known >= 0 ? Translated(levels, known) : level});
        row->setTextAlignment(0, Qt::AlignRight);
    }
    if (selected >= 0 && m_list->topLevelItemCount() > 0)
        m_list->setCurrentItem(
            m_list->topLevelItem(std::min(selected, m_list->topLevelItemCount() - 1)));
    FitColumns(m_list);
}

void CNotifications_WatchersPP::Edit(int row) {
    CKeyedList::Values watcher{
        {QStringLiteral("email"), {}},
        {QStringLiteral("level"),
         TableOf(NotificationLevel::ENotificationLevel{}).Text(NotificationLevel::Warning)}};
    int index = -1;
    if (row >= 0) {
        const CKeyedList::Item& item = m_watchers.Items().at(std::size_t(row));
        watcher = item.values;
        index = item.index;
    }
    CPellWindow<CNotifications_WatcherDlg> dialog(watcher, index, this);
    if (dialog.exec() != pell::IDOK)
        return;
    if (row >= 0)
        m_watchers.Change(std::size_t(row), dialog.Watcher());
    else
        m_watchers.Add(dialog.Watcher());
    Fill();
    if (row < 0)
        m_list->setCurrentItem(m_list->topLevelItem(m_list->topLevelItemCount() - 1));
    SetModified(true);
}

void CNotifications_WatchersPP::AddWatcher() {
    Edit(-1);
}

void CNotifications_WatchersPP::EditWatcher() {
    if (QTreeWidgetItem* current = m_list->currentItem())
        Edit(m_list->indexOfTopLevelItem(current));
}

void CNotifications_WatchersPP::DeleteWatcher() {
    QTreeWidgetItem* current = m_list->currentItem();
    if (!current || g_PellLibApp.MessageBox(this, XString(ids::ConfirmDeletion),
                                            pell::MB_YESNO | pell::MB_ICONQUESTION) != pell::IDYES)
        return;
    m_watchers.Remove(std::size_t(m_list->indexOfTopLevelItem(current)));
    Fill();
    SetModified(true);
}

CNotifications_WatcherDlg::CNotifications_WatcherDlg(const CKeyedList::Values& watcher, int index,
                                                     QWidget* parent)
    : CPellDialog(nullptr, parent), m_watcher(watcher), m_email(new QLineEdit),
      m_level(new QComboBox) {
    setWindowTitle(XString(ids::NotifWatcherDialog));
    auto* id = new QLabel(index >= 0 ? QString::number(index) : XString(ids::NotifNewWatcher));
    auto* note = new QLabel(XString(ids::NotifLevelNote));
    note->setWordWrap(true);
    m_email->setObjectName(QStringLiteral("emailEdit"));
    m_level->setObjectName(QStringLiteral("levelBox"));
    m_email->setMaxLength(64);
    m_email->setMinimumWidth(m_email->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 32);
    m_email->setText(m_watcher[QStringLiteral("email")]);
    const EnumTable& levels = TableOf(NotificationLevel::ENotificationLevel{});
    for (int level = 0; level < levels.Count(); ++level)
        m_level->addItem(Translated(levels, level), levels.Text(level));
    // A word the table lacks is kept as the receiver gave it unless the user picks another.
    const QString level = m_watcher[QStringLiteral("level")];
    if (m_level->findData(level) < 0)
        m_level->addItem(level, level);
    m_level->setCurrentIndex(m_level->findData(level));

    QFormLayout* form = CParameterPage::Form(nullptr);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->addRow(XString(ids::NotifId), id);
    form->addRow(XString(ids::NotifEmail), m_email);
    form->addRow(XString(ids::NotifLevel), m_level);
    form->addRow(QString(), note);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("okButton"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CNotifications_WatcherDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CNotifications_WatcherDlg::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addWidget(buttons);
}

bool CNotifications_WatcherDlg::IsValidAddress(const QString& address) {
    // A plain address: dot-separated atoms of RFC 5322 before the '@', a host name of at least two
    // labels after it. No quoted local parts, comments, spaces or control characters: such an
    // address is rare and the text goes into a receiver command.
    static const QRegularExpression plain(QStringLiteral(
        R"(\A[A-Za-z0-9!#$%&'*+/=?^_`{|}~-]+(\.[A-Za-z0-9!#$%&'*+/=?^_`{|}~-]+)*)"
        R"(@([A-Za-z0-9]([A-Za-z0-9-]{0,61}[A-Za-z0-9])?\.)+[A-Za-z0-9]([A-Za-z0-9-]{0,61}[A-Za-z0-9])?\z)"));
    return address.size() <= 254 && address.indexOf(QLatin1Char('@')) <= 64 &&
           plain.match(address).hasMatch();
}

CKeyedList::Values CNotifications_WatcherDlg::Watcher() const {
    CKeyedList::Values watcher = m_watcher;
    watcher[QStringLiteral("email")] = m_email->text().trimmed();
    watcher[QStringLiteral("level")] = m_level->currentData().toString();
    return watcher;
}

void CNotifications_WatcherDlg::accept() {
    if (!IsValidAddress(m_email->text().trimmed())) {
        g_PellLibApp.MessageBox(this, XString(ids::NotifWrongEmail),
                                pell::MB_OK | pell::MB_ICONERROR);
        m_email->setFocus();
        return;
    }
    EndDialog(pell::IDOK);
}

CNotificationsPS::CNotificationsPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterSheet(receiver, XString(ids::NotifSheet), {QStringLiteral("/app/notif/*")},
                      parent) {
    if (Knows(QStringLiteral("/app/notif/email")))
        AddPage(new CNotifications_EMailAccountPP(receiver));
    for (const NotificationEvent& event : NotificationEvents())
        if (Knows(QLatin1String(event.threshold))) {
            AddPage(new CNotifications_EventsPP(receiver));
            break;
        }
    if (Knows(QStringLiteral("/app/notif/watchers")))
        AddPage(new CNotifications_WatchersPP(receiver));
}

int run_NotificationsPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    CPellWindow<CNotificationsPS> sheet(std::move(receiver), parent);
    if (sheet.GetPageCount() == 0 && !sheet.Unanswered()) {
        g_PellLibApp.MessageBox(parent, XString(ids::NetworkNotSupported),
                                pell::MB_OK | pell::MB_ICONERROR);
        return pell::IDCANCEL;
    }
    return sheet.exec();
}
