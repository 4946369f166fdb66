#pragma once

#include "Analog/ui_BaseDefineIdealTxDialog.h"
#include "Core/Analog/Windings.h"
#include "Frame/KelvarinDialog.h"

/// An ideal transformer: inductance, coupling factors and a table of windings; or a transformer for
/// DC, which has a turns ratio only.
class DefineIdealTxDialog : public KelvarinDialog {
  Q_OBJECT

public:
  explicit DefineIdealTxDialog(const char* objectName = "BaseDefineIdealTxDialog");

  int helpContextId() override;
  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

  virtual double inductancePerTurnSquared(); ///< what a winding of one turn has
  virtual bool firstInductanceEditable();    ///< whether the user gives that of the first primary

protected slots:
  virtual void numPrimariesEdit_changed(const QString&); ///< primaries and secondaries
  virtual void rbCoreType_clicked();
  virtual void coreSizeCombo_activated(const QString&);
  virtual void rbMm_clicked();
  virtual void coreMaterialCombo_activated(const QString&);
  virtual void numTurnsChanged(); ///< with every key, and when a field is left

protected:
  void showEvent(QShowEvent* event) override;

  void showCounts(double primaries, double secondaries);
  void buildTable();
  void readTable();

  Ui::BaseDefineIdealTxDialog form;
  bool nonInductive = false;
  double primaryInductance = 0; ///< of the first primary
  bool loading = false;
  bool tableReady = false;
  Windings windings;

private:
  void loadTurns();
  void showKind(const QString& kind);
  void takeCounts();
};
