#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QWidget>

#include <memory>
#include <optional>

/// A numeric edit with up and down arrows, the heart of all dialogs.
///
/// Holds a double, shown with an engineering suffix or plain, and keeps a text as typed until the
/// value changes by stepping or by program. A text in braces is an expression: it stands as it is,
/// steps and limits leave it alone, and the value is 0. "10 k" and "4k7" are taken as 10k and 4.7k.
/// A text that is neither number nor expression is marked while it stands; then, and while the
/// field is empty, `value()` keeps the last number that was finished, and the tool tip says which.
///
/// The limits hold when the user finishes a change (Return, leaving the field, a step) and at once
/// where a program sets a value or a limit; where `min` is above `max`, `max` counts. `increment`,
/// the limits and the flags may be written directly: they are read when they are needed.
class HOSTWIDGETS_EXPORT Spinner : public QWidget, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(double increment MEMBER increment WRITE setIncrement)
  Q_PROPERTY(double max READ maximum WRITE setMax)
  Q_PROPERTY(double min READ minimum WRITE setMin)
  Q_PROPERTY(bool engMode READ isEngMode WRITE setEngMode)
  Q_PROPERTY(bool step125 READ isStep125 WRITE setStep125)
  Q_PROPERTY(bool wholeNumber READ isWholeNumber WRITE setWholeNumber)
  Q_PROPERTY(bool numbersOnly READ isNumbersOnly WRITE setNumbersOnly)
  Q_PROPERTY(int precision READ precision WRITE setPrecision)
  Q_PROPERTY(double realValue READ value WRITE setValue STORED false)
  Q_PROPERTY(QString stringValue READ stringValue WRITE setText USER true NOTIFY changed)
  Q_PROPERTY(QString text READ text WRITE setText DESIGNABLE false STORED false)
  Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)

public:
  explicit Spinner(QWidget* parent = nullptr, const char* objectName = nullptr);
  ~Spinner() override;

  /// Step of a plain up or down press, and the first magnitude beside zero in a 1-2-5 series.
  double increment = 1.0;
  double max = 1e100;        ///< largest value
  double min = -1e100;       ///< smallest value
  bool engMode = true;       ///< show an engineering suffix
  bool step125 = true;       ///< step through 1, 2, 5 in each decade
  bool wholeNumber = false;  ///< a number is rounded to a whole one when it is taken
  bool selectOnEntry = true; ///< Tab into the field selects all of it
  /// What the field gives is a number, so that an expression, though it may stand, is marked as a
  /// text that does not count.
  bool numbersOnly = false;

  /// As set, not as rounded for display; 0 for an expression.
  double value() const;
  /// `value()` brought into the limits; nothing for an expression, whose value only the simulator
  /// knows.
  std::optional<double> number() const;
  QString text() const; ///< as typed
  /// The text as others read it: what was given or typed, but a typed "10 k" or "4k7" as "10k" or
  /// "4.7k"; a number that nobody typed to its last digit, however many are shown.
  QString stringValue() const;
  bool isExpression() const;
  bool isAcceptable() const; ///< whether the text is a number, or an expression that counts
  int precision() const;
  QString placeholderText() const;
  double maximum() const { return max; }
  double minimum() const { return min; }
  bool isEngMode() const { return engMode; }
  bool isStep125() const { return step125; }
  bool isWholeNumber() const { return wholeNumber; }
  bool isNumbersOnly() const { return numbersOnly; }

  void setMin(double value);       ///< moves the value where it is below
  void setMax(double value);       ///< moves the value where it is above
  void setIncrement(double value); ///< not finite or not above 0: no step
  void setEngMode(bool on);
  void setStep125(bool on);
  void setWholeNumber(bool on);
  void setNumbersOnly(bool on);
  /// Significant digits shown, 1 to 17. Digits left of the point are never rounded, a whole number
  /// is shown in full, and a step shows as many as it needs to be seen.
  void setPrecision(int digits);
  void setPlaceholderText(const QString& text);
  void checkMaxMin(); ///< brings a number into the limits; an expression stands
  void selectAll();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

public slots:
  /// Within the limits; NaN is ignored. A text that reads as exactly this number stands as typed.
  void setValue(double value);
  void setText(const QString& text); ///< as given, also outside the limits
  void pressUp();
  void pressDown();

signals:
  /// The user has finished a change, or a program has made one. Not raised when nothing changed.
  void changed(const QString& text);
  void textChanged(const QString& text); ///< every keystroke, and every text set by program
  /// The value is about to step up. An owner that takes over the stepping changes `*value`, which
  /// comes in as the present one; where it is left unchanged by a connected owner, so is the value.
  /// A step of ten increments or of a decade asks the owner once.
  void incrementing(double* value);
  void decrementing(double* value);

protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  class Private;
  std::unique_ptr<Private> d;
};
