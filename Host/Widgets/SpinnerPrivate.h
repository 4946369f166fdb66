#pragma once

#include "HostWidgets/Spinner.h"

#include <QBasicTimer>
#include <QLineEdit>
#include <QStyle>

#include <optional>
#include <vector>

class QStyleOptionSpinBox;

class Spinner::Private {
public:
  enum class Kind { Number, Expression, Empty, Bad };
  enum class Author {
    Ours,
    Program,
    User
  };                                  ///< of a text: a writing of the number, or given, or typed
  enum class Span { Single, Coarse }; ///< one step, or ten increments or a decade

  explicit Private(Spinner* spinner);

  // Value and text.
  Kind kindOf(const QString& text, double* number) const;
  double lowest() const;
  double highest() const;
  double taken(double value) const; ///< whole where asked for, and within the limits
  QString format(double value, int digits) const;
  QString exactText() const; ///< that reads as exactly the number
  void write(double value);  ///< for the program: there is nothing to undo
  /// For the user, who can undo it.
  void rewrite(double value, const QString& text, Author by = Author::Ours);
  bool undone(const QString& text); ///< whether `text` is back, or again, by undo or redo
  bool applyLimits(bool undoable);  ///< whether the value moved
  void finish();
  void report();
  void notation();
  void keepNotation(); ///< `engMode` may have been written directly
  void textChanged(const QString& text);
  void showKind();
  QString objection() const; ///< why the text does not count, and what does; empty if it counts

  // Stepping.
  bool isOwned(bool up) const;
  bool canStep(bool up) const;
  double stepped(double from, bool up, int count, Span span) const;
  void step(bool up, int count, Span span);
  QString stepText(double from, double to) const;

  // What assistive technology sees of it.
  void announceValue() const; ///< if somebody listens

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

  /// A text beside the number that it stands for, to more digits than it shows.
  struct Written {
    QString text;
    double number;
    Author author;
  };
  struct Rewriting {
    Written before;
    Written after;
  };

  Spinner* q;
  QLineEdit* edit = nullptr;

  Kind kind = Kind::Number;
  double number = 0;   ///< what the text stands for, where it is a number
  double finished = 0; ///< the last number that was reported
  QString reportedText;
  double reportedValue = 0;
  int precision = 12;
  Author author = Author::Ours;      ///< of the text
  Author setting = Author::User;     ///< who is setting the text
  bool writtenEngMode = true;        ///< notation of the last writing
  std::vector<Rewriting> rewritings; ///< that the edit can undo
  std::optional<Written> untyped =
      Written{QStringLiteral("0"), 0, Author::Ours}; ///< the last number
  QString lastText = QStringLiteral("0");
  bool markedBad = false;

  QStyle::SubControl hovered = QStyle::SC_None;
  QStyle::SubControl pressed = QStyle::SC_None;
  QBasicTimer repeat;
  int repeats = 0;
  int wheelRest = 0; ///< of a wheel that reports less than a notch at a time
};
