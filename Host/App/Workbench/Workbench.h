#pragma once

#include "Palettes.h"
#include "Samples.h"

#include <QHash>
#include <QMainWindow>

class ConsoleView;
class DialogDriver;
class FindBar;
class FunctionTable;
class FunctionTree;
class HistoryView;
class MarkdownView;
class MessageLog;
class PictureView;
class QLabel;
class QSplitter;
class QTabWidget;
class ResultView;
class ScriptDocuments;
class ScriptEditor;
class ScriptSession;
struct CallRecord;
struct CallResult;

/// The parts that the window owns.
struct WorkbenchParts {
  FunctionTree* functions = nullptr;
  ScriptEditor* editor = nullptr;
  ScriptDocuments* documents = nullptr;
  FindBar* findBar = nullptr;
  ResultView* result = nullptr;
  HistoryView* history = nullptr;
  ConsoleView* console = nullptr;
  MessageLog* messages = nullptr;
  PictureView* picture = nullptr;
  MarkdownView* help = nullptr;
  ScriptSession* session = nullptr;
};

/// The window in which script authors try dialogs out.
class Workbench : public QMainWindow {
  Q_OBJECT

public:
  Workbench(FunctionTable* table, DialogDriver* driver);

  const WorkbenchParts& parts() const { return m_parts; }
  QString moduleFile() const;

  void chooseFunction(const QString& function);
  void runScript(); ///< that of the editor
  void setDark(bool on);
  void saveState();

  /// What the keyboard goes round, in reading order.
  struct Pane {
    QString caption;
    QWidget* widget;
  };
  QVector<Pane> panes() const;
  void goToPane(int number);

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  void build();
  QWidget* buildEditorPane();
  QWidget* buildSidePane();
  void connectParts();
  void restoreState();
  void showFunction(const QString& function);
  void showCall(const CallRecord& record, const CallResult& result);
  void showEnd(bool ok, const QString& value, const QString& error, int line);
  void updateTitle();

  FunctionTable* m_table;
  QHash<QString, Sample> m_samples;
  WorkbenchParts m_parts;
  QTabWidget* m_tabs = nullptr;
  QSplitter* m_columns = nullptr; ///< functions, editor and tabs, side
  QSplitter* m_rows = nullptr;    ///< editor, tabs
  QSplitter* m_side = nullptr;    ///< picture, help
  QLabel* m_state = nullptr;      ///< how the last run ended
  bool m_isFromConsole = false;
  bool m_closesAtEnd = false;
};
