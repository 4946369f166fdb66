#pragma once

#include <QString>
#include <QVector>

#include <string_view>

/// Numbers of the messages; docs/scripting.md lists them for users.
enum class FaultNumber {
  DeckHasNoSource = 1001,
  StartKeyword = 1050,
  SecondStartLine = 1051,
  NoNumber = 1101,
  MissingField = 1102,
  TooManyFields = 1103,
  TimeNotIncreasing = 1104,
  NegativeTime = 1105,
  NoComma = 1106,
  SuperDataPoint = 1107,
  OutOfRange = 1108,
  FileUnreadable = 1216,
  FileEmpty = 1217,
  TooFewPoints = 1219,
};

/// What is wrong with a line of a file, or with the file.
struct Fault {
  FaultNumber number;
  int line = 0; ///< from 1; 0: the whole file
  QString text; ///< one line
  QString file = QString();
};

/// As many as readers of a message file take in.
constexpr int mostFaults = 20;

/// The contents of a message file, UTF-8: empty where there are no faults. Those of lines come
/// first, since readers look for a line number beyond the end of a message that has none; there are
/// `mostFaults` at most, and the ones of whole files are not crowded out.
QByteArray messageFile(QVector<Fault> faults);

/// Text of a user's file as a message may quote it: short, on one line, and without the asterisks
/// that end a message.
QString quotable(std::string_view utf8);
