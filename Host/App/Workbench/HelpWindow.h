#pragma once

#include <QMainWindow>

class FindBar;
class MarkdownView;

/// The window of help pages: back, forward, contents, search in the page. There is one; it can be
/// used while a modal dialog is open.
class HelpWindow : public QMainWindow {
  Q_OBJECT

public:
  static void showPage(const QString& file);
  static void showNotice(const QString& text);
  static void showContents();
  /// Makes this window the one that shows what dialogs ask for. Nothing is built before they do.
  static void install();

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  HelpWindow();
  static HelpWindow* instance();
  void present();

  MarkdownView* m_page;
  FindBar* m_findBar;
};
