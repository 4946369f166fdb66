#pragma once

#include "Core/Pwl/PointRow.h"
#include "Core/Pwl/PwlPoints.h"

#include <string_view>

// Lines are UTF-8.
QString textOf(std::string_view line);
/// A line as the cells of its row: the whole of a comment or start data line, simplified where the
/// controls write it, else the time, and all behind it. An empty line is a blank row.
PointRow readPointsLine(std::string_view line);
/// The two fields of a line, whatever its kind.
PwlPoint fieldsOfPointsLine(std::string_view line);
PointRow::Kind kindOfPointsLine(std::string_view line);
/// Whether the line begins with a number below 0: time that an oscilloscope has counted from its
/// trigger.
bool hasNegativeTime(std::string_view line);

/// The keywords of the start data line.
struct StartData {
  QString repeatCount = QStringLiteral("0"); ///< as written; more than 0 where it is to be written
  bool shiftsToZero = false;
  bool isCsv = false;
};
StartData readStartData(const QString& line); ///< a simplified one
QString writeStartData(int repeatCount, bool shiftsToZero, bool isCsv);

/// What stands between the two fields of a data line.
QString fieldSeparator(bool isCsv);

/// Why a file that begins so is no points file: a clause for the user; empty where it may be one.
QString faultOfEncoding(std::string_view firstLine);
std::string_view withoutByteOrderMark(std::string_view firstLine);
/// A file's name as the user reads it: the options quote one with a blank.
QString unquoted(const QString& fileName);

/// The options of a file-defined source, kept in one text of six fields.
struct FileSourceOptions {
  QString delay;
  bool isPeriodic = false;
  bool isIdleBeforePop = false; ///< active only during a transient run that follows a POP analysis
  QString fileName;
  bool isOnDisk = true; ///< else the file is a part of the schematic
  bool isBackwardCompatible = false;
};
QString writeFileSourceOptions(const FileSourceOptions& options);

/// The path in a reference "file=…" to a further file; any other text as it stands, without blanks
/// at its ends.
QString pathOfReference(const QString& text);
QString referenceTo(const QString& path);
