#include "Workbench/Workbench.h"

#include "Call/FunctionTable.h"
#include "Drive/DialogDriver.h"
#include "HelpPages.h"
#include "HostSupportQt/Geometry.h"
#include "HostSupportQt/Text.h"
#include "Workbench/CallRecord.h"
#include "Workbench/ConsoleView.h"
#include "Workbench/FindBar.h"
#include "Workbench/FunctionTree.h"
#include "Workbench/HistoryView.h"
#include "Workbench/MarkdownView.h"
#include "Workbench/MessageLog.h"
#include "Workbench/PictureView.h"
#include "Workbench/ResultView.h"
#include "Workbench/ScriptDocuments.h"
#include "Workbench/ScriptEditor.h"
#include "Workbench/ScriptSession.h"
#include "Workbench/Settings.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr char section[] = "Workbench";
constexpr int longestState = 200; // characters in the status bar

/// A pane's heading and contents; the heading is the contents' name for the keyboard, too.
QWidget* withHeading(const QString& heading, QWidget* contents) {
  auto* pane = new QWidget;
  auto* label = new QLabel(heading);
  label->setMargin(6);
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  auto* column = new QVBoxLayout(pane);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(label);
  column->addWidget(contents, 1);
  return pane;
}

void setSizes(QSplitter* splitter, const QVector<int>& stored, const QList<int>& fallback) {
  int sum = 0;
  for (int size : stored)
    sum += qMax(size, 0);
  const bool isUsable = stored.size() == splitter->count() && sum > 0;
  splitter->setSizes(isUsable ? QList<int>(stored.begin(), stored.end()) : fallback);
}

QVector<int> sizesOf(const QSplitter* splitter) {
  const QList<int> sizes = splitter->sizes();
  return QVector<int>(sizes.begin(), sizes.end());
}

QString callTemplate(const FunctionInfo& function) {
  return function.kind == FunctionInfo::Kind::Command
             ? QStringLiteral("command(\"%1\");\n").arg(function.name)
             : QStringLiteral("%1();\n").arg(function.name);
}

} // namespace

Workbench::Workbench(FunctionTable* table, DialogDriver* driver) : m_table(table) {
  setObjectName(QStringLiteral("Workbench"));
  const QVector<Sample> samples = readSamples();
  for (const Sample& sample : samples)
    m_samples.insert(sample.name, sample);
  m_parts.functions = new FunctionTree(table, samples);
  m_parts.session = new ScriptSession(table, driver, this);
  build();
  connectParts();
  restoreState();
}

QString Workbench::moduleFile() const {
  return m_table->moduleFile();
}

void Workbench::build() {
  m_parts.result = new ResultView;
  m_parts.history = new HistoryView;
  m_parts.console = new ConsoleView;
  m_parts.messages = new MessageLog;
  m_tabs = new QTabWidget;
  m_tabs->setDocumentMode(true);
  m_tabs->addTab(m_parts.result, tr("Result"));
  m_tabs->addTab(m_parts.history, tr("History"));
  m_tabs->addTab(m_parts.console, tr("Console"));
  m_tabs->addTab(m_parts.messages, tr("Messages"));

  m_rows = new QSplitter(Qt::Vertical);
  m_rows->addWidget(buildEditorPane());
  m_rows->addWidget(m_tabs);
  m_rows->setStretchFactor(0, 1);
  m_columns = new QSplitter;
  m_columns->addWidget(m_parts.functions);
  m_columns->addWidget(m_rows);
  m_columns->addWidget(buildSidePane());
  m_columns->setStretchFactor(1, 1);
  for (QSplitter* splitter : {m_columns, m_rows, m_side})
    splitter->setChildrenCollapsible(false);
  setCentralWidget(m_columns);

  m_state = new QLabel;
  m_state->setTextFormat(Qt::PlainText);
  m_state->setContentsMargins(6, 0, 6, 0);
  // A long error must not widen the window.
  m_state->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  statusBar()->addWidget(m_state, 1);
}

QWidget* Workbench::buildEditorPane() {
  m_parts.editor = new ScriptEditor;
  m_parts.documents = new ScriptDocuments(m_parts.editor);
  m_parts.findBar = new FindBar(finderIn<QPlainTextEdit>(m_parts.editor), m_parts.editor);
  QStringList names;
  for (const FunctionInfo& function : m_table->functions())
    names << function.name;
  m_parts.editor->setFunctions(names);
  auto* pane = new QWidget;
  auto* column = new QVBoxLayout(pane);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(m_parts.editor, 1);
  column->addWidget(m_parts.findBar);
  return pane;
}

QWidget* Workbench::buildSidePane() {
  m_parts.picture = new PictureView;
  m_parts.help = new MarkdownView;
  m_side = new QSplitter(Qt::Vertical);
  m_side->addWidget(withHeading(tr("Picture"), m_parts.picture));
  m_side->addWidget(withHeading(tr("Help"), m_parts.help));
  m_side->setStretchFactor(1, 1);
  return m_side;
}

void Workbench::connectParts() {
  const WorkbenchParts& p = m_parts;
  connect(p.functions, &FunctionTree::functionChosen, this, &Workbench::showFunction);
  connect(p.functions, &FunctionTree::functionActivated, this, [this](const QString& function) {
    showFunction(function);
    m_parts.editor->setFocus(Qt::OtherFocusReason);
  });
  connect(p.documents, &ScriptDocuments::shown, this, &Workbench::updateTitle);
  connect(p.editor, &ScriptEditor::fontSizeChanged, this,
          [](double points) { setSetting(section, "fontSize", scriptNumber(points)); });
  connect(p.history, &HistoryView::recalled, this, [this](const QString& script) {
    m_parts.documents->openNew(script);
    m_parts.editor->setFocus(Qt::OtherFocusReason);
  });
  connect(p.messages, &MessageLog::countChanged, this, [this](int count) {
    m_tabs->setTabText(m_tabs->indexOf(m_parts.messages),
                       count > 0 ? tr("Messages (%1)").arg(count) : tr("Messages"));
  });
  connect(p.console, &ConsoleView::entered, this, [this](const QString& line) {
    m_isFromConsole = true;
    if (!m_parts.session->evaluate(line))
      m_parts.console->add(tr("A script is running."), ConsoleView::Kind::Error);
  });

  connect(p.session, &ScriptSession::runningChanged, this, [this](bool isRunning) {
    if (isRunning)
      m_state->setText(tr("Running…"));
  });
  connect(p.session, &ScriptSession::printed, this,
          [this](const QString& line) { m_parts.console->add(line, ConsoleView::Kind::Output); });
  connect(p.session, &ScriptSession::problem, this, [this](const QString& line) {
    m_parts.console->add(line, ConsoleView::Kind::Error);
    m_parts.messages->add(tr("Script"), line);
  });
  connect(p.session, &ScriptSession::called, this, &Workbench::showCall);
  connect(p.session, &ScriptSession::finished, this, &Workbench::showEnd);
  connect(p.session, &ScriptSession::summarized, this, [this](const QString& summary) {
    m_parts.console->add(summary, ConsoleView::Kind::Output);
    m_state->setText(summary);
  });
  connect(p.session, &ScriptSession::dialogReady, this, [this](QWidget* dialog) {
    const QString name =
        dialog->objectName().isEmpty() ? dialog->windowTitle() : dialog->objectName();
    m_parts.picture->setPicture(dialog->grab(), name);
  });
}

void Workbench::restoreState() {
  // Room for a frame and a task bar on a small screen.
  resize(QSize(1200, 760).boundedTo(screen()->availableSize() - QSize(80, 80)));
  sp_RestoreWidgetDims(this, YString());
  if (setting(section, "maximized") == QLatin1String("1"))
    setWindowState(windowState() | Qt::WindowMaximized);
  setSizes(m_columns, numberListSetting(section, "columns"), {220, 640, 340});
  setSizes(m_rows, numberListSetting(section, "rows"), {430, 240});
  setSizes(m_side, numberListSetting(section, "side"), {260, 410});
  double points = 0;
  if (sp_IsEngNumber(setting(section, "fontSize"), &points))
    m_parts.editor->setFontSize(points);
  m_parts.documents->setFolder(setting(section, "folder", QDir::homePath()));
  chooseFunction(setting(section, "function"));
  if (m_parts.functions->chosen().isEmpty() && !m_table->functions().isEmpty())
    chooseFunction(m_table->functions().first().name);
  m_parts.editor->setFocus(Qt::OtherFocusReason);
}

void Workbench::saveState() {
  sp_SaveWidgetDims(this, YString());
  setSetting(section, "maximized", isMaximized() ? QStringLiteral("1") : QStringLiteral("0"));
  setNumberListSetting(section, "columns", sizesOf(m_columns));
  setNumberListSetting(section, "rows", sizesOf(m_rows));
  setNumberListSetting(section, "side", sizesOf(m_side));
  setSetting(section, "folder", m_parts.documents->folder());
  setSetting(section, "function", m_parts.functions->chosen());
}

void Workbench::setDark(bool on) {
  applyPalette(on ? PaletteKind::Dark : PaletteKind::Light);
  setSetting(section, "palette", on ? QStringLiteral("dark") : QStringLiteral("light"));
}

void Workbench::chooseFunction(const QString& function) {
  m_parts.functions->choose(function);
}

void Workbench::showFunction(const QString& function) {
  const FunctionInfo* info = m_table->find(function);
  if (!info)
    return;
  const auto sample = m_samples.constFind(function);
  const bool hasSample = sample != m_samples.cend();
  m_parts.documents->showSample(function, hasSample ? sample->text : callTemplate(*info),
                                hasSample ? sample->file : QString());
  const QString page = helpPage(function);
  if (page.isEmpty())
    m_parts.help->showNotice(tr("There is no help page on %1 yet.").arg(function));
  else
    m_parts.help->showFile(page);
}

void Workbench::runScript() {
  m_isFromConsole = false;
  m_parts.editor->setErrorLine(0);
  m_parts.session->run(m_parts.editor->toPlainText(), m_parts.documents->fileName());
}

void Workbench::showCall(const CallRecord& record, const CallResult& result) {
  m_parts.history->add(record);
  m_parts.result->showCall(record, result);
}

void Workbench::showEnd(bool ok, const QString& value, const QString& error, int line) {
  if (ok) {
    m_parts.console->add(value, ConsoleView::Kind::Value);
    m_state->setText(tr("Done: %1").arg(value.left(longestState)));
  } else {
    m_state->setText(error.left(longestState).simplified());
    m_parts.result->showText(error, true);
  }
  if (!m_isFromConsole) {
    m_tabs->setCurrentWidget(m_parts.result);
    if (!ok && line > 0) {
      m_parts.editor->setErrorLine(line);
      m_parts.editor->goToLine(line);
    }
  }
  if (m_closesAtEnd)
    QTimer::singleShot(0, this, &QWidget::close);
}

void Workbench::updateTitle() {
  setWindowTitle(tr("%1[*] – Dialog Workbench").arg(m_parts.documents->title()));
  setWindowModified(m_parts.documents->isModified());
}

QVector<Workbench::Pane> Workbench::panes() const {
  return {{tr("&Functions"), m_parts.functions}, {tr("&Editor"), m_parts.editor},
          {tr("&Result"), m_parts.result},       {tr("&History"), m_parts.history},
          {tr("&Console"), m_parts.console},     {tr("&Messages"), m_parts.messages},
          {tr("&Picture"), m_parts.picture},     {tr("He&lp"), m_parts.help}};
}

void Workbench::goToPane(int number) {
  QWidget* pane = panes().at(number).widget;
  if (m_tabs->indexOf(pane) >= 0)
    m_tabs->setCurrentWidget(pane);
  pane->setFocus(Qt::ShortcutFocusReason);
}

void Workbench::closeEvent(QCloseEvent* event) {
  if (m_parts.session->isRunning()) {
    m_closesAtEnd = true;
    m_parts.session->stop();
    event->ignore();
    return;
  }
  m_closesAtEnd = false;
  if (!m_parts.documents->mayClose()) {
    event->ignore();
    return;
  }
  saveState();
  event->accept();
  QApplication::quit(); // help and pictures do not keep the program alive
}
