#pragma once

#include "Call/FunctionTable.h"
#include "Script/ScriptRunner.h"

#include <QVector>

/// What the host serves to modules, and what a script serves in its place: cross-module entries,
/// host functions, the schematic.
///
/// Commands that modules run are those of the table, as long as this object is the last one made.
/// Each service is one row of the table in HostServices.cpp. Those of a script end with this
/// object.
class HostServices {
public:
  HostServices(ScriptRunner* runner, const FunctionTable* table);
  ~HostServices();
  HostServices(const HostServices&) = delete;
  HostServices& operator=(const HostServices&) = delete;

  /// A function serves `name` from now on; null withdraws the service; undefined brings the host's
  /// own back. Raises `CallError` for an unknown name, for one that this host does not serve yet,
  /// and for any other value.
  void provide(const QString& name, const QJSValue& function);

  bool hasSchematic() const;
  void setHasSchematic(bool on);
  QVector<int> picking() const; ///< the values that modules passed, in order

  /// Hands the text to the installed paste object; false when none is installed.
  static bool paste(const QString& text);

private:
  ScriptRunner* m_runner;
  QStringList m_provided;
};
