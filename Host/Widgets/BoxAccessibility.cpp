#include "FieldAccessibility.h"

#include "HostSupportQt/Captions.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>

#ifndef QT_NO_ACCESSIBILITY

namespace {

/// A box of choices. Qt calls it by what is chosen, so that nobody hears what for.
class Choice : public QAccessibleWidget {
public:
  explicit Choice(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox), m_box(box) {}

  QString text(QAccessible::Text kind) const override {
    switch (kind) {
    case QAccessible::Name: {
      const QString name = fieldName(m_box);
      return name.isEmpty() ? m_box->currentText() : name;
    }
    case QAccessible::Value:
      return m_box->currentText();
    default:
      return QAccessibleWidget::text(kind);
    }
  }
  void setText(QAccessible::Text kind, const QString& text) override {
    if (QAccessibleInterface* line = kind == QAccessible::Value ? child(1) : nullptr)
      line->setText(kind, text);
    else
      QAccessibleWidget::setText(kind, text);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.hasPopup = true;
    state.editable = m_box->isEditable();
    return state;
  }

  // Its parts are the list, and the line edit of one that can be edited.
  int childCount() const override { return m_box->isEditable() ? 2 : 1; }
  QAccessibleInterface* child(int index) const override {
    if (index == 0)
      return QAccessible::queryAccessibleInterface(m_box->view());
    return index == 1 ? QAccessible::queryAccessibleInterface(m_box->lineEdit()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* part) const override {
    if (!part || !part->object())
      return -1;
    return part->object() == m_box->view() ? 0 : part->object() == m_box->lineEdit() ? 1 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    QAccessibleInterface* line = child(1);
    return line && line->rect().contains(x, y) ? line : nullptr;
  }

  QStringList actionNames() const override {
    return m_box->isEnabled() ? QStringList{showMenuAction(), pressAction(), setFocusAction()}
                              : QStringList();
  }
  void doAction(const QString& action) override {
    if (!m_box->isEnabled())
      return;
    if (action != showMenuAction() && action != pressAction())
      QAccessibleWidget::doAction(action);
    else if (m_box->view()->isVisible())
      m_box->hidePopup();
    else
      m_box->showPopup();
  }

private:
  QComboBox* m_box;
};

/// A box that can be ticked: Qt lets a reader tick one that is off.
class TickedBox : public QAccessibleWidget {
public:
  explicit TickedBox(QGroupBox* box) : QAccessibleWidget(box, QAccessible::Grouping), m_box(box) {}

  QAccessible::Role role() const override {
    return m_box->isCheckable() ? QAccessible::CheckBox : QAccessible::Grouping;
  }
  QString text(QAccessible::Text kind) const override {
    const QString own = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && m_box->accessibleName().isEmpty()
               ? plainCaption(m_box->title())
               : own;
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = m_box->isCheckable();
    state.checked = m_box->isCheckable() && m_box->isChecked();
    return state;
  }
  QVector<QPair<QAccessibleInterface*, QAccessible::Relation>>
  relations(QAccessible::Relation wanted) const override {
    auto found = QAccessibleWidget::relations(wanted);
    if (wanted & QAccessible::Labelled && !m_box->title().isEmpty())
      for (int i = 0; i < childCount(); ++i)
        found.append({child(i), QAccessible::Labelled});
    return found;
  }

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (m_box->isCheckable() && m_box->isEnabled())
      names.prepend(toggleAction());
    return names;
  }
  void doAction(const QString& action) override {
    if (action != toggleAction())
      QAccessibleWidget::doAction(action);
    else if (m_box->isCheckable() && m_box->isEnabled())
      m_box->setChecked(!m_box->isChecked());
  }

private:
  QGroupBox* m_box;
};

} // namespace

QAccessibleInterface* makeChoiceAccessible(const QString& className, QObject* object) {
  if (className == QLatin1String("QComboBox"))
    if (auto* combo = qobject_cast<QComboBox*>(object))
      return new Choice(combo);
  if (className == QLatin1String("QGroupBox"))
    if (auto* box = qobject_cast<QGroupBox*>(object))
      return new TickedBox(box);
  return nullptr;
}

#endif
