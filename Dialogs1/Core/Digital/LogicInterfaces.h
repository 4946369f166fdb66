#pragma once

#include "Core/Frame/Texts.h"

#include <QStringList>
#include <QVector>

#include <vector>

/// How digital pins meet analog signals: a script's table of interfaces, by logic family.
///
/// Each line of the table is one interface, its fields separated by semicolons: technology,
/// description, a field that is not used, model type, supply voltage, and two conductances that
/// leave the output's resistance to the user where both are empty. Missing fields are empty.
class LogicInterfaces {
public:
  /// Interfaces are named by their lines, counted from 0; -1 stands for none.
  struct Technology {
    QString name; ///< in the letter case of its first line
    QVector<int> inputs;
    QVector<int> outputs;
    int defaultInput = -1;
    int defaultOutput = -1;
    double supply = 5; ///< volts
  };

  LogicInterfaces() = default;
  /// Lines `input` and `output` are their technologies' defaults; elsewhere the first
  /// "Standard input" and "Standard output" are, in any letter case.
  LogicInterfaces(const Texts& lines, int input, int output);

  /// In the order of their first lines; names that differ in case only are one.
  const std::vector<Technology>& technologies() const { return m_technologies; }
  /// One that has nothing where there is no such index.
  Technology technology(int index) const;
  /// Index of a line's technology; -1 where there is no such line.
  int technologyOf(int line) const { return m_technologyOfLine.value(line, -1); }
  QString description(int line) const { return m_descriptions.value(line); }
  /// The technologies with an output whose analog resistance the user gives, each once.
  const QStringList& resistiveTechnologies() const { return m_resistiveTechnologies; }

private:
  QStringList m_descriptions;
  QVector<int> m_technologyOfLine;
  std::vector<Technology> m_technologies;
  QStringList m_resistiveTechnologies;
};

/// A device's analog interface, as scripts pass and get it: numbers in the order of `Element`.
struct AnalogInterface {
  enum Element { Input, Output, Supply, Capacitance, Resistance };
  static constexpr int valueCount = Resistance + 1;
  static constexpr int firstInResult = 9; ///< element of what the dialog of a device returns

  int input = -1; ///< line of the table; -1 for none
  int output = -1;
  double supply = 5;          ///< volts
  double capacitance = 5e-12; ///< of an input, in farads
  double resistance = 100;    ///< of an output, in ohms
};

/// The interface in a script's numbers. With fewer than three of them nothing is known of it; a
/// line number is cut to a whole one, and none where it is below 0 or NaN.
AnalogInterface analogInterface(const double* numbers, unsigned count);

/// Names for a sentence of rich text, in bold: "A", "A and B", "A, B and C". Cut where there are
/// more, or longer ones, than anybody reads.
QString boldList(const QStringList& names);
