#pragma once

#include <QTextBrowser>

/// Shows Markdown pages after the palette. Links to other pages open here, those to the web in the
/// system's browser; "#heading" goes to the heading of that text.
class MarkdownView : public QTextBrowser {
  Q_OBJECT

public:
  explicit MarkdownView(QWidget* parent = nullptr);

  void showFile(const QString& path);   ///< says so where it cannot be read
  void showContents();                  ///< the list of all pages
  void showNotice(const QString& text); ///< a page of one sentence
  QString pageTitle() const;            ///< the first heading

protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void changeEvent(QEvent* event) override;

private:
  void followLink(const QUrl& link);
  void polishPage();
  void goToHeading(const QString& fragment);

  QString m_notice;
};
