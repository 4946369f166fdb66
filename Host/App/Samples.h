#pragma once

#include <QString>
#include <QVector>

#include <optional>

/// A realistic call of one script function, as it comes with the host.
///
/// A sample is a script whose leading comment says what it is for, with a line "Family: …" for the
/// group of functions that it belongs to, and whose last expression is the call.
struct Sample {
  QString name;            ///< of the function, and of the file without its extension
  QString family;          ///< empty where the comment names none
  bool opensDialog = true; ///< false where the comment says "Opens: no dialog"
  QString typed;           ///< what has to be typed before OK, by a line "Types: …"
  QString purpose;         ///< the rest of the leading comment, as one paragraph
  QString text;            ///< the whole script
  QString file;
};

QString samplesDir();
QVector<Sample> readSamples(); ///< sorted by name
/// Nothing where there is no such sample or it cannot be read.
std::optional<Sample> readSample(const QString& name);
