#include "config/ReceiverPortsPS.h"

#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <utility>

namespace {

using namespace rxio::vex;

// Groups of ports by the receiver's name of their kind, matched exactly: "tcp" is not "tcpc".
struct Group {
    unsigned titleId;
    const char* kinds;
};
constexpr Group kGroups[] = {
    {pell::ids::PortsGroupUsb, "usb"},
    {pell::ids::PortsGroupTcp, "tcp,tcpc"},
    {pell::ids::PortsGroupIcomm, "icomm_loc,icomm_ext"},
    {pell::ids::PortsGroupUdp, "udp"},
    {pell::ids::PortsGroupBluetooth, "bth,btsp,btc,btsvc,ble"},
    {pell::ids::PortsGroupNtrip, "ntrip"},
    {pell::ids::PortsGroupMvp, "mvp"},
    {pell::ids::PortsGroupModem, "modem"},
};
constexpr char kSerial[] = "ser";

// The message sets a port can output with "em,".
constexpr const char* kMessageSets[] = {
    "nmea/GGA",   "nmea/RMC",   "nmea/GSA",   "nmea/GSV",   "nmea/PELSAT", "nmea/GLL",
    "nmea/VTG",   "nmea/ZDA",   "nmea/GST",   "nmea/HDT",   "jps/RT",      "jps/PO",
    "jps/VE",     "jps/ET",     "jps/SI",     "jps/EL",     "jps/AZ",      "jps/TO",
    "rtcm/1",     "rtcm/3",     "rtcm3/1004", "rtcm3/1006", "rtcm3/1012",  "rtcm3/1033",
    "rtcm3/1074", "rtcm3/1084", "rtcm3/1094", "rtcm3/1124", "rtcm3/1230",
};

// A grid under bold column headers, its last column taking the spare width.
QGridLayout* Table(QWidget* parent, std::initializer_list<unsigned> headers) {
    auto* grid = new QGridLayout(parent);
    grid->setHorizontalSpacing(grid->spacing() * 3);
    int column = 0;
    for (const unsigned id : headers) {
        auto* header = new QLabel(XString(id));
        QFont font = header->font();
        font.setBold(true);
        header->setFont(font);
        grid->addWidget(header, 0, column++);
    }
    grid->setColumnStretch(column, 1);
    return grid;
}

// Names the receiver gives go into commands as they are: a port or slot a plain word. Others are
// left out.
bool IsPlainName(const QString& name) {
    static const QRegularExpression plain(QStringLiteral("^[a-z0-9_]+$"));
    return plain.match(name).hasMatch();
}

// Check boxes in a uniform grid filled left to right, wrapping at the list's width: every set is
// in view on a wide screen and a narrow one scrolls down only.
QListWidget* MessageList() {
    auto* list = new QListWidget;
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->setFlow(QListView::LeftToRight);
    list->setWrapping(true);
    list->setResizeMode(QListView::Adjust);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return list;
}

// The grid fits the widest set, which the receiver may have added.
void FitGrid(QListWidget* list) {
    if (list->count() == 0)
        return;
    const QFontMetrics metrics = list->fontMetrics();
    list->setGridSize({list->sizeHintForColumn(0) + metrics.horizontalAdvance(QLatin1Char('0')) * 2,
                       list->sizeHintForRow(0) + metrics.height() / 4});
}

// The port letter shown in page titles: "dev/ser/a" → "A".
QString Letter(const QString& path) {
    return path.section(QLatin1Char('/'), -1).toUpper();
}

// A modem's "mode" is its dialling mode, edited on its own page, not an output format.
bool HasOutputMode(const ReceiverPort& port) {
    return port.kind != QLatin1String("modem");
}

QStringList Members(const CVexReceiverMate& mate, const QString& path) {
    return CVexReceiverMate::SplitList(mate.Run(pell::vexcmd::List(path)));
}

std::optional<std::vector<ReceiverPort>> Survey(const std::shared_ptr<rxio::IReceiver>& receiver) {
    try {
        return FindReceiverPorts(CVexReceiverMate(receiver));
    } catch (const ulm_std::CException&) {
        return std::nullopt;
    }
}

// What Cancel puts back: the kinds of ports found (not "dev/*", which also holds the timing
// inputs), their message output and the network settings of their pages. Of a port that takes no
// output only the input mode is written.
QStringList MasksFor(const std::optional<std::vector<ReceiverPort>>& ports) {
    const std::vector<ReceiverPort> found = ports.value_or(std::vector<ReceiverPort>{});
    QStringList kinds;
    for (const ReceiverPort& port : found)
        if (port.takesOutput && !kinds.contains(port.kind))
            kinds << port.kind;
    QStringList masks{QStringLiteral("out/*")};
    for (const QString& kind : kinds) {
        masks << QStringLiteral("dev/%1/*").arg(kind);
        if (kind == QLatin1String("tcp") || kind == QLatin1String("udp"))
            masks << QStringLiteral("net/%1/*").arg(kind);
    }
    for (const ReceiverPort& port : found)
        if (!kinds.contains(port.kind))
            masks << port.path + QLatin1String("/imode");
    return masks;
}

} // namespace

QString ReceiverPort::Label() const {
    QString label = Id();
    if (kind == QLatin1String("tcp") || kind == QLatin1String("tcpc"))
        label = XString(pell::ids::PortsNetLabel).arg(label, QStringLiteral("tcp"));
    else if (kind == QLatin1String("udp"))
        label = XString(pell::ids::PortsNetLabel).arg(label, QStringLiteral("udp"));
    if (controller)
        label = XString(pell::ids::PortsThisController).arg(label);
    if (!takesOutput)
        label = XString(pell::ids::PortsNoOutput).arg(label);
    return label;
}

std::vector<ReceiverPort> FindReceiverPorts(const CVexReceiverMate& mate) {
    QStringList kinds{QString::fromLatin1(kSerial)};
    for (const Group& group : kGroups)
        kinds << QString::fromLatin1(group.kinds).split(QLatin1Char(','));
    QString controller;
    try {
        controller = mate.Run(pell::vexcmd::Print(QStringLiteral("cur/term/id")),
                              CVexReceiverMate::RemoveQuotes);
    } catch (const ulm_std::CCommException&) {
        // A receiver that does not say which port it talks through: nothing is marked.
    }
    std::vector<ReceiverPort> ports;
    for (const QString& kind : Members(mate, QStringLiteral("dev"))) {
        if (!kinds.contains(kind))
            continue;
        QStringList letters;
        try {
            letters = Members(mate, QStringLiteral("dev/") + kind);
        } catch (const ulm_std::CCommException&) {
            continue; // a kind the receiver will not list has no ports to show
        }
        for (const QString& letter : letters) {
            if (!IsPlainName(letter))
                continue;
            ReceiverPort port{QStringLiteral("dev/%1/%2").arg(kind, letter), kind};
            port.controller = port.Id() == controller || port.path == controller;
            // An empty text goes nowhere: the reply only tells whether the port takes output.
            // Only a refusal counts; any other error leaves the question open.
            try {
                port.takesOutput = !CVexReceiverMate::IsAccessDenied(
                    mate.Run(pell::vexcmd::Out(port.Id(), QString())));
            } catch (const ulm_std::CCommException&) {
            }
            ports.push_back(std::move(port));
        }
    }
    return ports;
}

CReceiverPortPage::CReceiverPortPage(std::shared_ptr<rxio::IReceiver> receiver,
                                     const QString& title, const ReceiverPort* controller,
                                     QWidget* parent)
    : CParameterPage(std::move(receiver), title, parent) {
    if (controller)
        m_controllerId = controller->Id();
}

void CReceiverPortPage::Watch(QWidget* control, bool link) {
    m_watched.push_back({control, link});
}

bool CReceiverPortPage::Edited(const QWidget* control) {
    return control->isEnabled() && IsChanged(control);
}

bool CReceiverPortPage::ConfirmChanges() {
    const bool risky = std::any_of(m_watched.begin(), m_watched.end(), [this](const Watched& w) {
        return w.link && Edited(w.control);
    });
    return !risky || g_PellLibApp.MessageBox(
                         this, XString(pell::ids::PortsControllerWarning).arg(m_controllerId),
                         pell::MB_YESNO | pell::MB_ICONWARNING) == pell::IDYES;
}

// The questions come from the controls, not from composed commands: a text no command can carry
// reaches CParameterPage::OnApply, which marks it.
bool CReceiverPortPage::OnApply() {
    return ConfirmChanges() && CParameterPage::OnApply();
}

QComboBox* CReceiverPortPage::BindInputMode(const ReceiverPort& port) {
    auto* box = new QComboBox;
    BindChoice(box, port.path + QLatin1String("/imode"), TableOf(IMode::EIMode{}));
    if (port.controller)
        Watch(box, true);
    return box;
}

QWidget* CReceiverPortPage::BindOutputMode(const ReceiverPort& port) {
    const QString path = port.path + QLatin1String("/mode");
    const EnumTable& table = TableOf(OMode::EOMode{});
    if (!port.takesOutput) {
        // Shown only: the receiver refuses this port's output.
        auto* label = new QLabel;
        BindShown(label, path, &table);
        return label;
    }
    auto* box = new QComboBox;
    BindChoice(box, path, table);
    return box;
}

void CReceiverPortPage::OnSetActive() {
    CParameterPage::OnSetActive();
    const auto* sheet = qobject_cast<const CReceiverPortsPS*>(GetSheet());
    const int applied = sheet ? sheet->AppliedCount() : 0;
    if (m_readAfter >= 0 && m_readAfter != applied && !IsModified())
        Refresh();
    m_readAfter = applied;
}

CReceiverPortGeneralPP::CReceiverPortGeneralPP(std::shared_ptr<rxio::IReceiver> receiver,
                                               const std::vector<ReceiverPort>& ports,
                                               const ReceiverPort* controller, QWidget* parent)
    : CReceiverPortGeneralPP(std::move(receiver), XString(pell::ids::PortsGeneralPage), ports,
                             controller, parent) {}

CReceiverPortGeneralPP::CReceiverPortGeneralPP(std::shared_ptr<rxio::IReceiver> receiver,
                                               const QString& title,
                                               const std::vector<ReceiverPort>& ports,
                                               const ReceiverPort* controller, QWidget* parent)
    : CReceiverPortPage(std::move(receiver), title, controller, parent) {
    Build(ports);
}

void CReceiverPortGeneralPP::Build(const std::vector<ReceiverPort>& ports) {
    auto* page = new QVBoxLayout(this);
    if (ports.size() > 1) {
        m_portList =
            List({XString(pell::ids::PortsColumnPort), XString(pell::ids::PortsColumnAuth)});
        page->addWidget(m_portList);
    }
    m_panelBox = new QGroupBox(XString(pell::ids::PortsGeneralPage));
    page->addWidget(m_panelBox, 1);
    m_stack = new QStackedWidget;
    (new QVBoxLayout(m_panelBox))->addWidget(m_stack);

    for (const ReceiverPort& port : ports) {
        const QString out = QStringLiteral("out/") + port.path;
        auto* panel = new QWidget;
        auto* layout = new QVBoxLayout(panel);
        layout->setContentsMargins({});
        QFormLayout* form = Form(nullptr);
        layout->addLayout(form);
        QListWidget* messages = MessageList();
        for (const char* set : kMessageSets) {
            auto* item = new QListWidgetItem(QString::fromLatin1(set), messages);
            item->setCheckState(Qt::Unchecked);
        }
        FitGrid(messages);
        messages->setEnabled(false); // until its sets are read
        auto* messagesLabel = new QLabel(XString(pell::ids::PortsMessages));
        messagesLabel->setBuddy(messages);
        layout->addWidget(messagesLabel);
        layout->addWidget(messages, 1);
        form->addRow(XString(pell::ids::PortsInputMode), BindInputMode(port));
        QComboBox* output = nullptr;
        if (HasOutputMode(port)) {
            QWidget* mode = BindOutputMode(port);
            form->addRow(XString(pell::ids::PortsOutputMode), mode);
            output = qobject_cast<QComboBox*>(mode);
        }
        if (output)
            connect(output, &QComboBox::currentIndexChanged, this, [this, output] {
                for (Panel& each : m_panels)
                    if (each.output == output)
                        SyncMessages(each);
            });
        if (port.takesOutput) {
            auto* elevation = SpinBox(-90, 90);
            auto* period = RealBox(0, 86400, 3);
            form->addRow(XString(pell::ids::PortsElevMask), elevation);
            form->addRow(XString(pell::ids::PortsPeriod), period);
            BindSigned(elevation, out + QLatin1String("/elm"));
            BindReal(period, out + QLatin1String("/period"));
            Watch(period, false);
            m_panels.push_back({port, output, period, messages, {}, false});
        } else {
            auto* elevation = new QLabel;
            auto* period = new QLabel;
            form->addRow(XString(pell::ids::PortsElevMask), elevation);
            form->addRow(XString(pell::ids::PortsPeriod), period);
            BindShown(elevation, out + QLatin1String("/elm"));
            BindShown(period, out + QLatin1String("/period"));
            m_panels.push_back({port, nullptr, nullptr, messages, {}, false});
        }
        connect(messages, &QListWidget::itemChanged, this, [this] {
            if (!m_filling)
                SetModified(true);
        });
        m_stack->addWidget(panel);
        if (m_portList) {
            auto* item = new QTreeWidgetItem(m_portList, {port.Label(), QString()});
            item->setData(0, Qt::UserRole, port.path);
        }
    }
    if (m_portList) {
        connect(m_portList, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
            m_stack->setCurrentIndex(m_portList->indexOfTopLevelItem(item));
            m_panelBox->setTitle(item ? item->text(0) : QString());
        });
        m_portList->setCurrentItem(m_portList->topLevelItem(0));
        FitColumns(m_portList);
        // Whole rows, a few at most: the selected port's settings need the height more.
        const int rows = std::min(m_portList->topLevelItemCount(), 5);
        m_portList->setFixedHeight(m_portList->header()->sizeHint().height() +
                                   rows * m_portList->sizeHintForRow(0) +
                                   2 * m_portList->frameWidth());
    }
}

bool CReceiverPortGeneralPP::PeriodFits(double seconds, int rawMs, int posMs) {
    const auto ms = std::llround(seconds * 1000);
    const auto multiple = [ms](int interval) {
        return interval > 0 && ms % interval == 0;
    };
    return ms == 0 || (rawMs <= 0 && posMs <= 0) || multiple(rawMs) || multiple(posMs);
}

void CReceiverPortGeneralPP::OnValuesRead() {
    CReceiverPortPage::OnValuesRead();
    const CVexReceiverMate mate(GetReceiver());
    const auto interval = [&mate](const char* path) {
        try {
            return mate.Run(pell::vexcmd::Print(QLatin1String(path))).toInt();
        } catch (const ulm_std::CCommException&) {
            return 0; // no such rate: nothing to fit
        }
    };
    m_rawMs = interval("raw/msint");
    m_posMs = interval("pos/msint");
    for (Panel& panel : m_panels)
        ReadMessages(panel);
    ReadAuth();
}

void CReceiverPortGeneralPP::ReadMessages(Panel& panel) {
    panel.enabled.clear();
    try {
        const QStringList sets = CVexReceiverMate::SplitList(
            CVexReceiverMate(GetReceiver())
                .Run(pell::vexcmd::Print(panel.port.path + QLatin1String("/msgs"))));
        std::copy_if(sets.begin(), sets.end(), std::back_inserter(panel.enabled),
                     CVexReceiverMate::IsMessageSetName);
        panel.read = true;
        panel.messages->setToolTip({});
    } catch (const ulm_std::CCommException& error) {
        // Unknown sets: ticking one would send em against a state nobody has seen.
        panel.read = false;
        panel.messages->setToolTip(error.GetReply());
    }
    m_filling = true;
    const int count = panel.messages->count();
    for (const QString& set : panel.enabled)
        if (panel.messages->findItems(set, Qt::MatchExactly).isEmpty())
            new QListWidgetItem(set, panel.messages);
    if (panel.messages->count() != count)
        FitGrid(panel.messages);
    for (int row = 0; row < panel.messages->count(); ++row) {
        QListWidgetItem* item = panel.messages->item(row);
        item->setCheckState(panel.enabled.contains(item->text()) ? Qt::Checked : Qt::Unchecked);
    }
    m_filling = false;
    SyncMessages(panel);
}

void CReceiverPortGeneralPP::SyncMessages(Panel& panel) {
    panel.messages->setEnabled(
        panel.port.takesOutput && panel.read &&
        (!panel.output || (panel.output->isEnabled() &&
                           panel.output->currentData().toString() == QLatin1String("user"))));
}

// A TCP server port's "Auth": whether a client must give the password.
void CReceiverPortGeneralPP::ReadAuth() {
    if (!m_portList)
        return;
    const CVexReceiverMate mate(GetReceiver());
    for (int row = 0; row < m_portList->topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = m_portList->topLevelItem(row);
        const QString path = item->data(0, Qt::UserRole).toString();
        if (!path.startsWith(QLatin1String("dev/tcp/")))
            continue;
        const QString letter = path.section(QLatin1Char('/'), -1);
        for (const QString& noauth :
             {QStringLiteral("net/tcp/%1/noauth").arg(letter), QStringLiteral("net/tcp/noauth")}) {
            try {
                const bool open = mate.Run(pell::vexcmd::Print(noauth)) == QLatin1String("on");
                item->setText(
                    1, XString(open ? pell::ids::PortsAuthOpen : pell::ids::PortsAuthPassword));
                break;
            } catch (const ulm_std::CCommException&) {
                // Not this form of the setting: try the next.
            }
        }
    }
}

bool CReceiverPortGeneralPP::ConfirmChanges() {
    for (const Panel& panel : m_panels) {
        // A warning only: a period that fits neither rate may still be what the user wants.
        if (panel.period && Edited(panel.period) &&
            !PeriodFits(panel.period->value(), m_rawMs, m_posMs)) {
            if (g_PellLibApp.MessageBox(this, XString(pell::ids::PortsPeriodMismatch),
                                        pell::MB_OKCANCEL | pell::MB_ICONWARNING) != pell::IDOK)
                return false;
            break;
        }
    }
    return CReceiverPortPage::ConfirmChanges();
}

bool CReceiverPortGeneralPP::OnApply() {
    // Each panel's message commands, each with the one that undoes it, composed before anything
    // goes out: a set that cannot be named leaves the receiver untouched.
    std::vector<std::pair<Panel*, std::vector<std::pair<QString, QString>>>> writes;
    try {
        for (Panel& panel : m_panels) {
            if (!panel.messages->isEnabled())
                continue;
            std::vector<std::pair<QString, QString>> commands;
            for (int row = 0; row < panel.messages->count(); ++row) {
                const QListWidgetItem* item = panel.messages->item(row);
                const bool on = item->checkState() == Qt::Checked;
                if (on == panel.enabled.contains(item->text()))
                    continue;
                QString enable = pell::vexcmd::EnableMessages(panel.port.Id(), item->text());
                QString disable = pell::vexcmd::DisableMessages(panel.port.Id(), item->text());
                commands.emplace_back(on ? std::move(enable) : disable, on ? disable : enable);
            }
            if (!commands.empty())
                writes.emplace_back(&panel, std::move(commands));
        }
    } catch (const ulm_std::CWinException& error) {
        error.ReportError(this);
        return false;
    }
    if (!CReceiverPortPage::OnApply())
        return false;
    if (writes.empty())
        return true;
    if (auto* sheet = qobject_cast<CParameterSheet*>(GetSheet()))
        sheet->BeforeWriting();
    const CVexReceiverMate mate(GetReceiver());
    for (auto& [panel, commands] : writes) {
        try {
            for (const auto& [command, undo] : commands) {
                if (const QString reply = mate.Run(command);
                    CVexReceiverMate::IsAccessDenied(reply))
                    throw ulm_std::CCommException(command, QStringLiteral("Receiver"), reply,
                                                  QStringLiteral("ReceiverPortsPS"));
                Remember(undo);
            }
        } catch (const ulm_std::CException& error) {
            ReadMessages(*panel);
            error.ReportError(this);
            return false;
        }
        ReadMessages(*panel);
    }
    return true;
}

// The sheet records what Cancel puts back by reading it, which it cannot do for a port's message
// sets: the page keeps what undoes its own writes since the last Apply that went through whole.
void CReceiverPortGeneralPP::Remember(const QString& undo) {
    const auto* sheet = qobject_cast<const CReceiverPortsPS*>(GetSheet());
    const int applied = sheet ? sheet->AppliedCount() : 0;
    if (applied != m_undoAfter) {
        m_undo.clear();
        m_undoAfter = applied;
    }
    m_undo.prepend(undo);
}

void CReceiverPortGeneralPP::OnCancel() {
    const auto* sheet = qobject_cast<const CReceiverPortsPS*>(GetSheet());
    if (sheet && sheet->AppliedCount() == m_undoAfter && !m_undo.isEmpty()) {
        const CVexReceiverMate mate(GetReceiver());
        pell::RunAndReport(this, [&] {
            for (const QString& command : std::exchange(m_undo, {}))
                mate.Run(command);
        });
    }
    CReceiverPortPage::OnCancel();
}

void CReceiverPortGeneralPP::OnConnectionLost() {
    m_undo.clear();
    CReceiverPortPage::OnConnectionLost();
}

void CReceiverPortGeneralPP::OnReceiverGone() {
    m_undo.clear();
    CReceiverPortPage::OnReceiverGone();
}

CReceiverPorts_SerialPP::CReceiverPorts_SerialPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                 const ReceiverPort& port,
                                                 const ReceiverPort* controller, QWidget* parent)
    : CReceiverPortGeneralPP(std::move(receiver),
                             XString(pell::ids::PortsSerialPage).arg(Letter(port.path)), {port},
                             controller, parent) {
    auto* rate = new QComboBox;
    auto* bits = new QComboBox;
    auto* stops = new QComboBox;
    auto* parity = new QComboBox;
    auto* rtscts = new QCheckBox(XString(pell::ids::PortsRtsCts));
    auto* line = new QGroupBox(XString(pell::ids::PortsSerialGroup));
    QFormLayout* form = Form(line);
    form->addRow(XString(pell::ids::PortsBaudRate), rate);
    form->addRow(XString(pell::ids::PortsByteSize), bits);
    form->addRow(XString(pell::ids::PortsStopBits), stops);
    form->addRow(XString(pell::ids::PortsParity), parity);
    form->addRow(rtscts);
    auto* page = static_cast<QVBoxLayout*>(layout());
    page->insertWidget(0, line);
    if (port.controller) {
        auto* note = new QLabel(XString(pell::ids::PortsControllerNote));
        note->setWordWrap(true);
        page->insertWidget(0, note);
    }
    BindChoice(rate, port.path + QLatin1String("/rate"), TableOf(EBaudRate{}));
    BindChoice(bits, port.path + QLatin1String("/bits"), TableOf(EByteSize{}));
    BindChoice(stops, port.path + QLatin1String("/stops"), TableOf(EStopBits{}));
    BindChoice(parity, port.path + QLatin1String("/parity"), TableOf(EParity{}));
    BindSwitch(rtscts, port.path + QLatin1String("/rtscts"));
    if (port.controller)
        for (QWidget* setting : std::initializer_list<QWidget*>{rate, bits, stops, parity, rtscts})
            Watch(setting, true);
}

CReceiverPortGroupPP::CReceiverPortGroupPP(std::shared_ptr<rxio::IReceiver> receiver,
                                           const QString& title,
                                           const std::vector<ReceiverPort>& ports,
                                           const ReceiverPort* controller, QWidget* parent)
    : CReceiverPortPage(std::move(receiver), title, controller, parent) {
    auto* page = new QVBoxLayout(this);
    auto* box = new QGroupBox(title);
    page->addWidget(box);
    page->addStretch();
    QGridLayout* grid = Table(box, {pell::ids::PortsColumnPort, pell::ids::PortsColumnInput,
                                    pell::ids::PortsColumnOutput});
    int row = 1;
    for (const ReceiverPort& port : ports) {
        auto* name = new QLabel(port.Label());
        grid->addWidget(name, row, 0);
        QWidget* input = BindInputMode(port);
        name->setBuddy(input);
        grid->addWidget(input, row, 1);
        grid->addWidget(
            HasOutputMode(port) ? BindOutputMode(port) : new QLabel(QStringLiteral("—")), row, 2);
        ++row;
    }
}

CReceiverPortTCP_PP::CReceiverPortTCP_PP(std::shared_ptr<rxio::IReceiver> receiver,
                                         const QStringList& letters, QWidget* parent)
    : CReceiverPortPage(std::move(receiver), XString(pell::ids::PortsTcpPage), nullptr, parent) {
    auto* page = new QVBoxLayout(this);
    auto* box = new QGroupBox(XString(pell::ids::PortsTcpPage));
    page->addWidget(box);
    page->addStretch();
    QGridLayout* grid = Table(box, {pell::ids::PortsColumnPort, pell::ids::PortsTcpPortColumn,
                                    pell::ids::PortsColumnAuth});
    const QStringList nodes = letters.isEmpty() ? QStringList{QString()} : letters;
    int row = 1;
    for (const QString& letter : nodes) {
        const QString node =
            letter.isEmpty() ? QStringLiteral("net/tcp") : QStringLiteral("net/tcp/") + letter;
        auto* name = new QLabel(QStringLiteral("/dev/tcp/") +
                                (letter.isEmpty() ? QStringLiteral("a") : letter));
        auto* number = PortBox();
        auto* password = new QCheckBox(XString(pell::ids::PortsPasswordRequired));
        name->setBuddy(number);
        grid->addWidget(name, row, 0);
        grid->addWidget(number, row, 1);
        grid->addWidget(password, row, 2);
        BindSigned(number, node + QLatin1String("/port"));
        // Checked when the port asks for the password: "noauth" off.
        BindSwitch(password, node + QLatin1String("/noauth"), QStringLiteral("off"),
                   QStringLiteral("on"));
        ++row;
    }
}

CReceiverPortUDP_PP::CReceiverPortUDP_PP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CReceiverPortPage(std::move(receiver), XString(pell::ids::PortsUdpPage), nullptr, parent) {
    auto* page = new QVBoxLayout(this);
    auto* box = new QGroupBox(XString(pell::ids::PortsGroupUdp));
    page->addWidget(box);
    page->addStretch();
    auto* number = PortBox();
    Form(box)->addRow(XString(pell::ids::PortsUdpPort), number);
    BindSigned(number, QStringLiteral("net/udp/port"));
}

CReceiverPortComModemPP::CReceiverPortComModemPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                 const ReceiverPort& modem, QWidget* parent)
    : CReceiverPortPage(std::move(receiver),
                        XString(pell::ids::PortsModemPage).arg(Letter(modem.path)), nullptr,
                        parent) {
    const auto path = [&modem](const char* leaf) {
        return modem.path + QLatin1String(leaf);
    };
    auto* port = new QComboBox;
    auto* mode = new QComboBox;
    auto* open = new QCheckBox(XString(pell::ids::PortsModemOpen));
    auto* profile = new QLineEdit;
    profile->setMaxLength(32);
    auto* type = new QLabel;
    auto* hardware = new QLabel;
    auto* state = new QLabel;

    auto* page = new QVBoxLayout(this);
    auto* settings = new QGroupBox(XString(pell::ids::PortsModemGroup));
    QFormLayout* form = Form(settings);
    form->addRow(XString(pell::ids::PortsModemPort), port);
    form->addRow(XString(pell::ids::PortsModemMode), mode);
    form->addRow(XString(pell::ids::PortsModemProfile), profile);
    form->addRow(open);
    auto* connection = new QGroupBox(XString(pell::ids::PortsConnectionGroup));
    QFormLayout* status = Form(connection);
    status->addRow(XString(pell::ids::PortsModemType), type);
    status->addRow(XString(pell::ids::PortsModemHardware), hardware);
    status->addRow(XString(pell::ids::PortsModemState), state);
    page->addWidget(settings);
    page->addWidget(connection);
    page->addStretch();

    BindChoice(port, path("/port"), TableOf(ECom{}));
    BindChoice(mode, path("/mode"), TableOf(EMMode{}));
    BindText(profile, path("/profile"));
    BindSwitch(open, path("/open"));
    BindShown(type, path("/type"), &TableOf(EModem{}));
    BindShown(hardware, path("/hw"));
    BindShown(state, path("/cur/state"), &TableOf(EMState{}));
}

CReceiverPortComDriverPP::CReceiverPortComDriverPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                   const ReceiverPort& modem, QWidget* parent)
    : CReceiverPortPage(std::move(receiver),
                        XString(pell::ids::PortsDriverPage).arg(Letter(modem.path)), nullptr,
                        parent),
      m_modem(modem.path),
      m_slots(List({XString(pell::ids::PortsColumnSlot), XString(pell::ids::PortsColumnDriver),
                    XString(pell::ids::PortsColumnState)})),
      m_delete(new QPushButton(XString(pell::ids::PortsDeleteDriver))) {
    auto* page = new QVBoxLayout(this);
    page->addWidget(m_slots, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_delete);
    page->addLayout(buttons);
    m_delete->setEnabled(false);
    connect(m_slots, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        m_delete->setEnabled(item && item->data(0, Qt::UserRole).toBool());
    });
    connect(m_delete, &QPushButton::clicked, this, [this] { DeleteSelected(); });
}

void CReceiverPortComDriverPP::OnValuesRead() {
    CReceiverPortPage::OnValuesRead();
    const QString selected = m_slots->currentItem() ? m_slots->currentItem()->text(0) : QString();
    m_slots->clear();
    const CVexReceiverMate mate(GetReceiver());
    const QString drivers = m_modem + QLatin1String("/jps");
    try {
        for (const QString& slot :
             CVexReceiverMate::SplitList(mate.Run(pell::vexcmd::List(drivers)))) {
            if (!IsPlainName(slot))
                continue;
            const QString node = drivers + QLatin1Char('/') + slot;
            const QString id = mate.Run(pell::vexcmd::Print(node + QLatin1String("/id")),
                                        CVexReceiverMate::RemoveQuotes);
            const QString mode = mate.Run(pell::vexcmd::Print(node + QLatin1String("/mode")));
            const EnumTable& states = TableOf(SlotState::ESlotState{});
            const int state = states.Parse(mode, -1);
            auto* item = new QTreeWidgetItem(
                m_slots,
                {slot, id,
                 state < 0 ? mode
                           : ulm_std::CTranslatorInstance::Ref().XlateEx(states.Name(state))});
            item->setData(0, Qt::UserRole, state != SlotState::Empty);
            if (slot == selected)
                m_slots->setCurrentItem(item);
        }
    } catch (const ulm_std::CCommException& error) {
        m_slots->setToolTip(error.GetReply());
    }
    FitColumns(m_slots);
    QTreeWidgetItem* current = m_slots->currentItem();
    m_delete->setEnabled(current && current->data(0, Qt::UserRole).toBool());
}

bool CReceiverPortComDriverPP::DeleteSelected() {
    QTreeWidgetItem* item = m_slots->currentItem();
    if (!item || !item->data(0, Qt::UserRole).toBool())
        return false;
    if (g_PellLibApp.MessageBox(this, XString(pell::ids::PortsConfirmDriverDeletion),
                                pell::MB_YESNO | pell::MB_ICONQUESTION) != pell::IDYES)
        return false;
    const QString slot = m_modem + QLatin1String("/jps/") + item->text(0);
    const bool deleted = pell::RunAndReport(
        this, [&] { CVexReceiverMate(GetReceiver()).Run(pell::vexcmd::Remove(slot)); });
    OnValuesRead();
    return deleted;
}

CReceiverPortsPS::CReceiverPortsPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CReceiverPortsPS(receiver, Survey(receiver), parent) {}

CReceiverPortsPS::CReceiverPortsPS(std::shared_ptr<rxio::IReceiver> receiver,
                                   std::optional<std::vector<ReceiverPort>> ports, QWidget* parent)
    : CParameterSheet(receiver, XString(pell::ids::PortsSheet), MasksFor(ports), parent),
      m_ports(ports.value_or(std::vector<ReceiverPort>{})) {
    // A receiver that did not answer: asking again records why, and the sheet reports it.
    if (!Knows(QStringLiteral("dev")) || !ports)
        return;
    const ReceiverPort* controller = Controller();
    std::vector<ReceiverPort> others;
    for (const ReceiverPort& port : m_ports)
        if (port.kind == QLatin1String(kSerial))
            AddPage(new CReceiverPorts_SerialPP(receiver, port, controller));
        else
            others.push_back(port);
    const auto groupOf = [](const ReceiverPort& port) {
        return std::find_if(std::begin(kGroups), std::end(kGroups), [&port](const Group& each) {
            return QString::fromLatin1(each.kinds).split(QLatin1Char(',')).contains(port.kind);
        });
    };
    std::stable_sort(others.begin(), others.end(),
                     [&groupOf](const ReceiverPort& a, const ReceiverPort& b) {
                         return groupOf(a) < groupOf(b);
                     });
    if (!others.empty())
        AddPage(new CReceiverPortGeneralPP(receiver, others, controller));
    for (const Group& group : kGroups) {
        const QStringList kinds = QString::fromLatin1(group.kinds).split(QLatin1Char(','));
        std::vector<ReceiverPort> members;
        for (const ReceiverPort& port : others)
            if (kinds.contains(port.kind))
                members.push_back(port);
        if (members.empty())
            continue;
        AddPage(new CReceiverPortGroupPP(receiver, XString(group.titleId), members, controller));
        if (group.titleId == pell::ids::PortsGroupTcp) {
            QStringList letters;
            for (const ReceiverPort& port : members)
                if (port.kind == QLatin1String("tcp") &&
                    Knows(QStringLiteral("net/tcp/%1/port").arg(Letter(port.path).toLower())))
                    letters << Letter(port.path).toLower();
            if (!letters.isEmpty() || Knows(QStringLiteral("net/tcp/port")))
                AddPage(new CReceiverPortTCP_PP(receiver, letters));
        } else if (group.titleId == pell::ids::PortsGroupUdp &&
                   Knows(QStringLiteral("net/udp/port"))) {
            AddPage(new CReceiverPortUDP_PP(receiver));
        } else if (group.titleId == pell::ids::PortsGroupModem) {
            for (const ReceiverPort& modem : members) {
                AddPage(new CReceiverPortComModemPP(receiver, modem));
                if (Knows(modem.path + QLatin1String("/jps")))
                    AddPage(new CReceiverPortComDriverPP(receiver, modem));
            }
        }
    }
}

void CReceiverPortsPS::OnChangesApplied() {
    ++m_applied;
    CParameterSheet::OnChangesApplied();
}

const ReceiverPort* CReceiverPortsPS::Controller() const {
    for (const ReceiverPort& port : m_ports)
        if (port.controller)
            return &port;
    return nullptr;
}

int run_ReceiverPortsPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    CPellWindow<CReceiverPortsPS> sheet(std::move(receiver), parent);
    return sheet.exec();
}
