#include "Workbench/MarkdownView.h"

#include "HostSupport/Files.h"
#include "HostSupportQt/Text.h"
#include "Palettes.h"
#include "Workbench/HelpPages.h"

#include <QDesktopServices>
#include <QEvent>
#include <QFileInfo>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

namespace {

const QString contentsScheme = QStringLiteral("contents");
const QString noticeScheme = QStringLiteral("notice");
constexpr double pageMargin = 12;
constexpr std::uint64_t longestPage = 5'000'000; // bytes

bool isWebLink(const QUrl& link) {
  return link.scheme() == QLatin1String("http") || link.scheme() == QLatin1String("https") ||
         link.scheme() == QLatin1String("mailto");
}

/// "Driving a dialog" is reached as "#driving-a-dialog".
QString slugOf(const QString& heading) {
  QString slug;
  for (const QChar letter : heading.toLower()) {
    if (letter.isLetterOrNumber() || letter == QLatin1Char('_') || letter == QLatin1Char('-'))
      slug += letter;
    else if (letter.isSpace())
      slug += QLatin1Char('-');
  }
  return slug;
}

bool isCode(const QTextBlockFormat& format) {
  return format.hasProperty(QTextFormat::BlockCodeFence) || format.nonBreakableLines();
}

} // namespace

MarkdownView::MarkdownView(QWidget* parent) : QTextBrowser(parent) {
  setFrameShape(NoFrame);
  setOpenLinks(false);
  setTabChangesFocus(false);
  setAccessibleName(tr("Help page"));
  connect(this, &QTextBrowser::anchorClicked, this, &MarkdownView::followLink);
  connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& page) {
    polishPage();
    if (page.hasFragment())
      goToHeading(page.fragment());
  });
}

void MarkdownView::showFile(const QString& path) {
  setSource(QUrl::fromLocalFile(path), QTextDocument::MarkdownResource);
}

void MarkdownView::showContents() {
  setSource(QUrl(contentsScheme + QStringLiteral(":all")), QTextDocument::MarkdownResource);
}

void MarkdownView::showNotice(const QString& text) {
  QUrl page;
  page.setScheme(noticeScheme);
  page.setPath(text);
  setSource(page, QTextDocument::MarkdownResource);
}

QString MarkdownView::pageTitle() const {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
    if (block.blockFormat().headingLevel() > 0)
      return block.text();
  return QString();
}

QVariant MarkdownView::loadResource(int type, const QUrl& name) {
  if (type == QTextDocument::ImageResource) {
    // No wider than the page, which the user may have made narrow.
    const QImage image = QImage::fromData(QTextBrowser::loadResource(type, name).toByteArray());
    const int room = viewport()->width() - int(2 * document()->documentMargin()) -
                     verticalScrollBar()->sizeHint().width();
    return image.width() > room && room > 0 ? image.scaledToWidth(room, Qt::SmoothTransformation)
                                            : image;
  }
  if (type != QTextDocument::MarkdownResource)
    return QTextBrowser::loadResource(type, name);
  if (name.scheme() == contentsScheme)
    return helpContents();
  if (name.scheme() == noticeScheme)
    return name.path();
  std::string page;
  if (!sp_ReadPlainFile(Tocs(name.toLocalFile()), &page, nullptr, longestPage))
    return tr("The page %1 cannot be read.").arg(name.toLocalFile());
  return QString::fromStdString(page);
}

void MarkdownView::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  // Link colours are written into the page when it is read.
  if (event->type() == QEvent::PaletteChange && !source().isEmpty()) {
    reload();
    polishPage();
  }
}

void MarkdownView::followLink(const QUrl& link) {
  const QUrl target = source().resolved(link);
  if (isWebLink(target))
    QDesktopServices::openUrl(target);
  else if (link.path().isEmpty() && link.hasFragment())
    goToHeading(link.fragment());
  else if (target.isLocalFile() && target.path().endsWith(QLatin1String(".md")))
    setSource(target, QTextDocument::MarkdownResource);
  else if (target.isLocalFile())
    QDesktopServices::openUrl(target);
}

void MarkdownView::polishPage() {
  QTextFrameFormat page = document()->rootFrame()->frameFormat();
  page.setMargin(pageMargin);
  document()->rootFrame()->setFrameFormat(page);
  const QString fixed = codeFont().family();
  const QColor shade = palette().color(QPalette::AlternateBase);
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    QTextCursor cursor(block);
    if (isCode(block.blockFormat())) {
      QTextBlockFormat format;
      format.setBackground(shade);
      format.setLeftMargin(pageMargin / 2);
      cursor.mergeBlockFormat(format);
    }
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      if (!piece.fragment().charFormat().fontFixedPitch())
        continue;
      cursor.setPosition(piece.fragment().position());
      cursor.setPosition(piece.fragment().position() + piece.fragment().length(),
                         QTextCursor::KeepAnchor);
      QTextCharFormat code;
      code.setFontFamily(fixed);
      cursor.mergeCharFormat(code);
    }
  }
  for (QTextFrame* frame : document()->rootFrame()->childFrames())
    if (auto* table = qobject_cast<QTextTable*>(frame)) {
      QTextTableFormat format = table->format();
      format.setBorder(1);
      format.setBorderBrush(ruleColour(palette()));
      format.setBorderCollapse(true);
      format.setCellPadding(4);
      format.setCellSpacing(0);
      table->setFormat(format);
    }
}

void MarkdownView::goToHeading(const QString& fragment) {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
    if (block.blockFormat().headingLevel() > 0 && slugOf(block.text()) == fragment) {
      QTextCursor end(document());
      end.movePosition(QTextCursor::End);
      // From below, so that the heading comes to the top.
      setTextCursor(end);
      setTextCursor(QTextCursor(block));
      return;
    }
}
