// The tables of the module's own sheets.
#include "Analog/SelectDeviceDialog.h"
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

TEST(Tables, DevicesSortByNumbers) {
  QTreeWidget tree;
  tree.setColumnCount(2);
  const char* values[] = {"100", "2k", "n/a", "9", "2m", "10", "1e4", "-1u", "abc", "0", "nan"};
  for (const char* value : values)
    tree.addTopLevelItem(
        new SelectFetListViewItem(0, {QString::fromLatin1(value), QString::fromLatin1(value)}));
  const auto sorted = [&tree](int column) {
    tree.sortItems(column, Qt::AscendingOrder);
    QStringList texts;
    for (int row = 0; row < tree.topLevelItemCount(); ++row)
      texts.append(tree.topLevelItem(row)->text(column));
    return texts.join(QLatin1Char(' ')).toStdString();
  };
  // What is no number stands where 0 does.
  EXPECT_EQ(sorted(1), "-1u 0 abc n/a nan 2m 9 10 100 2k 1e4");
  EXPECT_EQ(sorted(0), "-1u 0 10 100 1e4 2k 2m 9 abc n/a nan");
}

} // namespace
