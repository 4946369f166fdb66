#include "HostSupportQt/Graphics.h"

#include "HostSupport/Colours.h"
#include "HostSupport/Files.h"
#include "HostSupport/Options.h"
#include "HostSupportQt/GuiThread.h"
#include "HostSupportQt/Text.h"

#include <QApplication>
#include <QColor>
#include <QDesktopServices>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QImageReader>
#include <QLabel>
#include <QMetaObject>
#include <QPixmap>
#include <QScreen>
#include <QUrl>

#include <cmath>

namespace {

qreal screenDpi() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? screen->logicalDotsPerInch() : 96.0;
}

QString findImage(const QString& name) {
  if (name.startsWith(QLatin1Char(':')) || sp_ExistFile(Tocs(name)))
    return name;
  return toQs(sp_GetImagePath(toYs(name)));
}

} // namespace

/// A drawing is drawn at the size that it will have, where a picture of points is enlarged.
static bool loadDrawing(QImageReader* reader, QPixmap* pixmap, int dpi) {
  // Asked for first: once it knows the size, the reader takes the format from the file's name.
  const bool isDrawing = reader->format() == "svg";
  const QSize size = reader->size();
  if (!isDrawing || !size.isValid() || dpi <= 0)
    return false;
  const qreal sharpness = qApp->devicePixelRatio();
  reader->setScaledSize(size * (screenDpi() / dpi * sharpness));
  *pixmap = QPixmap::fromImageReader(reader);
  pixmap->setDevicePixelRatio(sharpness);
  return !pixmap->isNull();
}

bool sp_GetPixmap(const QString& name, QPixmap* pixmap, int dpi) {
  if (!pixmap || !sp_IsGuiThread("sp_GetPixmap"))
    return false;
  const QString file = findImage(name);
  QImageReader reader(file);
  if (loadDrawing(&reader, pixmap, dpi))
    return true;
  if (!pixmap->load(file))
    return false;
  sp_ScalePixmap(pixmap, dpi);
  return true;
}

void sp_ScalePixmap(QPixmap* pixmap, int dpi) {
  if (!pixmap || !sp_IsGuiThread("sp_ScalePixmap") || pixmap->isNull() || dpi <= 0)
    return;
  const qreal factor = screenDpi() / dpi;
  // A picture at a few percent of its size more or less is only blurred by scaling.
  if (std::abs(factor - 1) < 0.06)
    return;
  *pixmap = pixmap->scaled(pixmap->size() * factor, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

YString sp_GetImagePath(const YString& name) {
  return sp_GetExeDir().concat("/../share/kelvarin-dialogs/images/").concat(name);
}

static YString fontSpec(const QFont& font) {
  const QFontInfo info(font); // has a point size also where the font is measured in pixels
  return toYs(QStringLiteral("%1;%2;%3;%4;%5;0;%6")
                  .arg(info.pointSize())
                  .arg(int(font.bold()))
                  .arg(int(font.italic()))
                  .arg(int(font.underline()))
                  .arg(int(font.strikeOut()))
                  .arg(font.family()));
}

/// What is stored under a key, if it is a font: an option of a font's name may hold anything.
static YString storedFontSpec(const YString& key) {
  const YString stored = sp_GetStringOption(key);
  const char first = stored[0];
  return first == '-' || (first >= '0' && first <= '9') ? stored : YString();
}

YString sp_GetFontSpec(const YString& name) {
  for (const YString& key : {name, YString(YString("Font").concat(name))})
    if (const YString stored = storedFontSpec(key); !stored.isEmpty())
      return stored;
  if (!sp_IsGuiThread("sp_GetFontSpec"))
    return YString();
  QFont font;
  if (sp_CompareNoCase(name, "Standard") == 0)
    font = QApplication::font();
  else if (sp_CompareNoCase(name, "Fixed") == 0)
    font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  else if (sp_CompareNoCase(name, "Title") == 0)
    font = QFontDatabase::systemFont(QFontDatabase::TitleFont);
  else
    return YString();
  return fontSpec(font);
}

void sp_CvtToHyperlink(QLabel* label, QObject* receiver) {
  if (!label || !sp_IsGuiThread("sp_CvtToHyperlink"))
    return;
  const QString address = label->text();
  label->setTextFormat(Qt::RichText);
  label->setText(QStringLiteral("<a href=\"%1\">%1</a>").arg(address.toHtmlEscaped()));
  label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  label->setFocusPolicy(Qt::StrongFocus);
  QObject::connect(label, &QLabel::linkActivated, receiver ? receiver : label,
                   [receiver](const QString& link) {
                     if (receiver)
                       QMetaObject::invokeMethod(receiver, "linkActivated", Q_ARG(QString, link));
                     else
                       QDesktopServices::openUrl(QUrl(link));
                   });
}

int sp_ConvertHTMLcolourToRGB(const YString& colour) {
  int parsed = 0;
  sp_ReadColour(colour, &parsed);
  return parsed;
}

YString sp_ConvertRGBcolourToHTML(int colour) {
  return toYs(QColor(colour & 0xff, colour >> 8 & 0xff, colour >> 16 & 0xff).name());
}
