#pragma once

#include "Pieces/FieldStores.h"

#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

class QAbstractButton;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QPlainTextEdit;
class QWidget;
class RadioGroup;
class Spinner;

/// One row of a sheet's table: a widget, and the place where its value is kept. A widget that the
/// form does not have is null; its row is passed over.
class Field {
public:
  /// A button of several that share a place, and the word that stands there while it is checked.
  struct Choice {
    QAbstractButton* button;
    const char* word;
  };

  Field(QAbstractButton* box, Place place); ///< a flag
  Field(QGroupBox* box, Place place);       ///< a flag: a group that can be ticked
  Field(QLineEdit* edit, Place place);
  Field(QPlainTextEdit* edit, Place place);
  Field(Spinner* edit, Place place);     ///< a number; texts keep what was typed, expressions too
  Field(QComboBox* combo, Place place);  ///< the text of its row
  Field(RadioGroup* group, Place place); ///< what its mapping gives the checked button
  Field(std::initializer_list<Choice> choices, Place place);
  static Field row(QComboBox* combo, Place place); ///< the index of its row
  /// The index of its checked radio button, in the order in which they were made; -1 for none.
  static Field buttonOf(QWidget* parent, Place place);

  /// What an empty text stands for: `Field(form.cbDefault, Place).forEmpty("true")`. Without, it
  /// empties an edit, takes a tick away, and leaves any other field as its form has it.
  Field& forEmpty(const char* text);

  const Place& place() const { return m_place; }
  void load(const FieldStore& store) const;
  void store(FieldStore* store) const;

private:
  using Show = std::function<void(const FieldValue&)>;
  using Read = std::function<std::optional<FieldValue>()>; ///< nothing: what is stored stays
  Field(const QWidget* widget, Place place, FieldValue::Kind kind, Show show, Read read);

  bool m_isThere;
  Place m_place;
  FieldValue::Kind m_kind;
  Show m_show;
  Read m_read;
  const char* m_forEmpty = nullptr;
};

/// The table of a sheet: what it holds, and where that is kept.
///
///     fields = {{form.curveNameEdit, Probe::CurveLabel},
///               {form.cbDisabled, Probe::IsDisabled},
///               {{{form.rbPerf, "perf"}, {form.rbHisto, "histo"}}, Probe::MultiStepMode}};
///     fields.load(Elements(texts));
class Fields {
public:
  Fields() = default;
  Fields(std::initializer_list<Field> fields) : m_fields(fields) {}

  void load(const FieldStore& store) const;
  void store(FieldStore* store) const;

  std::vector<Field>::const_iterator begin() const { return m_fields.begin(); }
  std::vector<Field>::const_iterator end() const { return m_fields.end(); }

private:
  std::vector<Field> m_fields;
};
