#pragma once

#include "Generic/RowBox.h"

/// A column of text boxes.
class EditSelect : public RowBox {
  Q_OBJECT

public:
  EditSelect();

  /// Text boxes that a call asks for; 0 where it leaves that open.
  static unsigned boxCount(UserFunctionInterface* call);

  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void readDialog(UserDataType type, bool accepted) override; ///< one empty text on cancel
};
