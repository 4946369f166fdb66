#include "Generic/DocumentBrowser.h"

#include "HostSupport/Files.h"
#include "HostSupportQt/RichText.h"
#include "HostSupportQt/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextCodec>
#include <QTextDocument>

namespace {

constexpr int shownColumns = 72;
constexpr int shownLines = 22;
constexpr std::uint64_t largestFile = 32 << 20; // longer ones take seconds to lay out
constexpr qint64 mostPixels = 64'000'000;       // of all pictures of a document
constexpr int longestWordToBreak = 5000;

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

bool readFile(const QString& path, QByteArray* bytes) {
  std::string read;
  const bool isRead = sp_ReadPlainFile(Tocs(path), &read, nullptr, largestFile);
  *bytes = QByteArray::fromStdString(read);
  return isRead;
}

QByteArray resource(const QUrl& qrc) {
  QFile file(QLatin1Char(':') + qrc.path());
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString textOf(const QByteArray& bytes) {
  const QTextCodec* codec = QTextCodec::codecForHtml(bytes, QTextCodec::codecForName("UTF-8"));
  return codec->toUnicode(bytes).remove(QChar::Null);
}

bool isWebPage(const QUrl& url) {
  return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

/// Whether a file is in the folder of the document that asks for it, or below.
bool liesBeside(const QUrl& file, const QUrl& document) {
  if (!document.isLocalFile() || !file.isLocalFile() || file.host() != document.host())
    return false;
  const QString path = QDir::cleanPath(file.toLocalFile());
  const QString folder = QFileInfo(document.toLocalFile()).path();
  return path.startsWith(folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/')) &&
         !path.contains(QLatin1Char('\\'));
}

QString asWritten(const QString& text, const QString& reason) {
  return reason + QStringLiteral("\n\n") + text;
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
  m_document.clear();
  m_pixelsLeft = mostPixels;
  const QString fault = Qt::mightBeRichText(text) ? layoutFault(text) : QString();
  if (!fault.isEmpty())
    setPlainText(asWritten(text, tr("This text is shown as it is written, since %1.").arg(fault)));
  else
    setText(text);
  wrapLongWords();
}

void DocumentBrowser::showDocument(const QString& name) {
  if (!name.isEmpty())
    setSource(documentUrl(name));
}

QVariant DocumentBrowser::loadResource(int type, const QUrl& name) {
  if (type == QTextDocument::HtmlResource || type == QTextDocument::MarkdownResource) {
    m_document = source().resolved(name); // which the source becomes only later
    return documentText(type, m_document);
  }
  const QUrl url = m_document.resolved(name);
  QByteArray bytes;
  if (url.scheme() == QLatin1String("data"))
    bytes = dataOf(url);
  else if (url.scheme() == QLatin1String("qrc"))
    bytes = resource(url);
  else if (liesBeside(url, m_document))
    readFile(localPath(url), &bytes);
  if (type == QTextDocument::ImageResource)
    return picture(bytes);
  const QString sheet = textOf(bytes);
  return isTooLargeSheet(sheet) ? QString(QLatin1Char('\n')) : sheet + QLatin1Char('\n');
}

QImage DocumentBrowser::picture(const QByteArray& bytes) {
  const QImage picture = pictureOf(bytes, m_pixelsLeft);
  m_pixelsLeft -= qint64(picture.width()) * picture.height();
  return picture;
}

QString DocumentBrowser::documentText(int type, const QUrl& url) {
  m_plainText.clear();
  m_pixelsLeft = mostPixels;
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
  const bool isMarkdown = type == QTextDocument::MarkdownResource;
  if (!isMarkdown && !Qt::mightBeRichText(text))
    return plainDocument(text);
  const QString fault = isMarkdown ? markdownFault(text) : layoutFault(text);
  return fault.isEmpty()
             ? text
             : plainDocument(asWritten(
                   text, tr("This document is shown as it is written, since %1.").arg(fault)));
}

QString DocumentBrowser::plainDocument(const QString& text) {
  m_plainText = text;
  return QStringLiteral(" "); // the base class wants something, and reads it as rich text
}

void DocumentBrowser::finishDocument() {
  if (!m_plainText.isNull())
    setPlainText(m_plainText);
  wrapLongWords();
}

void DocumentBrowser::wrapLongWords() {
  const bool hasLongWord = longestWord(toPlainText()) > longestWordToBreak;
  setWordWrapMode(hasLongWord ? QTextOption::WrapAnywhere
                              : QTextOption::WrapAtWordBoundaryOrAnywhere);
}
