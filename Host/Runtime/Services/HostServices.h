#pragma once

#include "Call/FunctionTable.h"
#include "Services/Service.h"

/// What the host serves to modules, and who serves it in the host's place: cross-module entries,
/// host functions, operations of the support library, the schematic, the graphs.
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

  // They raise `CallError` for an unknown name, the first also for what scripts can only steer.
  void provide(const QString& name, Provider provider); ///< serves it from now on
  void withdraw(const QString& name);                   ///< nobody does: an entry is unresolved
  void restore(const QString& name);                    ///< the host's own does, if there is one
};
