#include "Services/Digitiser/PictureFile.h"

#include "HostSupport/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QLocale>
#include <QPainter>

namespace {

QString tr(const char* text) {
  return QCoreApplication::translate("PictureFile", text);
}

QString sizeText(quint64 bytes) {
  return QLocale::c().formattedDataSize(qint64(bytes), 0, QLocale::DataSizeSIFormat);
}

/// Opaque 32-bit, as everything behind expects it.
QImage opaque(QImage picture) {
  if (!picture.hasAlphaChannel())
    return std::move(picture).convertToFormat(QImage::Format_RGB32);
  QImage paper(picture.size(), QImage::Format_RGB32);
  if (paper.isNull())
    return paper;
  paper.fill(Qt::white);
  QPainter(&paper).drawImage(0, 0, picture);
  return paper;
}

} // namespace

PictureFile readPicture(const QString& path) {
  const QString shown = QDir::toNativeSeparators(path);
  const QFileInfo file(path);
  if (!file.exists())
    return {{}, tr("%1 does not exist.").arg(shown)};
  if (!file.isFile()) // a pipe would be waited for without end
    return {{}, tr("%1 is not a file.").arg(shown)};
  if (file.size() == 0)
    return {{}, tr("%1 is empty.").arg(shown)};

  if (quint64(file.size()) > largestPlainFile) // a drawing is read as a whole
    return {{},
            tr("%1 has %2. The digitiser takes at most %3.")
                .arg(shown, sizeText(file.size()), sizeText(largestPlainFile))};

  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (!reader.canRead() || !size.isValid() || size.isEmpty())
    return {{}, tr("%1 is not a picture that can be read.").arg(shown)};
  if (qint64(size.width()) * size.height() > mostPixels)
    return {{},
            tr("%1 has %2 × %3 pixels. The digitiser takes at most %4 million; scan it at a lower "
               "resolution, or cut the graph out.")
                .arg(shown)
                .arg(size.width())
                .arg(size.height())
                .arg(mostPixels / 1'000'000)};
  QImage decoded = reader.read();
  decoded.setDevicePixelRatio(1); // "@2x" in a file's name says nothing about a graph
  const QImage picture = opaque(std::move(decoded));
  if (picture.isNull())
    return {{}, tr("%1 is damaged: its picture cannot be decoded.").arg(shown)};
  return {picture, {}};
}
