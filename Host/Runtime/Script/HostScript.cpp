#include "Script/HostScript.h"

#include <QJSEngine>
#include <QResource>

/// The linker leaves the resources of a static library out unless somebody asks for them. The macro
/// works outside of namespaces only.
static void initHostScripts() {
  Q_INIT_RESOURCE(HostScripts);
}

namespace {

QString sourceOf(const QString& name) {
  static const bool once = (initHostScripts(), true);
  Q_UNUSED(once)
  const QResource file(QStringLiteral(":/host-scripts/%1.js").arg(name));
  return QString::fromUtf8(file.uncompressedData());
}

} // namespace

QString hostScriptName() {
  return QStringLiteral("host:script");
}

QJSValue runHostScript(QJSEngine* engine, const QString& name, const QJSValue& bridge) {
  const QJSValue made =
      engine->evaluate(sourceOf(name), hostScriptName()).call({engine->globalObject(), bridge});
  Q_ASSERT_X(!made.isError(), "runHostScript", qPrintable(name + made.toString()));
  return made;
}
