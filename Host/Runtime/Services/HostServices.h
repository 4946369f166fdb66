#pragma once

#include "Call/FunctionTable.h"
#include "Services/Service.h"

#include <QVector>

/// What the host serves to modules, and who serves it in the host's place: cross-module entries,
/// host functions, the schematic.
///
/// Commands that modules run are those of the table, as long as this object is the last one made.
/// Each service is one row of the table in HostServices.cpp. What this object has changed ends with
/// it.
class HostServices {
public:
  explicit HostServices(const FunctionTable* table);
  ~HostServices();
  HostServices(const HostServices&) = delete;
  HostServices& operator=(const HostServices&) = delete;

  /// Raises `CallError` for an unknown name.
  static const Service& service(const QString& name);

  // All three raise `CallError` for an unknown name, or where there is nothing to provide yet.
  void provide(const QString& name, Provider provider); ///< serves it from now on
  void withdraw(const QString& name);                   ///< nobody does: an entry is unresolved
  void restore(const QString& name);                    ///< the host's own does, if there is one

  bool hasSchematic() const;
  void setHasSchematic(bool on);
  QVector<int> picking() const; ///< the values that modules passed, in order

  /// Hands the text to the installed paste object; false when none is installed.
  static bool paste(const QString& text);
};
