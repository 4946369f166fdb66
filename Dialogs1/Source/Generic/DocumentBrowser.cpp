#include "Generic/DocumentBrowser.h"

#include "Core/Generic/RichText.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QTextCodec>
#include <QTextDocument>

namespace {

constexpr int shownColumns = 72;
constexpr int shownLines = 22;
constexpr qint64 largestFile = 32 << 20;         // longer ones take seconds to lay out
constexpr qint64 largestPicture = 64'000'000;    // pixels
constexpr std::size_t longestWordToBreak = 5000; // bytes

/// A file's name may look like a URL; one that stands for a file is that file.
QUrl documentUrl(const QString& name) {
  const QUrl url(name);
  const bool hasDrive = url.scheme().size() == 1;
  if (!url.isRelative() && !hasDrive)
    return url;
  const auto fileUrl = [](const QString& path) {
    return QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
  };
  const int hash = name.lastIndexOf(QLatin1Char('#'));
  if (hash < 0 || QFileInfo::exists(name))
    return fileUrl(name);
  QUrl withPlace = fileUrl(name.left(hash));
  withPlace.setFragment(name.mid(hash + 1));
  return withPlace;
}

QString localPath(const QUrl& url) {
  return url.isRelative() ? url.path() : url.toLocalFile();
}

/// False for all but plain files: a device or a pipe might never come to its end.
bool readFile(const QString& path, QByteArray* bytes) {
  const QFileInfo info(path);
  QFile file(path);
  if (!info.isFile() || info.size() > largestFile || !file.open(QIODevice::ReadOnly))
    return false;
  *bytes = file.read(info.size());
  return file.error() == QFileDevice::NoError;
}

QString textOf(const QByteArray& bytes) {
  const QTextCodec* codec = QTextCodec::codecForHtml(bytes, QTextCodec::codecForName("UTF-8"));
  return codec->toUnicode(bytes).remove(QChar::Null);
}

bool isTooDeep(const QString& text) {
  return nestsTooDeep(text.toUtf8().constData());
}

bool isWebPage(const QUrl& url) {
  return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

QByteArray dataOf(const QUrl& dataUrl) {
  const QByteArray data = dataUrl.path(QUrl::FullyEncoded).toLatin1();
  const int comma = data.indexOf(',');
  const QByteArray payload = QByteArray::fromPercentEncoding(data.mid(comma + 1));
  return data.left(comma).endsWith(";base64") ? QByteArray::fromBase64(payload) : payload;
}

QImage pictureOf(const QByteArray& bytes) {
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer);
  const QSize size = reader.size(); // before the memory for it is taken
  return qint64(size.width()) * size.height() <= largestPicture ? reader.read() : QImage();
}

} // namespace

DocumentBrowser::DocumentBrowser(QWidget* parent) : QTextBrowser(parent) {
  connect(this, &QTextBrowser::sourceChanged, this, &DocumentBrowser::finishDocument);
}

QSize DocumentBrowser::sizeHint() const {
  return {shownColumns * fontMetrics().averageCharWidth(),
          shownLines * fontMetrics().lineSpacing()};
}

void DocumentBrowser::showText(const QString& text) {
  if (isTooDeep(text))
    setPlainText(text);
  else
    setText(text);
  wrapLongWords();
}

void DocumentBrowser::showDocument(const QString& name) {
  if (!name.isEmpty())
    setSource(documentUrl(name));
}

QVariant DocumentBrowser::loadResource(int type, const QUrl& name) {
  const QUrl url = source().resolved(name);
  if (type == QTextDocument::HtmlResource || type == QTextDocument::MarkdownResource)
    return documentText(type, url);
  QByteArray bytes;
  if (url.scheme() == QLatin1String("data"))
    bytes = dataOf(url);
  else if (url.host() == source().host())
    readFile(localPath(url), &bytes);
  // Never null: the document would then look for the file itself.
  if (type == QTextDocument::ImageResource)
    return pictureOf(bytes);
  return textOf(bytes).append(QLatin1Char('\n'));
}

QString DocumentBrowser::documentText(int type, const QUrl& url) {
  m_plainText.clear();
  const QString path = localPath(url);
  const QString shownName =
      (path.isEmpty() ? url.toDisplayString() : QDir::toNativeSeparators(path)).toHtmlEscaped();
  if (isWebPage(url))
    return tr("<p>This document opens in the browser: <a href=\"%1\">%2</a></p>")
        .arg(QString::fromLatin1(url.toEncoded()).toHtmlEscaped(), shownName);
  QByteArray bytes;
  if (!readFile(path, &bytes))
    return tr("<p>The document %1 cannot be read.</p>").arg(shownName);
  const QString text = textOf(bytes);
  if (text.isEmpty())
    return tr("<p>The document %1 is empty.</p>").arg(shownName);
  const bool isRich = type == QTextDocument::MarkdownResource || Qt::mightBeRichText(text);
  if (isRich && !isTooDeep(text))
    return text;
  m_plainText = text;
  return QStringLiteral(" "); // the base class wants something, and reads it as rich text
}

void DocumentBrowser::finishDocument() {
  if (!m_plainText.isNull())
    setPlainText(m_plainText);
  wrapLongWords();
}

void DocumentBrowser::wrapLongWords() {
  const bool hasLongWord = longestWord(toPlainText().toUtf8().constData()) > longestWordToBreak;
  setWordWrapMode(hasLongWord ? QTextOption::WrapAnywhere
                              : QTextOption::WrapAtWordBoundaryOrAnywhere);
}
