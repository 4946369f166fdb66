#include "Tour/Tour.h"

#include "Call/FunctionTable.h"
#include "DialogAcceptor.h"
#include "Drive/DialogActions.h"
#include "Drive/DialogDriver.h"
#include "HostSupport/Files.h"
#include "HostSupportQt/Text.h"
#include "Interruption.h"
#include "Output.h"
#include "Script/ScriptEngine.h"
#include "ScriptCommands.h"
#include "Tour/TourPage.h"

#include <QCoreApplication>
#include <QDir>
#include <QSaveFile>
#include <QTemporaryDir>

namespace {

constexpr int stuckAfter = 60; // seconds

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(Tour)
};

/// Beside the program's folder in a build; where that is not ours to write, in the present folder.
QString defaultFolder() {
  const QString build =
      QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/.."));
  const QString parent = sp_DirectoryIsWriteable(toYs(build)) ? build : QDir::currentPath();
  return parent + QStringLiteral("/tour");
}

bool writePage(const QString& path, const QString& page) {
  QSaveFile file(path);
  const QByteArray bytes = page.toUtf8();
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

} // namespace

Tour::Tour(FunctionTable* table, DialogDriver* driver, const CommandLine& line)
    : m_table(table), m_driver(driver), m_line(line),
      m_folder(line.outDir.isEmpty() ? defaultFolder() : line.outDir) {}

int Tour::run() {
  if (!QDir().mkpath(m_folder)) {
    printError(Texts::tr("The folder %1 cannot be made.").arg(QDir::toNativeSeparators(m_folder)));
    return 1;
  }
  QStringList missing;
  const QVector<Sample> samples = chosenSamples(&missing);
  for (const QString& name : qAsConst(missing))
    printError(Texts::tr("There is no sample %1 in %2.").arg(name, samplesDir()));

  QVector<TourEntry> entries;
  int pictures = 0;
  int failed = missing.size();
  for (const Sample& sample : samples) {
    const TourEntry entry = visit(sample);
    if (Interruption::wasAsked())
      return Interruption::exitStatus();
    for (const QString& fault : entry.faults)
      printError(QStringLiteral("%1: %2").arg(sample.name, fault));
    if (!entry.faults.isEmpty())
      ++failed;
    else if (!printLine(QStringLiteral("%1 → %2").arg(sample.name, entry.result)))
      return 1;
    pictures += entry.pictures.size() * (m_line.dark ? 2 : 1);
    entries.append(entry);
  }

  const QString index = m_folder + QStringLiteral("/index.html");
  if (!writePage(index, tourPage(entries, m_folder))) {
    printError(Texts::tr("%1 cannot be written.").arg(QDir::toNativeSeparators(index)));
    return 1;
  }
  printLine(Texts::tr("%1 samples, %2 failed, %3 pictures: %4")
                .arg(entries.size())
                .arg(failed)
                .arg(pictures)
                .arg(QDir::toNativeSeparators(index)));
  return failed == 0 ? 0 : 1;
}

QVector<Sample> Tour::chosenSamples(QStringList* missing) const {
  if (m_line.words.isEmpty())
    return readSamples();
  QVector<Sample> samples;
  for (const QString& name : m_line.words) {
    if (const auto sample = readSample(name))
      samples.append(*sample);
    else
      missing->append(name);
  }
  return samples;
}

TourEntry Tour::visit(const Sample& sample) {
  TourEntry entry;
  entry.sample = sample;
  open(PaletteKind::Light, &entry);
  if (m_line.dark && entry.faults.isEmpty() && !Interruption::wasAsked())
    open(PaletteKind::Dark, &entry);
  return entry;
}

void Tour::open(PaletteKind palette, TourEntry* entry) {
  applyPalette(palette);
  m_driver->clearFailures();
  int number = 0;
  const DialogAcceptor acceptor(
      m_driver, [&](QWidget* dialog) { takePicture(dialog, palette, ++number, entry); },
      entry->sample.typed);
  ScriptEngine engine(m_table, m_driver);
  engine.setTimeout(stuckAfter);
  engine.setMemoryLimit(ScriptEngine::usualMemoryLimit());
  QObject::connect(&engine, &ScriptEngine::printed, &printLine);
  const Interruption interruption(m_driver, &engine);
  const ScriptEngine::Outcome outcome = engine.evaluate(entry->sample.text, entry->sample.file);

  // Windows that the call does not wait for: a viewer, say.
  for (QWidget* window : m_driver->detachedWindows()) {
    takePicture(window, palette, ++number, entry);
    window->close();
  }
  if (!outcome.ok)
    entry->faults << outcome.error;
  entry->faults << m_driver->failures();
  if (number == 0 && outcome.ok && entry->sample.opensDialog)
    entry->faults << Texts::tr("It opened no dialog.");
  entry->faults.removeDuplicates();
  entry->result = outcome.ok ? engine.toJson(outcome.value) : QString();
}

void Tour::takePicture(QWidget* dialog, PaletteKind palette, int number, TourEntry* entry) {
  QString name = entry->sample.name;
  if (number > 1)
    name += QStringLiteral("-%1").arg(number);
  if (!entry->pictures.contains(name))
    entry->pictures << name;
  const QString file = pictureFile(name, palette == PaletteKind::Dark, m_line.scale);
  try {
    DialogActions(dialog).screenshot(m_folder + QLatin1Char('/') + file);
  } catch (const DriveError& error) {
    entry->faults << QString::fromUtf8(error.what());
  }
}

int runTour(const CommandLine& line) {
  // Pictures must not depend on the sizes that somebody left their dialogs in.
  const QTemporaryDir settings;
  if (line.settingsDir.isEmpty())
    sp_SetSettingsDir(toYs(settings.path()));
  FunctionTable table;
  loadModule(line, &table);
  DialogDriver driver;
  return Tour(&table, &driver, line).run();
}
