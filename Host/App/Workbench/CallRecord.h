#pragma once

#include "Call/ScriptVector.h"

#include <QDateTime>
#include <QString>

/// One call of a script function, as the history keeps it.
struct CallRecord {
  QDateTime time;
  QString function;
  QString arguments; ///< as a JSON array
  QString result;    ///< as script text: "[1000, 4700]", "[]"
  QString error;     ///< empty where the call succeeded
  QString answers;   ///< script lines that do what the user did in the call's dialogs

  QString callText() const; ///< "NAME(ARGUMENTS)"
  /// A script that makes the call again, answers its dialogs and checks the result.
  QString toScript() const;
};

/// A text as a script would write it, in quotes.
QString scriptText(const QString& text);
/// A number that reads back to the same value, without a suffix.
QString scriptNumber(double value);
/// The elements of a result as a script would write them.
QString scriptArray(const CallResult& result);
