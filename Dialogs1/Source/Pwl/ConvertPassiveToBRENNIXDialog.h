#pragma once

#include "Core/Pwl/ConversionMemory.h"
#include "Frame/KelvarinDialog.h"
#include "Pwl/HostCurves.h"
#include "Pwl/ui_ConvertPassiveToBRENNIXDialog.h"

/// Capacitance over voltage into charge over voltage, inductance over current into flux linkage
/// over current, as a polyline of a few segments; and back, as a curve of steps.
class ConvertPassiveToBRENNIXDialog : public KelvarinDialog {
  Q_OBJECT

public:
  /// `call` is the block through which host functions are reached.
  ConvertPassiveToBRENNIXDialog(QWidget* parent, const char* objectName,
                                UserFunctionInterface* call, EnergyStorage kind,
                                const ConversionMemory& memory);

  int helpContextId() override { return helpContextNumber; }
  void okClicked() override { formAccepted(); }
  void cancelClicked() override { formRejected(); }

public slots:
  virtual void formAccepted();
  virtual void formRejected() { reject(); }
  void helpClicked() override;
  virtual void plot_waveforms();
  virtual void num_segs_changed();
  virtual void convert();
  virtual void revert();
  virtual void DigitizeData();
  virtual void insertRows() { form.inputTable->insertRows(); }
  virtual void deleteRows() { form.inputTable->deleteRows(); }
  virtual void nextCell() { form.inputTable->nextCell(); }
  virtual void pasteButton_clicked();
  virtual void output_limit_changed();
  virtual void resize_columns(int, int) {}

public:
  // What the user has accepted.
  QString inputText;  ///< x and y in turn, with single blanks between
  QString outputText; ///< in the same form
  QString limitFlag;  ///< "1" or "0"
  QString limitValue;

private:
  void prepareForm();
  void connectControls();
  void showKind();
  void loadInput();
  void loadOutput();
  bool isInductor() const { return kind == EnergyStorage::Inductor; }
  bool isConvertible() const;
  HostAnswer<PwlPoints> resampleInput() const;
  HostAnswer<PwlPoints> integrate(const PwlPoints& samples) const;
  HostAnswer<PwlPoints> fitCurve(const PwlPoints& integral) const;
  bool recompute();
  bool refuse(const QString& fault);
  void setConverted();
  void sayWhatIsStale();

  Ui::ConvertPassiveToBRENNIXDialog form;
  HostCurves host;
  struct {
    PwlPoints input;
    PwlPoints output;
  } converted; ///< what belongs together
  int helpContextNumber = -1;
  double numSegments = 2;
  EnergyStorage kind;
};
