#pragma once

#include "Analog/CoreFields.h"
#include "Analog/DefineIdealTxDialog.h"

/// A transformer, or an inductor, on a core that saturates.
class DefineSaturableTxDialog : public DefineIdealTxDialog {
  Q_OBJECT

public:
  DefineSaturableTxDialog();

  int helpContextId() override;
  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

  double inductancePerTurnSquared() override;
  bool firstInductanceEditable() override;

protected slots:
  void rbCoreType_clicked() override;
  void coreSizeCombo_activated(const QString&) override;
  void rbMm_clicked() override;
  void coreMaterialCombo_activated(const QString&) override;
  void numTurnsChanged() override;

private:
  void showInductance();
  void showSaturationCurrent();

  double unit = 1; ///< metres a unit of length
  CoreFields core;
  QStringList materialNames;
};
