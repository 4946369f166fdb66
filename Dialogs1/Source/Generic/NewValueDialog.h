#pragma once

#include "Generic/RowBox.h"

struct FieldDefinition;

/// A small typed form: numbers, flags, texts and choices as a script defines them.
class NewValueDialog : public RowBox {
  Q_OBJECT

public:
  NewValueDialog();

  int helpContextId() override { return helpNumber; }
  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;

private:
  QWidget* makeField(int index, const FieldDefinition& definition, const char* initial);
  void nameAfter(const Texts& definitions);

  int helpNumber = -1;
};
