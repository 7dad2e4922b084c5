#pragma once

#include "lib/PellPropertyPage.h"
#include "lib/pell_export.h"
#include "receiver/VexTypes.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTreeWidget;
class CKeyedList;
class CParameterSheet;

// A configuration page as a table: each control bound to one receiver parameter and the kind of
// its value. The page reads every parameter with "print" when it is first shown (or refreshed),
// writes only what the user changed, each with the command of its kind, on Apply and OK, and
// keeps itself open with the control marked and the receiver's reply shown when the receiver
// refuses one. A parameter the receiver does not have hides its row; one whose value the control
// cannot show exactly is disabled and never written; a read-only one is shown and never written.
// Controls keep the ranges the page gives them. docs/configuration.md has a page as an example.
class PELL_EXPORT CParameterPage : public CPellPropertyPage {
    Q_OBJECT
public:
    enum EKind {
        Choice,   // a word of an enumeration: "set,<path>,<word>"
        Switch,   // one of two words, as a check box: "set,<path>,<word>"
        Signed,   // "set,<path>,%d"
        Unsigned, // "set,<path>,%u"
        Real,     // "set,<path>,%f"
        Text,     // "set,<path>,\"<text>\""
        Shown,    // read only
    };

    // Gives the refusal to show for a text that must not be written, or nothing for a good one.
    using TextCheck = std::function<QString(const QString&)>;

    CParameterPage(std::shared_ptr<rxio::IReceiver> receiver, const QString& title,
                   QWidget* parent = nullptr);

    // The page's table, declared in its constructor. Choices list the enumeration's display
    // names (tables are the library's static ones); a receiver word the table lacks is shown as
    // it is and kept unless changed.
    void BindChoice(QComboBox* box, const QString& path, const rxio::vex::EnumTable& table);
    void BindSwitch(QCheckBox* box, const QString& path, const QString& on = QStringLiteral("on"),
                    const QString& off = QStringLiteral("off"));
    void BindSigned(QSpinBox* box, const QString& path);
    void BindUnsigned(QSpinBox* box, const QString& path);
    void BindReal(QDoubleSpinBox* box, const QString& path);
    // A text with a check is refused, and the page writes nothing, while `check` finds fault.
    void BindText(QLineEdit* edit, const QString& path, TextCheck check = {});
    // A value shown in a label, by its display name when the enumeration is given.
    void BindShown(QLabel* label, const QString& path, const rxio::vex::EnumTable* table = nullptr);

    // The pieces pages and dialogs are laid out with, so that they all look alike: a form whose
    // labels line up on the left and whose fields keep their size, a titled group added to
    // `into`, and number boxes wide enough for their range.
    static QFormLayout* Form(QWidget* parent);
    static QGroupBox* Group(const QString& title, QBoxLayout* into);
    static QSpinBox* SpinBox(int minimum, int maximum);
    // A network port number up to 65535: written without group separators, as ports are.
    static QSpinBox* PortBox(int minimum = 1);
    static QDoubleSpinBox* RealBox(double minimum, double maximum, int decimals);
    // A list of rows under column headers, its last column taking the spare width; FitColumns
    // sizes the other columns to their contents once the rows are in.
    static QTreeWidget* List(const QStringList& columns);
    static void FitColumns(QTreeWidget* list);
    // Under a list of items, the buttons Add…, Edit… and Delete (named addButton, editButton,
    // deleteButton) for the actions given; a double click on an item edits it. A library
    // exception from an action is reported on `owner`. Returns the buttons made.
    struct ListActions {
        std::function<void()> add, edit, remove;
    };
    static std::vector<QPushButton*> ListButtons(QTreeWidget* list, QBoxLayout* into,
                                                 QWidget* owner, const ListActions& actions);
    // The line a page shows for a server it connects to: "host : port", or "Not set" without a
    // host.
    static QString AddressLine(const QString& host, const QString& port);

    // A receiver list (caster users, watchers) edited in memory: read with the page's values and
    // written after them, all composed before the first command goes out. `view` shows it (the
    // page fills it in OnValuesRead) and carries the mark of a refusal.
    void BindList(QWidget* view, CKeyedList& list);

    // A bound control that never shows: the page shows its value some other way (a summary
    // line, a list) and sets it from there. Made a hidden child of `page`; a refusal marks
    // `shownBy` (the list or line that shows the value), when given.
    static void Hold(QWidget* control, CParameterPage& page, QWidget* shownBy = nullptr);
    // Whether the receiver has the parameter bound to `control` and the control shows its value.
    bool IsRead(const QWidget* control) const;
    // Reads every bound parameter again; the user's unapplied changes are dropped.
    void Refresh();
    // The commands Apply would send now, in the table's order, and the parameters they set.
    QStringList PendingCommands();
    QStringList ChangedPaths();
    // Whether the parameter bound to `control` differs from what the receiver holds.
    bool IsChanged(const QWidget* control);

signals:
    // After every reading, and after an Apply that wrote a list: for windows that show what the
    // page read (a dialog filling the view of its list).
    void valuesRead();

protected:
    void OnInitDialog() override;
    bool OnApply() override;
    void OnConnectionLost() override;
    void OnReceiverGone() override;
    // After every read: controls that follow the values (a box that switches a field) sync here.
    virtual void OnValuesRead();

private:
    // A dialog holds its table in a page of its own and applies it on OK.
    friend class CParameterDialog;

    struct Binding {
        Binding(QWidget* boundControl, QString boundPath, EKind boundKind,
                const rxio::vex::EnumTable* words = nullptr, QString onWord = {},
                QString offWord = {}, TextCheck textCheck = {})
            : control(boundControl), path(std::move(boundPath)), kind(boundKind), table(words),
              on(std::move(onWord)), off(std::move(offWord)), check(std::move(textCheck)) {}

        QWidget* control;
        QString path;
        EKind kind;
        const rxio::vex::EnumTable* table;
        QString on, off;
        TextCheck check;
        bool known = false;    // the receiver has the parameter
        bool writable = false; // read, and shown exactly as the receiver gave it
        QString applied;       // the value as read or last written, in the receiver's form
    };

    void Add(Binding binding);
    // The labels of all the page's forms as wide as the widest, so fields line up across groups.
    void AlignForms();
    // Shows a reply; false when the control cannot show it exactly.
    bool Show(Binding& binding, const QString& reply);
    // The bindings whose control differs from what the receiver holds.
    std::vector<Binding*> Changed();
    // The window is closing under a command of this page (a receiver's notice).
    bool SheetClosing() const;
    // The sheet that records the receiver before the first write: the page's own, or for a
    // dialog's table the sheet of the page that opened the dialog. Null for a dialog alone.
    CParameterSheet* Recorder() const;
    // The control's value in the receiver's form, as "set" would write it.
    QString Current(const Binding& binding) const;
    QString Command(const Binding& binding) const;
    void Mark(Binding& binding, const QString& reply);
    // A refusal's red frame and tool tip on a control; an empty reply takes them away.
    static void MarkControl(QWidget* control, const QString& reply);
    void ShowRow(const Binding& binding, bool visible);

    std::vector<Binding> m_bindings;
    struct ListBinding {
        QWidget* view;
        CKeyedList* list;
    };
    void ForgetList(const ListBinding& bound, const QString& why);
    std::vector<ListBinding> m_lists;
    bool m_filling = false;
};
