#include "Pieces/FloatDefaultControl.h"

#include "HostWidgets/Spinner.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QTest>

namespace {

struct Field {
  explicit Field(bool disables, double value = 10) {
    spinner.setValue(value);
    control = std::make_unique<FloatDefaultControl>(&spinner, &button, disables);
  }

  Spinner spinner;
  QCheckBox button;
  std::unique_ptr<FloatDefaultControl> control;
};

} // namespace

TEST(FloatDefaultControl, ButtonFollowsTheNumberAsItIsTyped) {
  Field field(false);
  auto* edit = field.spinner.findChild<QLineEdit*>();
  edit->clear();
  std::vector<bool> states;
  for (const char key : {'1', '0', '0'}) {
    QTest::keyClick(edit, key);
    states.push_back(field.button.isChecked());
  }
  EXPECT_EQ(states, (std::vector<bool>{false, true, false}));
  field.spinner.setValue(10);
  EXPECT_TRUE(field.button.isChecked());
  field.spinner.pressUp();
  EXPECT_FALSE(field.button.isChecked());
}

TEST(FloatDefaultControl, CheckingBringsTheDefaultBack) {
  for (const bool disables : {false, true}) {
    Field field(disables);
    field.spinner.setValue(3);
    field.button.click();
    EXPECT_EQ(field.spinner.value(), 10);
    EXPECT_TRUE(field.button.isChecked());
    EXPECT_EQ(field.spinner.isEnabled(), !disables);
    field.button.click();
    EXPECT_EQ(field.spinner.value(), 10) << "the number stands";
    EXPECT_FALSE(field.button.isChecked());
    EXPECT_TRUE(field.spinner.isEnabled());
  }
}

TEST(FloatDefaultControl, NewDefaultIsShownWhereItIsUsed) {
  Field field(false);
  field.control->setDefaultValue(20);
  EXPECT_EQ(field.spinner.value(), 10);
  field.button.click();
  field.control->setDefaultValue(30);
  EXPECT_EQ(field.spinner.value(), 30);
  EXPECT_TRUE(field.button.isChecked());
  // One that the spinner cannot take is no change of the user's either.
  field.spinner.setMax(35);
  field.control->setDefaultValue(40);
  EXPECT_EQ(field.spinner.value(), 35);
  EXPECT_TRUE(field.button.isChecked());
}

TEST(FloatDefaultControl, SynchronisesWithinRounding) {
  const struct {
    bool disables;
    bool checkedBefore;
    double defaultValue;
    double value;
    bool checked;
    bool enabled;
  } cases[] = {
      {false, false, 1e-6, 1e-6 * (1 + 5e-10), true, true},
      {false, true, 1e-6, 1e-6 * (1 + 5e-9), false, true},
      {false, false, -1e3, -1e3 * (1 + 5e-10), true, true},
      {false, true, 0, 1e-30, false, true},
      {true, true, 1e-6, 1e-6 * (1 + 5e-10), true, false},
      {true, false, 1e-6, 1e-6, false, true}, // the user's own choice of the same number
      {true, true, 1e-6, 2e-6, false, true},
  };
  for (const auto& c : cases) {
    Field field(c.disables, c.defaultValue);
    field.spinner.setValue(c.value);
    field.button.setChecked(c.checkedBefore);
    field.control->synchronise();
    EXPECT_EQ(field.button.isChecked(), c.checked) << c.value;
    EXPECT_EQ(field.spinner.isEnabled(), c.enabled) << c.value;
  }
}
