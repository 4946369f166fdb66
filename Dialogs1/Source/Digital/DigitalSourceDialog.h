#pragma once

#include "Core/Digital/PulseOperations.h"
#include "Digital/DigitalDeviceDialog.h"
#include "Digital/StateStrips.h"
#include "Digital/ui_DigitalSourceDialog.h"
#include "Pieces/DummyWidget.h"

/// A digital source: named outputs, a timetable of their states as text, tools that write it, and
/// its plot. The text is the truth; the plot shows it as it was last read.
class DigitalSourceDialog : public DigitalDeviceDialog<Ui::DigitalSourceDialog> {
  Q_OBJECT

public:
  DigitalSourceDialog();

  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void readDialog(UserDataType type, bool accepted) override;

protected:
  /// Return in a field of a tool is the tool's button.
  void keyPressEvent(QKeyEvent* event) override;

private:
  using Tool = void (DigitalSourceDialog::*)();
  struct ToolFields {
    QAbstractButton* button;
    std::vector<Spinner*> fields;
  };

  void connectTools();
  /// Draws what the definition says, and remembers it where it is a step for Undo.
  void updatePlot();
  void drawPlot(const Timetable& table); ///< a placeholder for one without outputs or rows
  void alignColumns();                   ///< of the definition, behind its longest time

  void addButton_clicked();
  void removeButton_clicked();
  void cloneButton_clicked();
  void renameButton_clicked();
  void moveOutput(int step);
  void singlePulseAddButton_clicked();
  void repetitiveAddButton_clicked();
  void clear(const QComboBox* state);
  void timeShiftApplyButton_clicked();
  void updateButton_clicked();
  void undoButton_clicked();

  void appendName(); ///< of a new output, which is selected
  /// Adds the pulses to the output that is selected.
  void addPulses(PulseTrain train);
  /// Reads the definition; says so, and is false, where it cannot be read.
  bool readDefinition(Timetable* table);
  void writeDefinition(const Timetable& table);
  void showNames(const QStringList& texts);
  void selectOutput(int output); ///< the nearest that there is
  /// Whether the text has been edited since it was last read, to another table or to none.
  bool isTyped();
  /// Takes over a table that a tool has made, and remembers it.
  void finish(const Timetable& table);
  bool refuses(const Refusal& refusal);
  /// Refuses where one of the fields that a tool reads holds no number, and goes there.
  bool refusesFields(const QAbstractButton* button, const char* title);
  bool refusesName(const char* title, const char* text);
  QStringList names() const;
  int selectedOutput() const; ///< -1 for none

  DummyWidget namesResult;
  DummyWidget definitionResult;
  std::vector<ToolFields> toolFields;
  StateStrips strips;
  TimetableHistory history;
};
