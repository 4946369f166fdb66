#pragma once

#include "Analog/ui_DefineArbSourceDialog.h"
#include "Frame/KelvarinDialog.h"

/// An arbitrary source: an expression for its output, its inputs, parameters and kind.
class DefineArbSourceDialog : public KelvarinDialog {
  Q_OBJECT

public:
  DefineArbSourceDialog();

  int helpContextId() override;
  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;
  void okClicked() override;

private:
  enum class Verdict { Accept, Edit, Reject };

  void showLayout(bool isAdvanced);
  QByteArray expressionBytes() const; ///< as passed where the user has not modified it
  // What becomes of the dialog; each asks the user where the expression is not as it should be.
  Verdict check(const QString& expression);
  Verdict refuseSyntax(const QString& expression);
  Verdict warnOfLog(const QString& expression);
  Verdict refuseM(const QString& expression);

  Ui::DefineArbSourceDialog form;
};
