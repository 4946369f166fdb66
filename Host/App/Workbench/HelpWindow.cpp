#include "Workbench/HelpWindow.h"

#include "HostSupportQt/Geometry.h"
#include "HostSupportQt/Text.h"
#include "Services/HostFacts.h"
#include "Workbench/FindBar.h"
#include "Workbench/Glyphs.h"
#include "Workbench/HelpPages.h"
#include "Workbench/MarkdownView.h"

#include <QAction>
#include <QApplication>
#include <QPointer>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>

static void showRequest(const HelpRequest& request) {
  const QString page = toQs(request.page);
  if (!page.isEmpty())
    HelpWindow::showPage(page);
  else
    HelpWindow::showNotice(
        HelpWindow::tr("There is no help page \"%1\" yet.").arg(toQs(request.asked)));
}

HelpWindow::HelpWindow() : m_page(new MarkdownView), m_findBar(nullptr) {
  setObjectName(QStringLiteral("HelpWindow"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(tr("Help"));
  m_findBar = new FindBar(finderIn<QTextEdit>(m_page), m_page);
  auto* centre = new QWidget;
  auto* column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(m_page, 1);
  column->addWidget(m_findBar);
  setCentralWidget(centre);

  QToolBar* bar = addToolBar(tr("Navigation"));
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  QAction* back =
      bar->addAction(glyphIcon(Glyph::Back), tr("Back"), m_page, &QTextBrowser::backward);
  back->setShortcut(QKeySequence::Back);
  QAction* forward =
      bar->addAction(glyphIcon(Glyph::Forward), tr("Forward"), m_page, &QTextBrowser::forward);
  forward->setShortcut(QKeySequence::Forward);
  QAction* contents = bar->addAction(glyphIcon(Glyph::Contents), tr("Contents"), m_page,
                                     &MarkdownView::showContents);
  contents->setShortcut(Qt::ALT + Qt::Key_Home);
  QAction* find = bar->addAction(glyphIcon(Glyph::Search), tr("Find"), m_findBar, &FindBar::open);
  find->setShortcut(QKeySequence::Find);
  auto* closeAction = new QAction(this);
  closeAction->setShortcuts({Qt::Key_Escape, QKeySequence::Close});
  connect(closeAction, &QAction::triggered, this, &QWidget::close);
  addAction(closeAction);
  for (QAction* action : {back, forward, contents, find})
    action->setToolTip(QStringLiteral("%1 (%2)").arg(
        action->text(), action->shortcut().toString(QKeySequence::NativeText)));

  back->setEnabled(false);
  forward->setEnabled(false);
  connect(m_page, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(m_page, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  connect(m_page, &QTextBrowser::sourceChanged, this, [this] {
    const QString title = m_page->pageTitle();
    setWindowTitle(title.isEmpty() ? tr("Help") : tr("%1 – Help").arg(title));
  });
  resize(640, 560);
  sp_RestoreWidgetDims(this, YString());
}

HelpWindow* HelpWindow::instance() {
  static QPointer<HelpWindow> window;
  if (!window)
    window = new HelpWindow;
  return window;
}

void HelpWindow::install() {
  setHelpWindow(showRequest);
}

void HelpWindow::showPage(const QString& file) {
  instance()->m_page->showFile(file);
  instance()->present();
}

void HelpWindow::showNotice(const QString& text) {
  instance()->m_page->showNotice(text);
  instance()->present();
}

void HelpWindow::showContents() {
  instance()->m_page->showContents();
  instance()->present();
}

void HelpWindow::present() {
  // A modal dialog keeps the user from all windows but those that belong to it.
  winId();
  const QWidget* dialog = QApplication::activeModalWidget();
  windowHandle()->setTransientParent(dialog ? dialog->windowHandle() : nullptr);
  show();
  raise();
  activateWindow();
  m_page->setFocus(Qt::OtherFocusReason);
}

void HelpWindow::closeEvent(QCloseEvent* event) {
  sp_SaveWidgetDims(this, YString());
  QMainWindow::closeEvent(event);
}
