#pragma once

#include "config/VOXA2JSON.h"
#include "lib/pell_export.h"

#include <QTreeWidget>
#include <map>
#include <memory>

// The dictionary as a tree with check boxes, in dictionary order: an item's check box is its
// element's "selected" flag. A parent's check box is its own: unchecking an object leaves its
// children as they are, they are merely not reached. With "show values" on, a second column
// shows each variable's value, or the reason it has none.
class PELL_EXPORT CReceiverSettingsTree : public QTreeWidget {
    Q_OBJECT
public:
    explicit CReceiverSettingsTree(QWidget* parent = nullptr);

    void SetRoot(std::shared_ptr<VOXA2JSON::Object> root);
    // What the value column says of a variable that has neither a value nor an error.
    void SetMissingText(const QString& text) { m_missingText = text; }
    const std::shared_ptr<VOXA2JSON::Object>& Root() const { return m_root; }
    // Shows what the variables hold now: every variable, or one.
    void UpdateValues();
    void UpdateVariable(const VOXA2JSON::Variable& variable);
    QTreeWidgetItem* ItemOf(const VOXA2JSON::Element& element) const;
    VOXA2JSON::Element* ElementOf(const QTreeWidgetItem* item) const;

    // One flag for the whole process, shared by the export and the import wizard.
    static bool ShowValues();
    static void SetShowValues(bool show);

    // "<friendly name> = <value or error>" with values shown, else the friendly name.
    static QString ItemText(const VOXA2JSON::Element& element, bool showValues);
    // The lines of the details box, CR LF between them.
    static QString DetailsText(const VOXA2JSON::Element& element);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void AddChildren(QTreeWidgetItem* parent, const VOXA2JSON::Object& object);
    // Names as wide as they need, but never so wide that the values leave a small screen.
    void FitColumns();

    std::shared_ptr<VOXA2JSON::Object> m_root;
    std::map<const VOXA2JSON::Element*, QTreeWidgetItem*> m_items;
    QString m_missingText;
    int m_namesWidth = 0;
};
