#pragma once

#include "Core/Pwl/PwlPoints.h"

#include <string_view>

/// What a line of a points file is. An empty one is a data line without fields.
enum class PointsLineKind { Data, Comment, StartData };

/// A line of a points file as the two cells of its row.
struct PointsLine {
  PointsLineKind kind = PointsLineKind::Data;
  QString first;  ///< the time, or the whole line of a comment or a start data line
  QString second; ///< all behind the time: a value, or a reference to a further file
};

// Lines are UTF-8.
QString textOf(std::string_view line);
PointsLine readPointsLine(std::string_view line);
/// The two fields of a line, whatever its kind.
PwlPoint fieldsOfPointsLine(std::string_view line);
PointsLineKind kindOfPointsLine(std::string_view line);
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
