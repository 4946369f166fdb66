#pragma once

#include <QImage>

/// A picture for the digitiser, or one sentence that says why there is none.
struct PictureFile {
  QImage picture; ///< opaque: what was transparent is white; turned as its camera noted
  QString fault;  ///< empty where there is a picture
};

constexpr qint64 mostPixels = 40'000'000; ///< 160 MB in memory; a page at 600 dpi has 35 million

/// Reads a picture file. The size is asked for before anything is decoded, so that memory stays
/// bounded whatever the file says of itself.
PictureFile readPicture(const QString& path);
