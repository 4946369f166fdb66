#pragma once

#include "Core/Digital/LogicInterfaces.h"
#include "Digital/ui_LogicAnalogInterfaceSheet.h"
#include "HostSupportQt/KV_FunctionDef.h"

#include <QWidget>

/// The page of a digital device's dialog that says how its pins meet analog signals.
///
/// It binds as one widget of several result elements, those of `AnalogInterface`.
class LogicAnalogInterfaceSheet : public QWidget, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES

public:
  /// What is shown; what is not is loaded and stored all the same.
  enum class Sides { Both, Inputs, Outputs };

  /// Stands in where a dialog has no such page: shows, loads and stores nothing.
  LogicAnalogInterfaceSheet();
  /// Argument `argument` of the script's call has the five values (reals), the next one the table
  /// of interfaces (strings, a line each).
  LogicAnalogInterfaceSheet(QWidget* parent, int argument, Sides sides);

  int vectorSize() override { return AnalogInterface::valueCount; }
  bool hasReadWidget() override { return true; }
  bool initialiseWidget(UserFunctionInterface* call) override; ///< false for one without a page
  bool readWidget(UserReturnData* result, const UserFunctionInterface* call) override;

  QWidget* lastField() const { return form.outputResistanceEdit; } ///< in the tab order
  QSize minimumSizeHint() const override;

private:
  void explainResistance();
  void showTechnologies(const AnalogInterface& values);
  void showTechnology(int index);
  void technologyPicked(int index);

  bool hasForm = false;
  Ui::LogicAnalogInterfaceSheet form;
  LogicInterfaces interfaces;
};
