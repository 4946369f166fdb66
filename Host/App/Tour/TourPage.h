#pragma once

#include "Samples.h"

#include <QStringList>
#include <QVector>

/// What came of one sample.
struct TourEntry {
  Sample sample;
  QString result;       ///< as JSON
  QStringList faults;   ///< empty where all went well
  QStringList pictures; ///< base names: "NAME", "NAME-2", …; each palette and scale adds its mark
};

/// Marks at the end of a picture's file name.
QString pictureFile(const QString& baseName, bool dark, int scale);

/// A page of its own style that shows all entries with those pictures that are in the folder, those
/// of earlier tours in another palette or scale included.
QString tourPage(const QVector<TourEntry>& entries, const QString& folder);
