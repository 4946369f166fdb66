#pragma once

#include "Analog/CoreFields.h"
#include "Analog/ui_TransformerDialog.h"
#include "Frame/KelvarinDialog.h"

#include <optional>

class TransformerDialogData : public KelvarinDialogData {
public:
  double unit = 0.001; ///< metres a unit of length
};

/// A transformer of up to three windings on a core.
class TransformerDialog : public KelvarinDialog {
  Q_OBJECT

public:
  TransformerDialog();

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

private slots:
  void rbCoreType_clicked();
  void coreSizeCombo_activated(const QString&);
  void rbMm_clicked();
  void primaryTurnsEdit_changed(const QString&);

private:
  void adaptTo(int primaries, int secondaries);
  void nameFields();

  Ui::TransformerDialog form;
  std::optional<CoreFields> core;
};
