#pragma once

#include <QButtonGroup>
#include <QRadioButton>

/// Checks a radio button, or unchecks it even where its group would keep one checked.
inline void setRadioChecked(QRadioButton* button, bool on) {
  QButtonGroup* group = button->group();
  const bool groupExclusive = group && group->exclusive();
  const bool autoExclusive = button->autoExclusive();
  if (!on) {
    button->setAutoExclusive(false);
    if (group)
      group->setExclusive(false);
  }
  button->setChecked(on);
  if (!on) {
    if (group)
      group->setExclusive(groupExclusive);
    button->setAutoExclusive(autoExclusive);
  }
}
