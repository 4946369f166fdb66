#pragma once

#include "DynFunc.h"

/// The host's schematic editor as other modules see it; the order of the operations is the
/// contract.
class GlobalSchematicInterface {
public:
  virtual void reserved1() = 0;
  virtual void reserved2() = 0;
  virtual void setPicking(int on) = 0; ///< 1 while a dialog takes names that the user picks
  virtual bool hasCurrentSchematic() = 0;

protected:
  ~GlobalSchematicInterface() = default;
};

inline constexpr DynEntry<GlobalSchematicInterface*()> dyn_GetGlobalSchematicInterface{
    "dyn_GetGlobalSchematicInterface", "Include/schematic_dynexport", 46};
