#include "Workbench/WorkbenchCommand.h"

#include "Call/FunctionTable.h"
#include "CommandLine.h"
#include "DialogAcceptor.h"
#include "Drive/DialogDriver.h"
#include "Interruption.h"
#include "Output.h"
#include "ScriptCommands.h"
#include "Startup.h"
#include "Workbench/HelpWindow.h"
#include "Workbench/ScriptSession.h"
#include "Workbench/Settings.h"
#include "Workbench/Workbench.h"
#include "Workbench/WorkbenchMenus.h"

#include <QApplication>
#include <QMessageBox>

namespace {

/// For whom no terminal shows what the program says as it ends.
void loadModuleOrSay(const CommandLine& line, FunctionTable* table) {
  try {
    loadModule(line, table);
  } catch (const ModuleError& error) {
    if (hasUser())
      QMessageBox::critical(nullptr, QString(), QString::fromUtf8(error.what()));
    throw;
  }
}

/// The window after a call that nobody had to answer; also the shortest proof that all of it works.
int takeScreenshot(Workbench* workbench, DialogDriver* driver, const QString& file) {
  const DialogAcceptor acceptor(driver);
  QString fault;
  QObject::connect(workbench->parts().session, &ScriptSession::finished, workbench,
                   [&fault](bool, const QString&, const QString& error) { fault = error; });
  workbench->chooseFunction(QStringLiteral("ValueDialog"));
  workbench->runScript();
  QCoreApplication::processEvents();
  if (fault.isEmpty())
    fault = driver->failures().join(QLatin1Char('\n'));
  if (fault.isEmpty() && !workbench->grab().save(file, "PNG"))
    fault = Workbench::tr("%1 cannot be written.").arg(file);
  if (fault.isEmpty())
    return 0;
  printError(fault);
  return 1;
}

} // namespace

int runWorkbench(const CommandLine& line) {
  const bool isDarkWanted = line.dark || setting("Workbench", "palette") == QLatin1String("dark");
  applyPalette(isDarkWanted ? PaletteKind::Dark : PaletteKind::Light);
  FunctionTable table;
  loadModuleOrSay(line, &table);
  DialogDriver driver;
  driver.setInteractive(true);
  HelpWindow::install();
  Workbench workbench(&table, &driver);
  const WorkbenchMenus menus(&workbench);
  workbench.show();
  if (!line.screenshot.isEmpty())
    return takeScreenshot(&workbench, &driver, line.screenshot);
  const Interruption interruption([&workbench] {
    workbench.parts().session->stop();
    workbench.saveState();
    QCoreApplication::exit(Interruption::exitStatus());
  });
  return QApplication::exec();
}
