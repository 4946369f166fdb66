#include "PaintedDialogs.h"

#include <QDir>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

// From the call to the first paint of the directory tree, opened at a directory with as many
// directories as files in it, against a plain QTreeWidget in a bare QDialog that is filled from the
// same directory in the same process.

namespace {

/// Made once for each size, and removed with the program.
QString directoryWith(int64_t count) {
  static QTemporaryDir root;
  QDir directory(root.filePath(QString::number(count)));
  if (directory.exists())
    return directory.path();
  directory.mkpath(QStringLiteral("."));
  for (int64_t i = 0; i < count; ++i) {
    directory.mkdir(QStringLiteral("run_%1").arg(i));
    QFile(directory.filePath(QStringLiteral("run_%1.raw").arg(i))).open(QIODevice::WriteOnly);
  }
  return directory.path();
}

void bareTree(benchmark::State& state) {
  const QDir directory(directoryWith(state.range(0)), QString(), QDir::Name | QDir::IgnoreCase,
                       QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_DirIcon);
  for (auto _ : state)
    state.SetIterationTime(PaintedDialogs::secondsToPaint([&] {
      QDialog dialog;
      auto* layout = new QVBoxLayout(&dialog);
      auto* tree = new QTreeWidget(&dialog);
      auto* root = new QTreeWidgetItem(tree, {directory.path()});
      for (const QFileInfo& entry : QDir(directory).entryInfoList())
        if (entry.isDir())
          (new QTreeWidgetItem(root, {entry.fileName()}))->setIcon(0, icon);
      root->setExpanded(true);
      layout->addWidget(tree);
      dialog.exec();
    }));
}

void chooseDir(benchmark::State& state) {
  const FunctionInfo* function = functionTable().find(QStringLiteral("ChooseDir"));
  const std::vector<ScriptVector> arguments{
      ScriptVector::ofStrings({directoryWith(state.range(0)).toUtf8()})};
  for (auto _ : state)
    state.SetIterationTime(
        PaintedDialogs::secondsToPaint([&] { callHandler(*function, arguments); }));
}

BENCHMARK(bareTree)
    ->Arg(5000)
    ->Arg(50000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();
BENCHMARK(chooseDir)
    ->Arg(5000)
    ->Arg(50000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();

} // namespace

int main(int argc, char** argv) {
  return runDialogBenchmarks(argc, argv);
}
