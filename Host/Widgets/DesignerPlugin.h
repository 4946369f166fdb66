#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

/// Shows the widget family in Qt Designer, so that forms open there as they look.
class HostWidgetsDesignerPlugin : public QObject, public QDesignerCustomWidgetCollectionInterface {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QDesignerCustomWidgetCollectionInterface_iid)
  Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
  explicit HostWidgetsDesignerPlugin(QObject* parent = nullptr);
  ~HostWidgetsDesignerPlugin() override;
  QList<QDesignerCustomWidgetInterface*> customWidgets() const override { return m_widgets; }

private:
  QList<QDesignerCustomWidgetInterface*> m_widgets;
};
