#pragma once

#include "CommandLine.h"
#include "Palettes.h"
#include "Tour/TourPage.h"

#include <QStringList>

class DialogDriver;
class FunctionTable;
class QWidget;

/// Opens samples one after the other, takes pictures of their dialogs and accepts these.
class Tour {
public:
  Tour(FunctionTable* table, DialogDriver* driver, const CommandLine& line);

  /// Prints a line per sample and writes the page; the exit status.
  int run();

private:
  TourEntry visit(const Sample& sample);
  void open(PaletteKind palette, TourEntry* entry);
  void takePicture(QWidget* dialog, PaletteKind palette, int number, TourEntry* entry);
  QVector<Sample> chosenSamples(QStringList* missing) const;

  FunctionTable* m_table;
  DialogDriver* m_driver;
  const CommandLine& m_line;
  QString m_folder;
};

/// The command `tour`; the exit status. Leaves with a `ModuleError` where there is no good module.
int runTour(const CommandLine& line);
