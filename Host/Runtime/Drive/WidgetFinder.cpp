#include "Drive/WidgetFinder.h"

#include "Drive/DriveError.h"
#include "HostWidgets/Spinner.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

namespace {

bool isComposite(const QWidget* widget) {
  return qobject_cast<const Spinner*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget) ||
         qobject_cast<const QComboBox*>(widget) || qobject_cast<const QLineEdit*>(widget);
}

/// A child that its parent made for itself, and that no form knows of.
bool isInnerPart(const QWidget* parent, const QWidget* child) {
  if (isComposite(parent))
    return true;
  if (const auto* tabs = qobject_cast<const QTabWidget*>(parent))
    return child == tabs->tabBar();
  if (qobject_cast<const QTabBar*>(parent))
    return true;
  return qobject_cast<const QAbstractScrollArea*>(parent) != nullptr; // its viewport, too
}

/// The children in the order of creation: a stack raises its page in front, which moves it behind
/// its sisters.
QVector<QWidget*> childrenOf(const QWidget* parent) {
  QVector<QWidget*> children;
  const auto* stack = qobject_cast<const QStackedWidget*>(parent);
  for (int page = 0; stack && page < stack->count(); ++page)
    children.append(stack->widget(page));
  for (QObject* child : parent->children())
    if (child->isWidgetType() && (!stack || stack->indexOf(static_cast<QWidget*>(child)) < 0))
      children.append(static_cast<QWidget*>(child));
  return children;
}

void collect(const QWidget* parent, QVector<QWidget*>* found) {
  for (QWidget* child : childrenOf(parent)) {
    if (child->isWindow() && child->windowType() != Qt::Popup)
      continue;
    if (isInnerPart(parent, child))
      continue;
    found->append(child);
    collect(child, found);
    // what stands in a cell, or in a scroll area
    if (const auto* area = qobject_cast<const QAbstractScrollArea*>(child))
      collect(area->viewport(), found);
  }
}

/// Splits "name:2" into its two parts; false where no number stands behind a colon.
bool splitNumber(const QString& name, QString* stem, int* number) {
  const int colon = name.lastIndexOf(QLatin1Char(':'));
  bool isNumber = false;
  const int value = name.mid(colon + 1).toInt(&isNumber);
  if (colon <= 0 || !isNumber || value < 0)
    return false;
  *stem = name.left(colon);
  *number = value;
  return true;
}

/// Those of a name, visible ones before hidden ones.
QVector<QWidget*> ofName(QVector<QWidget*> widgets, const QString& name) {
  widgets.erase(std::remove_if(widgets.begin(), widgets.end(),
                               [&](QWidget* widget) { return widget->objectName() != name; }),
                widgets.end());
  std::stable_partition(widgets.begin(), widgets.end(),
                        [](QWidget* widget) { return widget->isVisible(); });
  return widgets;
}

} // namespace

bool isCaption(const QString& caption, const QString& asked) {
  return plainCaption(caption) == asked.trimmed() || plainCaption(caption) == plainCaption(asked);
}

QString describeWidget(const QWidget* widget) {
  const QString className = QString::fromUtf8(widget->metaObject()->className());
  return widget->objectName().isEmpty()
             ? className
             : QStringLiteral("%1 \"%2\"").arg(className, widget->objectName());
}

QString shortList(QStringList names) {
  constexpr int most = 20;
  names.removeAll(QString());
  names.removeDuplicates();
  if (names.isEmpty())
    return QStringLiteral("there are none");
  const int count = names.size();
  names = names.mid(0, most);
  const QString list = QStringLiteral("there are: ") + names.join(QLatin1String(", "));
  return count > most ? list + QStringLiteral(", … (%1 in all)").arg(count) : list;
}

QVector<QWidget*> WidgetFinder::widgets() const {
  QVector<QWidget*> found;
  collect(m_dialog, &found);
  return found;
}

QWidget* WidgetFinder::find(const QString& name) const {
  if (name.isEmpty())
    return nullptr;
  const QVector<QWidget*> all = widgets();
  const QVector<QWidget*> exact = ofName(all, name);
  if (!exact.isEmpty())
    return exact.first();
  QString stem;
  int number = 0;
  if (splitNumber(name, &stem, &number)) {
    const QVector<QWidget*> named = ofName(all, stem);
    if (!named.isEmpty())
      return named.value(number, nullptr);
    const QByteArray className = stem.toUtf8();
    for (QWidget* widget : all)
      if (widget->inherits(className.constData()) && number-- == 0)
        return widget;
    return nullptr;
  }
  // an inner part, asked for by the name that its composite gave it
  return m_dialog->findChild<QWidget*>(name);
}

QWidget* WidgetFinder::require(const QString& name) const {
  if (QWidget* widget = find(name))
    return widget;
  throw DriveError(QStringLiteral("no widget \"%1\" in \"%2\"; %3")
                       .arg(name, m_dialog->windowTitle(), shortList(names())));
}

QStringList WidgetFinder::names() const {
  QStringList names;
  for (QWidget* widget : widgets())
    if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")))
      names.append(widget->objectName());
  return names;
}

QString WidgetFinder::nameOf(QWidget* widget) const {
  const QVector<QWidget*> all = widgets();
  const QString name = widget->objectName();
  if (!name.isEmpty()) {
    const int place = ofName(all, name).indexOf(widget);
    return place > 0 ? QStringLiteral("%1:%2").arg(name).arg(place) : name;
  }
  const char* className = widget->metaObject()->className();
  int place = 0;
  for (QWidget* other : all) {
    if (other == widget)
      break;
    if (other->inherits(className))
      ++place;
  }
  return QStringLiteral("%1:%2").arg(QString::fromUtf8(className)).arg(place);
}

QWidget* WidgetFinder::ownerOf(QWidget* part) const {
  QWidget* owner = part;
  for (QWidget* widget = part; widget && widget != m_dialog; widget = widget->parentWidget()) {
    if (isComposite(widget))
      owner = widget;
    else if (qobject_cast<QTabBar*>(widget) && qobject_cast<QTabWidget*>(widget->parentWidget()))
      owner = widget->parentWidget();
    else if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) {
      // what a cell or a scroll area holds by name is a widget of its own; an editor, a viewport
      // and a scroll bar belong to the area
      const bool isOwnWidget = owner != area->viewport() && area->viewport()->isAncestorOf(owner) &&
                               (qobject_cast<QScrollArea*>(area) || !owner->objectName().isEmpty());
      if (!isOwnWidget)
        owner = area;
    }
  }
  return owner;
}
