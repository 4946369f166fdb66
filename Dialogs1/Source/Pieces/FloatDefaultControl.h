#pragma once

#include <QObject>

class QAbstractButton;
class Spinner;

/// Ties a number to a check button that means "use the default".
///
/// The button is checked while the number is the default, also as it is being typed; checking it
/// brings the default back.
class FloatDefaultControl : public QObject {
public:
  /// The default is what the spinner has now. With `disablesWhenDefault` the spinner is disabled
  /// while the user has chosen the default.
  FloatDefaultControl(Spinner* spinner, QAbstractButton* button, bool disablesWhenDefault);

  void setDefaultValue(double value); ///< shown at once where the button is checked
  /// Brings button and spinner in line with the spinner's value, for an owner that has set it.
  void synchronise();

private:
  void defaultClick();
  void changed();

  Spinner* spinner; ///< not owned
  QAbstractButton* button;
  double defaultValue;
  bool busy = false; ///< the change of the spinner is our own
  bool disableWhenDefault;
};
