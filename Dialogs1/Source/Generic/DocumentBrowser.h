#pragma once

#include <QTextBrowser>

/// Shows a text, or a document of this computer, that a script hands in. It fetches nothing by
/// itself but files that lie where the document does or below, and at most 64 million points of
/// pictures; links go to the system's browser, and those to local documents open here.
class DocumentBrowser : public QTextBrowser {
  Q_OBJECT

public:
  explicit DocumentBrowser(QWidget* parent = nullptr);

  QSize sizeHint() const override; ///< a page of text

  void showText(const QString& text);     ///< rich where it looks so
  void showDocument(const QString& name); ///< a URL or a file's name; says so where it cannot

protected:
  QVariant loadResource(int type, const QUrl& name) override;

private:
  QString documentText(int type, const QUrl& url);
  QString plainDocument(const QString& text);
  QImage picture(const QByteArray& bytes);
  void finishDocument();
  void wrapLongWords();

  QUrl m_document;         ///< the one that asks for pictures and style sheets
  QString m_plainText;     ///< of a document that is not to be read as rich text; null for none
  qint64 m_pixelsLeft = 0; ///< that further pictures may have
};
