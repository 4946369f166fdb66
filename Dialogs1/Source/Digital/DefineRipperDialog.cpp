#include "Digital/DefineRipperDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ComboNames.h"

#include <algorithm>
#include <cstring>

static const ScriptFunction declaration("DefineRipperDialog", 2, "SS", StringVectorResult,
                                        runDialogFunction<DefineRipperDialog, UserString>);

enum Argument { Ripper, Styles };
static constexpr unsigned styleElement = 3; // of the ripper

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

  QStringList styles = texts(Styles).all();
  std::transform(styles.cbegin(), styles.cend(), styles.begin(), rowText);
  showNames(form.styleCombo, styles);
  const Texts ripper = texts(Ripper);
  if (ripper.has(styleElement))
    form.styleCombo->setValue(ripper.number(styleElement));
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
