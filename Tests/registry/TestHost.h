#pragma once

#include "Call/HostApplication.h"
#include "Call/HostCall.h"
#include "Drive/DialogActions.h"
#include "Drive/DialogDriver.h"
#include "HostSupport/Registry.h"
#include "Script/ScriptEngine.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

/// A module: its functions and commands, and the entries that it serves to others.
struct LoadedModule {
  FunctionTable table;
  std::vector<DynFuncDefRecord> served;

  void load(const QString& file);
};

/// The call that a sample makes; its function is null where the last one is none of the registry.
struct SampleCall {
  const FunctionInfo* function = nullptr;
  std::vector<ScriptVector> arguments;
};

/// The development host as the tests over the whole registry use it: offscreen, with settings and
/// folders of its own, the real module loaded, and every Qt warning kept.
class TestHost {
public:
  TestHost(int& argc, char** argv);
  ~TestHost();
  static TestHost& instance();

  FunctionTable& table() { return m_module.table; }
  const LoadedModule& module() const { return m_module; }
  /// A module of the tests', so that typed functions, commands and entries are met before the real
  /// one has all of them.
  const LoadedModule& echoModule();
  ScriptEngine& engine() { return *m_engine; }
  DialogDriver& driver() { return *m_driver; }

  /// All that a dialog could leave behind: the files of the settings (but for the remembered
  /// geometry), of the temporary and the current folder with their contents, the clipboard, and the
  /// number of windows.
  QByteArray traces() const;
  void forgetSettings(); ///< where dialogs were above all
  QStringList takeWarnings();

  /// Runs a sample with `act` as the user of its first dialog, where it opens one that it waits
  /// for; closes the windows that it leaves open.
  ScriptEngine::Outcome runSample(const QString& file,
                                  const std::function<void(DialogActions&)>& act);
  /// Accepts the dialog of a sample, in which a line "// Types: …" says what a user has to type
  /// before.
  static void accept(const QString& sampleFile, DialogActions& dialog);
  /// Taken from a run of the sample that cancels its dialog, so that a test can repeat it without
  /// the script engine.
  SampleCall callIn(const QString& sample);
  void closeDetachedWindows();

  /// Samples of all functions, sorted. A line "// Opens: no dialog" in a sample says that its
  /// function opens none and waits for it.
  static QStringList allSampleFiles();
  static QStringList sampleFiles(); ///< of those that open one
  static bool opensDialog(const QString& sampleFile);

private:
  QTemporaryDir m_folder;
  HostApplication m_application;
  LoadedModule m_module;
  LoadedModule m_echoModule;
  std::unique_ptr<DialogDriver> m_driver;
  std::unique_ptr<ScriptEngine> m_engine;
};

/// A seed from the environment variable KV_SEED, else from the clock; printed, so that a failure
/// can be seen again.
unsigned testSeed();
