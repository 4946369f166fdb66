#pragma once

#include "Core/Analog/MagneticCore.h"

#include <vector>

class ComboBox;
class QRadioButton;
class QWidget;
class Spinner;

/// A field that shows a length, or an area, in a unit that can change under it. What nobody has
/// typed over comes back to the last digit.
class LengthField {
public:
  enum Dimension { Length, Area };

  LengthField(Spinner* itsEdit, Dimension itsDimension) : edit(itsEdit), dimension(itsDimension) {}

  // In metres, or square metres; a unit has so many metres.
  void show(double value, double unit);
  double value(double unit) const; ///< an expression counts nothing
  /// Shows the same length in another unit; an expression stands.
  void changeUnit(double from, double to);

private:
  double metres(double number, double unit) const;

  Spinner* edit;
  Dimension dimension;
  double given = 0;
  double shown = 0;   ///< what the field had for it,
  double shownIn = 0; ///< in this unit
};

/// The fields of a core in a form that has them under their usual names: a core of the script's
/// table, or dimensions by hand, in a unit of the user's choice.
class CoreFields {
public:
  /// `itsUnit`, in metres, is kept by the dialog.
  template <class Form> CoreFields(const Form& form, double* itsUnit)
      : coreType(form.rbCoreType), userDims(form.rbUserDims), cores(form.coreSizeCombo),
        materials(form.coreMaterialCombo), millimetres(form.rbMm), centimetres(form.rbCm),
        inches(form.rbInch),
        permeability(form.ueEdit), byHand{form.areaLabel,  form.areaEdit,         form.lengthLabel,
                                          form.lengthEdit, form.ueLabel,          form.ueEdit,
                                          form.textLabel1, form.coreMaterialCombo},
        area(form.areaEdit, LengthField::Area), length(form.lengthEdit, LengthField::Length),
        unit(itsUnit) {}

  static constexpr int manual = -1; ///< stands for dimensions by hand

  /// Shows line `core` of the table, or `own` where it is `manual`. A material without a name
  /// leaves the list of materials as it is.
  void load(const Texts& coreTable, const QStringList& names, int core, const MagneticCore& own);

  bool isManual() const;
  int core() const; ///< line of the table, or `manual`
  QString material() const;
  MagneticCore present() const;

  // What the buttons and the list of cores do.
  void typeChosen();
  void coreChosen();
  void unitChosen();

private:
  double chosenUnit() const;
  void applyLine(int line);
  void show(const MagneticCore& core);

  QRadioButton* coreType;
  QRadioButton* userDims;
  ComboBox* cores;
  ComboBox* materials;
  QRadioButton* millimetres;
  QRadioButton* centimetres;
  QRadioButton* inches;
  Spinner* permeability;
  std::vector<QWidget*> byHand; ///< off for a core of the table
  LengthField area;
  LengthField length;
  double* unit;
  Texts table;
  QStringList coreNames;
  QStringList materialNames;
};
