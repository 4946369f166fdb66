#pragma once

#include "Frame/KelvarinDialog.h"
#include "Generic/ui_BaseInputDialog.h"

#include <optional>

/// One line of text.
class InputDialog : public KelvarinDialog {
  Q_OBJECT

public:
  explicit InputDialog(const char* objectName, QWidget* parent = nullptr);

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

  void load(const QString& text, const QString& caption);
  QString text() const { return form.edit->text(); }

private:
  Ui::BaseInputDialog form;
};

/// The two kinds differ in the name under which their geometry is remembered.
class InputGraph : public InputDialog {
  Q_OBJECT

public:
  InputGraph() : InputDialog("InputGraph") {}
};

class InputSchem : public InputDialog {
  Q_OBJECT

public:
  InputSchem() : InputDialog("InputSchem") {}
};

/// Asks for a line of text over another dialog. Nothing on cancel.
std::optional<QString> askForText(QWidget* over, const QString& caption, const QString& initial);
