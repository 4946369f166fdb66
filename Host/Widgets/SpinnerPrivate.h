#pragma once

#include "HostWidgets/Spinner.h"

#include <QBasicTimer>
#include <QLineEdit>
#include <QStyle>

class QStyleOptionSpinBox;

class Spinner::Private {
public:
  enum class Kind { Number, Expression, Empty, Bad };
  enum class Span { Single, Coarse }; ///< one step, or ten increments or a decade

  explicit Private(Spinner* spinner);

  // Value and text.
  Kind kindOf(const QString& text, double* number) const;
  double lowest() const;
  double highest() const;
  double taken(double value) const; ///< whole where asked for, and within the limits
  QString format(double value, int digits) const;
  void write(double value);
  void replaceText(const QString& text, bool undoable);
  bool applyLimits(); ///< whether the value moved
  void finish();
  void report();
  void notation();
  void textChanged(const QString& text);
  void showKind();

  // Stepping.
  bool isOwned(bool up) const;
  bool canStep(bool up) const;
  double stepped(double from, bool up, int count, Span span) const;
  void step(bool up, int count, Span span);
  QString stepText(double from, double to) const;
  void writeStep(double from, double to);

  // What assistive technology sees of it.
  static void installAccessibility(); ///< once in a process
  void announceValue() const;         ///< if somebody listens

  // Mouse, keyboard and painting.
  void initStyleOption(QStyleOptionSpinBox* option) const;
  void placeEdit();
  void hover(QStyle::SubControl control);
  QStyle::SubControl arrowAt(const QPoint& position) const;
  void release();
  int repeatInterval() const;
  bool editEvent(QEvent* event);
  bool editKeyPress(QKeyEvent* event);
  void contextMenu(const QPoint& globalPosition);

  Spinner* q;
  QLineEdit* edit;

  Kind kind = Kind::Number;
  double number = 0;   ///< what the text stands for, where it is a number
  double finished = 0; ///< the last number that was reported
  QString reportedText;
  double reportedValue = 0;
  int precision = 6;
  bool writing = false; ///< the text being set is a writing of `number`
  bool ownText = true;  ///< the text is a writing of ours, not one that was given
  bool markedBad = false;

  QStyle::SubControl hovered = QStyle::SC_None;
  QStyle::SubControl pressed = QStyle::SC_None;
  QBasicTimer repeat;
  int repeats = 0;
  int wheelRest = 0; ///< of a wheel that reports less than a notch at a time
};
