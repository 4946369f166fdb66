#include "Workbench/WorkbenchMenus.h"

#include "HelpPages.h"
#include "Workbench/ConsoleView.h"
#include "Workbench/FindBar.h"
#include "Workbench/FunctionTree.h"
#include "Workbench/Glyphs.h"
#include "Workbench/HelpWindow.h"
#include "Workbench/HistoryView.h"
#include "Workbench/MessageLog.h"
#include "Workbench/PictureView.h"
#include "Workbench/ScriptDocuments.h"
#include "Workbench/ScriptEditor.h"
#include "Workbench/ScriptSession.h"
#include "Workbench/Settings.h"
#include "Workbench/Workbench.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>

namespace {

constexpr char recentSection[] = "WorkbenchRecent";
constexpr int mostRecent = 8;

QStringList recentFiles() {
  QStringList files;
  for (int i = 0; i < mostRecent; ++i) {
    const QString file = setting(recentSection, QByteArray::number(i));
    if (!file.isEmpty())
      files << file;
  }
  return files;
}

} // namespace

WorkbenchMenus::WorkbenchMenus(Workbench* workbench)
    : QObject(workbench), m_workbench(workbench), m_parts(workbench->parts()) {
  addFileMenu();
  addEditMenu();
  addRunMenu();
  addViewMenu();
  addGoMenu();
  addHelpMenu();
  addToolBar();
  setRunning(false);
  connect(m_parts.session, &ScriptSession::runningChanged, this, &WorkbenchMenus::setRunning);
  connect(m_parts.documents, &ScriptDocuments::fileUsed, this, &WorkbenchMenus::noteFile);
}

void WorkbenchMenus::addFileMenu() {
  ScriptDocuments* documents = m_parts.documents;
  QMenu* menu = m_workbench->menuBar()->addMenu(tr("&File"));
  m_new = menu->addAction(
      glyphIcon(Glyph::New), tr("&New Script"), documents, [documents] { documents->openNew(); },
      QKeySequence::New);
  m_open = menu->addAction(glyphIcon(Glyph::Open), tr("&Open Script…"), documents,
                           &ScriptDocuments::chooseFile, QKeySequence::Open);
  m_recentMenu = menu->addMenu(tr("Open &Recent"));
  connect(m_recentMenu, &QMenu::aboutToShow, this, &WorkbenchMenus::fillRecentMenu);
  m_save = menu->addAction(glyphIcon(Glyph::Save), tr("&Save"), documents, &ScriptDocuments::save,
                           QKeySequence::Save);
  menu->addAction(tr("Save &As…"), documents, &ScriptDocuments::saveAs,
                  QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_S));
  menu->addSeparator();
  menu->addAction(tr("Save &Picture As…"), m_parts.picture, &PictureView::saveAs);
  menu->addSeparator();
  menu->addAction(tr("&Quit"), m_workbench, &QWidget::close, QKeySequence(Qt::CTRL + Qt::Key_Q));
}

void WorkbenchMenus::addEditMenu() {
  ScriptEditor* editor = m_parts.editor;
  QMenu* menu = m_workbench->menuBar()->addMenu(tr("&Edit"));
  menu->addAction(tr("&Undo"), editor, &QPlainTextEdit::undo, QKeySequence::Undo);
  menu->addAction(tr("&Redo"), editor, &QPlainTextEdit::redo, QKeySequence::Redo);
  menu->addSeparator();
  menu->addAction(
      tr("&Find…"), this,
      [this] {
        m_parts.findBar->setSuggestion(m_parts.editor->textCursor().selectedText());
        m_parts.findBar->open();
      },
      QKeySequence::Find);
  menu->addAction(tr("Find &Next"), m_parts.findBar, &FindBar::findNext, QKeySequence(Qt::Key_F3));
  menu->addAction(tr("Find &Previous"), m_parts.findBar, &FindBar::findPrevious,
                  QKeySequence(Qt::SHIFT + Qt::Key_F3));
  menu->addAction(tr("&Go to Line…"), this, &WorkbenchMenus::goToLine,
                  QKeySequence(Qt::CTRL + Qt::Key_G));
  menu->addSeparator();
  menu->addAction(tr("Copy Call as &Script"), m_parts.history, &HistoryView::copyAsScript,
                  QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_C));
}

void WorkbenchMenus::addRunMenu() {
  QMenu* menu = m_workbench->menuBar()->addMenu(tr("&Run"));
  m_run = menu->addAction(glyphIcon(Glyph::Run), tr("&Run"), m_workbench, &Workbench::runScript);
  m_run->setShortcuts({Qt::Key_F5, Qt::CTRL + Qt::Key_Return, Qt::CTRL + Qt::Key_Enter});
  m_stop =
      menu->addAction(glyphIcon(Glyph::Stop), tr("&Stop"), m_parts.session, &ScriptSession::stop);
  m_stop->setShortcuts({Qt::SHIFT + Qt::Key_F5, Qt::CTRL + Qt::Key_Period});
  menu->addSeparator();
  menu->addAction(tr("Clear &Console"), m_parts.console, &ConsoleView::clear);
  menu->addAction(tr("Clear &History"), m_parts.history, &HistoryView::clear);
  menu->addAction(tr("Clear &Messages"), m_parts.messages, &MessageLog::clear);
}

void WorkbenchMenus::addViewMenu() {
  ScriptEditor* editor = m_parts.editor;
  QMenu* menu = m_workbench->menuBar()->addMenu(tr("&View"));
  QAction* dark = menu->addAction(tr("&Dark Palette"));
  dark->setShortcut(Qt::CTRL + Qt::Key_D);
  dark->setCheckable(true);
  dark->setChecked(isDark(QApplication::palette()));
  connect(dark, &QAction::toggled, m_workbench, &Workbench::setDark);
  menu->addSeparator();
  QAction* larger = menu->addAction(tr("Larger &Text"), editor,
                                    [editor] { editor->setFontSize(editor->fontSize() + 1); });
  larger->setShortcuts(
      {QKeySequence(QKeySequence::ZoomIn), QKeySequence(Qt::CTRL + Qt::Key_Equal)});
  menu->addAction(
      tr("&Smaller Text"), editor, [editor] { editor->setFontSize(editor->fontSize() - 1); },
      QKeySequence::ZoomOut);
  menu->addAction(
      tr("&Normal Text"), editor, [editor] { editor->setFontSize(ScriptEditor::defaultFontSize); },
      QKeySequence(Qt::CTRL + Qt::Key_0));
  menu->addSeparator();
  menu->addAction(tr("Picture in &Full Size"), m_parts.picture, &PictureView::showFullSize,
                  QKeySequence(Qt::Key_F11));
}

void WorkbenchMenus::addGoMenu() {
  QMenu* menu = m_workbench->menuBar()->addMenu(tr("&Go"));
  menu->addAction(tr("&Search Functions"), m_parts.functions, &FunctionTree::focusSearch,
                  QKeySequence(Qt::CTRL + Qt::Key_K));
  menu->addSeparator();
  const QVector<Workbench::Pane> panes = m_workbench->panes();
  for (int i = 0; i < panes.size(); ++i)
    menu->addAction(
        panes[i].caption, this, [this, i] { m_workbench->goToPane(i); },
        QKeySequence(Qt::CTRL + Qt::Key_1 + i));
  menu->addSeparator();
  menu->addAction(
      tr("Ne&xt Pane"), this, [this] { goToNextPane(1); }, QKeySequence(Qt::Key_F6));
  menu->addAction(
      tr("Pre&vious Pane"), this, [this] { goToNextPane(-1); },
      QKeySequence(Qt::SHIFT + Qt::Key_F6));
}

void WorkbenchMenus::addHelpMenu() {
  QMenu* menu = m_workbench->menuBar()->addMenu(tr("&Help"));
  menu->addAction(
      tr("Help on the &Function"), m_workbench,
      [this] {
        const QString page = helpPage(m_parts.functions->chosen());
        page.isEmpty() ? HelpWindow::showContents() : HelpWindow::showPage(page);
      },
      QKeySequence::HelpContents);
  menu->addAction(tr("&Contents"), m_workbench, [] { HelpWindow::showContents(); });
  menu->addAction(
      tr("&Scripting Guide"), m_workbench, [] { HelpWindow::showPage(scriptingGuide()); },
      QKeySequence(Qt::SHIFT + Qt::Key_F1));
  menu->addSeparator();
  menu->addAction(tr("&About"), this, &WorkbenchMenus::showAbout);
}

void WorkbenchMenus::addToolBar() {
  QToolBar* bar = m_workbench->addToolBar(tr("Tools"));
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  for (QAction* action : {m_run, m_stop, static_cast<QAction*>(nullptr), m_new, m_open, m_save}) {
    if (!action) {
      bar->addSeparator();
      continue;
    }
    bar->addAction(action);
    const QString keys = action->shortcut().toString(QKeySequence::NativeText);
    QString caption = action->text();
    action->setToolTip(QStringLiteral("%1 (%2)").arg(caption.remove(QLatin1Char('&')), keys));
  }
}

void WorkbenchMenus::setRunning(bool isRunning) {
  m_run->setEnabled(!isRunning);
  m_stop->setEnabled(isRunning);
}

void WorkbenchMenus::noteFile(const QString& path) {
  QStringList files = recentFiles();
  files.removeAll(path);
  files.prepend(path);
  for (int i = 0; i < mostRecent; ++i)
    setSetting(recentSection, QByteArray::number(i), files.value(i));
}

void WorkbenchMenus::fillRecentMenu() {
  m_recentMenu->clear();
  for (const QString& file : recentFiles()) {
    // An ampersand in a file's name is no mnemonic.
    QString caption = QDir::toNativeSeparators(file);
    QAction* action = m_recentMenu->addAction(
        caption.replace(QLatin1Char('&'), QStringLiteral("&&")), m_parts.documents,
        [this, file] { m_parts.documents->openFile(file); });
    action->setEnabled(QFile::exists(file));
  }
  if (m_recentMenu->isEmpty())
    m_recentMenu->addAction(tr("None"))->setEnabled(false);
}

void WorkbenchMenus::goToLine() {
  bool isChosen = false;
  ScriptEditor* editor = m_parts.editor;
  const int line = QInputDialog::getInt(m_workbench, tr("Go to Line"), tr("&Line:"),
                                        editor->textCursor().blockNumber() + 1, 1,
                                        editor->blockCount(), 1, &isChosen);
  if (isChosen)
    editor->goToLine(line);
}

void WorkbenchMenus::goToNextPane(int step) {
  const QVector<Workbench::Pane> panes = m_workbench->panes();
  const QWidget* focused = QApplication::focusWidget();
  int present = 0;
  for (int i = 0; i < panes.size(); ++i)
    if (focused && (panes[i].widget == focused || panes[i].widget->isAncestorOf(focused)))
      present = i;
  m_workbench->goToPane((present + step + panes.size()) % panes.size());
}

void WorkbenchMenus::showAbout() {
  QMessageBox::about(m_workbench, tr("About the Dialog Workbench"),
                     tr("<b>Dialog Workbench %1</b><p>The development host of Kelvarin's dialogs: "
                        "calls them from scripts, shows what they give back, and drives them for "
                        "tests.</p><p>Module: %2</p><p>Qt %3</p>")
                         .arg(QStringLiteral(KV_VERSION),
                              QDir::toNativeSeparators(m_workbench->moduleFile()).toHtmlEscaped(),
                              QLatin1String(qVersion())));
}
