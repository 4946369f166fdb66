#include "PlotterAccessibility.h"

#include "HostWidgets/Plotter.h"

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

void PlotterAccessibility::install() {
  static const bool installed = (QAccessible::installFactory(makeChart), true);
  Q_UNUSED(installed)
}

void PlotterAccessibility::readOutChanged(Plotter* plotter) {
  if (!QAccessible::isActive())
    return;
  QAccessibleValueChangeEvent event(plotter, plotter->readOut());
  QAccessible::updateAccessibility(&event);
}

#else

void PlotterAccessibility::install() {}
void PlotterAccessibility::readOutChanged(Plotter*) {}

#endif
