#include "PlotterPrivate.h"

#include <QAccessibleWidget>

#ifndef QT_NO_ACCESSIBILITY

namespace {

class Chart : public QAccessibleWidget {
public:
  explicit Chart(Plotter* plotter) : QAccessibleWidget(plotter, QAccessible::Chart) {}

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Value)
      return static_cast<Plotter*>(widget())->readOut();
    return QAccessibleWidget::text(kind);
  }
};

QAccessibleInterface* makeChart(const QString& className, QObject* object) {
  auto* plotter = className == QLatin1String("Plotter") ? qobject_cast<Plotter*>(object) : nullptr;
  return plotter ? new Chart(plotter) : nullptr;
}

} // namespace

void Plotter::Private::installAccessibility() {
  static const bool installed = (QAccessible::installFactory(makeChart), true);
  Q_UNUSED(installed)
}

void Plotter::Private::announceReadOut() const {
  if (!QAccessible::isActive())
    return;
  QAccessibleValueChangeEvent event(q, q->readOut());
  QAccessible::updateAccessibility(&event);
}

#else

void Plotter::Private::installAccessibility() {}
void Plotter::Private::announceReadOut() const {}

#endif
