#include "Digital/DefineRipperDialog.h"

#include "Core/Pieces/Integers.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ComboNames.h"
#include "Pieces/ScriptTexts.h"

#include <algorithm>
#include <cstring>

static const ScriptFunction declaration("DefineRipperDialog", 2, "SS", StringVectorResult,
                                        runDialogFunction<DefineRipperDialog, UserString>);

static constexpr unsigned styleElement = 3;

DefineRipperDialog::DefineRipperDialog() : KelvarinDialog(nullptr, "DefineRipperDialog", true, {}) {
  form.setupUi(this);
}

int DefineRipperDialog::helpContextId() {
  return sp_GetHelpContextId("Schematic_busses");
}

void DefineRipperDialog::initialiseDialog() {
  KelvarinDialog::initialiseDialog();
  form.editBox2->selectAll();
  // They come as texts, which are shown as they are.
  form.spinner4->checkMaxMin();
  form.spinner5->checkMaxMin();

  const char* const* texts = nullptr;
  unsigned count = 0;
  getStringVector(1, &texts, &count);
  QStringList styles = textsOf(texts, count);
  std::transform(styles.cbegin(), styles.cend(), styles.begin(), rowText);
  showNames(form.styleCombo, styles);
  if (getStringVector(0, &texts, &count) && count > styleElement)
    form.styleCombo->setValue(leadingInteger(texts[styleElement]));
}

void DefineRipperDialog::readDialog(UserDataType type, bool accepted) {
  KelvarinDialog::readDialog(type, accepted);
  if (!accepted || resultData->count <= styleElement)
    return;
  // The style's name stands there now. Its index is written over it, in the host's own text: where
  // the name leaves no room for that, scripts get the name.
  char* const style = static_cast<char**>(resultData->data)[styleElement];
  const YString index(form.styleCombo->currentIndex());
  const std::size_t length = std::strlen(index.c_str());
  if (style && length < std::strlen(style))
    std::copy_n(index.c_str(), length + 1, style);
}
