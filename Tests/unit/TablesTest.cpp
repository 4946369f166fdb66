// The tables of the module's own sheets.
#include "FieldsCheck.h"
#include "Properties/EditPinDialog.h"

namespace {

struct Property : AddPropertyDialog {
  using AddPropertyDialog::attributeBoxes;
};

struct Pin : EditPinDialog {
  using EditPinDialog::ticks;
};

TEST(Tables, AttributesOfAProperty) {
  checkBits(Property().attributeBoxes);
}

TEST(Tables, TicksOfAPin) {
  for (const char* prefix : {"true", "false"})
    for (const char* suffix : {"true", "false"})
      checkElements(Pin().ticks, {prefix, suffix});
}

} // namespace
