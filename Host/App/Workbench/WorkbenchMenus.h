#pragma once

#include <QObject>
#include <QStringList>

class QAction;
class QMenu;
class QToolBar;
class Workbench;
struct WorkbenchParts;

/// The menus and the tool bar of the workbench, and what they remember: recent files.
class WorkbenchMenus : public QObject {
  Q_OBJECT

public:
  explicit WorkbenchMenus(Workbench* workbench);

private:
  void addFileMenu();
  void addEditMenu();
  void addRunMenu();
  void addViewMenu();
  void addGoMenu();
  void addHelpMenu();
  void addToolBar();
  void setRunning(bool isRunning);
  void noteFile(const QString& path); ///< opened or saved
  void fillRecentMenu();
  void goToLine();
  void goToNextPane(int step);
  void showAbout();

  Workbench* m_workbench;
  const WorkbenchParts& m_parts;
  QMenu* m_recentMenu = nullptr;
  QAction* m_new = nullptr;
  QAction* m_open = nullptr;
  QAction* m_save = nullptr;
  QAction* m_run = nullptr;
  QAction* m_stop = nullptr;
};
