// The tables of the module's own sheets.
#include "FieldsCheck.h"
#include "Properties/EditPinDialog.h"
#include "Pwl/PWLDialog.h"

namespace {

struct Property : AddPropertyDialog {
  using AddPropertyDialog::attributeBoxes;
};

struct Pin : EditPinDialog {
  using EditPinDialog::ticks;
};

struct Pwl : PWLDialog {
  using PWLDialog::initialCondition;
};

TEST(Tables, InitialConditionOfACurve) {
  Pwl dialog;
  for (const char* isUsed : {"true", "false"})
    checkElements(dialog.initialCondition, {isUsed, "{2*Vin}"});
  const double numbers[] = {1, 4.7};
  dialog.initialCondition.load(Reals(numbers, 2));
  checkElementsAsShown(dialog.initialCondition, {"true", "4.7"});
  dialog.initialCondition.load(Reals(numbers, 0));
  checkElementsAsShown(dialog.initialCondition, {"true", "4.7"});
}

TEST(Tables, AttributesOfAProperty) {
  checkBits(Property().attributeBoxes);
}

TEST(Tables, TicksOfAPin) {
  for (const char* prefix : {"true", "false"})
    for (const char* suffix : {"true", "false"})
      checkElements(Pin().ticks, {prefix, suffix});
}

} // namespace
