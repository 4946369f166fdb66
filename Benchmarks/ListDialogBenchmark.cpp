#include "PaintedDialogs.h"

#include <QListWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

// From the call to the first paint of a box with a long list, against a plain QListWidget or
// QTreeWidget in a bare QDialog, filled with the same texts in the same process.

namespace {

std::string textOf(int64_t row) {
  return "V(net_" + std::to_string(row) + ")";
}

/// `uniform`: the view is told that its rows are of one size, as few programs do.
void bareList(benchmark::State& state, bool uniform) {
  QStringList texts;
  for (int64_t row = 0; row < state.range(0); ++row)
    texts.append(QString::fromStdString(textOf(row)));
  for (auto _ : state)
    state.SetIterationTime(PaintedDialogs::secondsToPaint([&] {
      QDialog dialog;
      auto* layout = new QVBoxLayout(&dialog);
      auto* list = new QListWidget(&dialog);
      list->setUniformItemSizes(uniform);
      list->addItems(texts);
      layout->addWidget(list);
      dialog.exec();
    }));
}

void addRemoveDialog(benchmark::State& state) {
  const FunctionInfo* function = functionTable().find(QStringLiteral("AddRemoveDialog"));
  std::vector<QByteArray> texts;
  for (int64_t row = 0; row < state.range(0); ++row)
    texts.push_back(QByteArray::fromStdString(textOf(row)));
  const std::vector<ScriptVector> arguments{ScriptVector::ofStrings({"V(out)"}),
                                            ScriptVector::ofStrings(texts)};
  for (auto _ : state)
    state.SetIterationTime(
        PaintedDialogs::secondsToPaint([&] { callHandler(*function, arguments); }));
}

QStringList groupOf(int64_t row) {
  return {QStringLiteral("tran%1").arg(row), QStringLiteral("Start-up, run %1").arg(row),
          QStringLiteral("Transient"), row == 0 ? QStringLiteral("current") : QString()};
}

void bareTree(benchmark::State& state, bool uniform) {
  QList<QStringList> groups;
  for (int64_t row = 0; row < state.range(0); ++row)
    groups.append(groupOf(row));
  for (auto _ : state)
    state.SetIterationTime(PaintedDialogs::secondsToPaint([&] {
      QDialog dialog;
      auto* layout = new QVBoxLayout(&dialog);
      auto* tree = new QTreeWidget(&dialog);
      tree->setColumnCount(4);
      tree->setUniformRowHeights(uniform);
      QList<QTreeWidgetItem*> items;
      for (const QStringList& texts : groups)
        items.append(new QTreeWidgetItem(texts));
      tree->addTopLevelItems(items);
      layout->addWidget(tree);
      dialog.exec();
    }));
}

void manageDataGroupsDialog(benchmark::State& state) {
  const FunctionInfo* function = functionTable().find(QStringLiteral("ManageDataGroupsDialog"));
  std::vector<QByteArray> lines;
  for (int64_t row = 0; row < state.range(0); ++row)
    lines.push_back(groupOf(row).join(QLatin1Char(';')).toUtf8());
  const std::vector<ScriptVector> arguments{ScriptVector::ofStrings(lines)};
  for (auto _ : state)
    state.SetIterationTime(
        PaintedDialogs::secondsToPaint([&] { callHandler(*function, arguments); }));
}

BENCHMARK_CAPTURE(bareList, plain, false)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();
BENCHMARK_CAPTURE(bareList, uniform, true)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();
BENCHMARK(addRemoveDialog)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();
BENCHMARK_CAPTURE(bareTree, plain, false)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();
BENCHMARK_CAPTURE(bareTree, uniform, true)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();
BENCHMARK(manageDataGroupsDialog)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();

} // namespace

int main(int argc, char** argv) {
  return runDialogBenchmarks(argc, argv);
}
