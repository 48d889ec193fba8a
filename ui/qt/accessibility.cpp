#include "ui/qt/accessibility.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>

namespace velta::qt {

namespace {

/// Qt calls a drop-down list by what is chosen in it. This one has the name of its label, as all
/// inputs have; what is chosen is its description, of which a screen reader tells the changes too.
class DropDownAccess final : public QAccessibleWidget {
 public:
  explicit DropDownAccess(QComboBox& list)
      : QAccessibleWidget(&list, QAccessible::ComboBox), list_(list) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? list_.currentText() : QAccessibleWidget::text(kind);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.hasPopup = true;
    state.expanded = list_.view()->isVisible();
    state.collapsed = !state.expanded;
    state.editable = list_.isEditable();
    return state;
  }

  int childCount() const override { return list_.isEditable() ? 2 : 1; }
  QAccessibleInterface* child(int index) const override {
    if (index == 0) return QAccessible::queryAccessibleInterface(list_.view());
    return index == 1 && list_.isEditable()
               ? QAccessible::queryAccessibleInterface(list_.lineEdit())
               : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    if (child->object() == list_.view()) return 0;
    return list_.isEditable() && child->object() == list_.lineEdit() ? 1 : -1;
  }

  QStringList actionNames() const override {
    return QAccessibleWidget::actionNames() << showMenuAction();
  }
  void doAction(const QString& action) override {
    if (action != showMenuAction()) {
      QAccessibleWidget::doAction(action);
    } else if (list_.view()->isVisible()) {
      list_.hidePopup();
    } else if (list_.isEnabled()) {
      list_.showPopup();
    }
  }

 private:
  QComboBox& list_;
};

QAccessibleInterface* Make(const QString& class_name, QObject* object) {
  if (class_name != u"QComboBox") return nullptr;
  return new DropDownAccess(*static_cast<QComboBox*>(object));
}

}  // namespace

void PrepareAccessibility() { QAccessible::installFactory(Make); }

}  // namespace velta::qt
