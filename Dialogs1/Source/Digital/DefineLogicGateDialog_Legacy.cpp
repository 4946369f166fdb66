#include "Digital/DefineLogicGateDialog_Legacy.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("DefineLogicGateDialog_Legacy", 1, "R", RealVectorResult,
                                        runDialogFunction<DefineLogicGateDialog_Legacy, UserReal>);

DefineLogicGateDialog_Legacy::DefineLogicGateDialog_Legacy()
    : DefineLogicGateDialog("DefineLogicGateDialog_Legacy") {
  setShown({form.invertedInputsEdit, form.invertedInputsLabel, form.radioButton5, form.radioButton6,
            form.radioButton7, form.xorInfoLabel},
           false);
}
