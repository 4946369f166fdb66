#pragma once

#include <QString>
#include <QVector>

struct TourEntry;

/// Marks at the end of a picture's file name.
QString pictureFile(const QString& baseName, bool dark, int scale);

/// A page of its own style that shows all entries with those pictures that are in the folder, those
/// of earlier tours in another palette or scale included.
QString tourPage(const QVector<TourEntry>& entries, const QString& folder);
