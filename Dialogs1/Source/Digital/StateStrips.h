#pragma once

#include "Core/Digital/Timetable.h"
#include "HostWidgets/Axis.h"

#include <QObject>
#include <QStringList>

#include <vector>

class Plotter;
class QGridLayout;
class QLabel;
class QWidget;

/// The plot of a digital source: below one another a strip for each output, its name beside it, all
/// on the same axis of time, which they zoom and scroll together.
class StateStrips : public QObject {
  Q_OBJECT

public:
  /// The strips go into `grid`, names in column 0. Tab comes to the first of them, which has the
  /// keys that zoom and scroll, behind `before`.
  StateStrips(QGridLayout* grid, QWidget* before);
  ~StateStrips() override;

  void clear();
  /// Draws a table with at least one row, in place of what was drawn before; `names` has one for
  /// each output.
  void draw(const Timetable& table, const QStringList& names);
  void rename(int output, const QString& name);

private:
  void addStrip(int output, const QString& name);
  /// Gives all strips what there is to see in this range of times.
  void show(double from, double to);

  QGridLayout* m_grid;
  QWidget* m_before;
  std::vector<QLabel*> m_labels;
  std::vector<Plotter*> m_plotters;
  std::vector<Trace> m_traces;
  QLabel* m_rest = nullptr; ///< says how many outputs have no strip
  double m_end = 0;
  Axis m_time;
  Axis m_labelledTime;
  Axis m_level;
};
