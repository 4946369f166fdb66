#pragma once

#include "Call/HostCall.h"
#include "Drive/DialogActions.h"
#include "Drive/DialogDriver.h"
#include "Script/ScriptEngine.h"

#include <QApplication>
#include <QTemporaryDir>

#include <functional>

/// The development host as the tests over the whole registry use it: offscreen, with settings of
/// its own, the real module loaded, and every Qt warning kept.
class TestHost {
public:
  TestHost(int& argc, char** argv);
  ~TestHost();
  static TestHost& instance();

  FunctionTable& table() { return m_table; }
  ScriptEngine& engine() { return *m_engine; }
  DialogDriver& driver() { return *m_driver; }
  QString settingsDir() const { return m_settings.path(); }

  /// Files of the settings folder with their contents, but for the remembered window geometry.
  QByteArray settingsSnapshot() const;
  QStringList takeWarnings();

  /// Runs a sample with `act` as the user of its first dialog.
  ScriptEngine::Outcome runSample(const QString& file,
                                  const std::function<void(DialogActions&)>& act);

  /// Samples of all functions that open a dialog and wait for it, sorted. A line "// Opens: no
  /// dialog" in a sample says that its function does not.
  static QStringList sampleFiles();

private:
  QTemporaryDir m_settings;
  QApplication m_application;
  FunctionTable m_table;
  std::unique_ptr<DialogDriver> m_driver;
  std::unique_ptr<ScriptEngine> m_engine;
};

/// A seed from the environment variable KV_SEED, else from the clock; printed, so that a failure
/// can be seen again.
unsigned testSeed();
