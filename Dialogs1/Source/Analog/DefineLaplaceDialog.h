#pragma once

#include "Analog/LaplacePicture.h"
#include "Analog/ui_DefineLaplaceDialog.h"
#include "Frame/KelvarinDialog.h"

/// A device defined by an expression in s: a transfer function, an impedance or an admittance. Two
/// checkers outside of this module settle which implementations it can have.
class DefineLaplaceDialog : public KelvarinDialog {
  Q_OBJECT

public:
  DefineLaplaceDialog();
  ~DefineLaplaceDialog() override;

  int helpContextId() override;
  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;
  void okClicked() override;

protected:
  void showEvent(QShowEvent* event) override;

private:
  enum class Verdict { Accept, Reject, Stay };

  void rbTransferFunction_clicked();
  void rbTryAllMethodsClicked();
  void rbLumpedNetworkClicked();

  void pageTurned();
  void limitSizes();
  void connectFields();
  void loadOptions();
  void chooseLayout();
  QString drawPicture();
  YString expression() const;
  bool hasDelay() const;
  int codeOf(const YString& text);
  bool canBeLumped(const YString& text) const;
  Verdict check();
  Verdict requireConvolution();
  Verdict refuse(const YString& text, int code);
  void returnToExpression();

  Ui::DefineLaplaceDialog form;
  std::unique_ptr<LaplacePicture> picture;
  YString checkerPath;
  int (*checker)(const char*) = nullptr; ///< `laplace_CheckLaplaceExpression`
  bool allowconvolution = false;
  bool simplemode = false;
};
