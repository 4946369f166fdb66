// Makes one of each widget that the Designer plug-in offers, and prints their names.

#include <QApplication>
#include <QPluginLoader>
#include <QWidget>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <cstdio>
#include <memory>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QPluginLoader loader(QString::fromLocal8Bit(argv[1]));
  auto* plugin = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(loader.instance());
  if (!plugin) {
    std::printf("%s\n", qPrintable(loader.errorString()));
    return 1;
  }
  for (QDesignerCustomWidgetInterface* kind : plugin->customWidgets()) {
    const std::unique_ptr<QWidget> widget(kind->createWidget(nullptr));
    if (!widget || kind->name() != QLatin1String(widget->metaObject()->className()))
      return 1;
    std::printf("%s\n", qPrintable(kind->name()));
  }
}
