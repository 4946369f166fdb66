#pragma once

#include "Digital/DefineLogicGateDialog.h"

/// A gate of the four basic types, as older scripts know it.
class DefineLogicGateDialog_Legacy : public DefineLogicGateDialog {
  Q_OBJECT

public:
  DefineLogicGateDialog_Legacy();
};
