#pragma once

#include "Core/Analog/FrequencyResponse.h"
#include "HostWidgets/Axis.h"

#include <QCoreApplication>

#include <optional>

class PicturePane;
class Plotter;
class QWidget;

/// Magnitude and phase of a Laplace expression over frequency, in the pane of a form.
class LaplacePicture {
  Q_DECLARE_TR_FUNCTIONS(LaplacePicture)

public:
  explicit LaplacePicture(PicturePane* pane);

  /// Why there is nothing to see, or nothing. A number that is none is one that only the simulator
  /// knows.
  QString draw(const char* text, std::optional<double> scale, std::optional<double> delay);

  void setTabOrderBehind(QWidget* widget);

private:
  static QString tooLong();
  QString fault(const char* text, const LaplaceExpression& expression) const;
  void showRange(const FrequencyResponse& response, const Decades& decades);

  Plotter* m_magnitude;
  Plotter* m_phase;
  Decades m_decades; ///< on show, until something happens elsewhere
  Axis m_frequency, m_decibels, m_degrees;
};

/// How many characters stand in front of a place in a text, as an edit has them: each line end is
/// one.
int charactersBefore(const char* text, std::size_t position);
