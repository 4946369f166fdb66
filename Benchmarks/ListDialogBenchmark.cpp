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

std::vector<QByteArray> scriptTexts(int64_t count) {
  std::vector<QByteArray> made;
  for (int64_t row = 0; row < count; ++row)
    made.push_back(QByteArray::fromStdString(textOf(row)));
  return made;
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
  const std::vector<ScriptVector> arguments{ScriptVector::ofStrings({"V(out)"}),
                                            ScriptVector::ofStrings(scriptTexts(state.range(0)))};
  for (auto _ : state)
    state.SetIterationTime(
        PaintedDialogs::secondsToPaint([&] { callHandler(*function, arguments); }));
}

/// `word`: "sorted", or nothing.
void selectDialog(benchmark::State& state, const char* word) {
  const FunctionInfo* function = functionTable().find(QStringLiteral("SelectDialog"));
  const std::vector<ScriptVector> arguments{
      ScriptVector::ofStrings({"Select Net", "Net:", "Single", word}),
      ScriptVector::ofStrings(scriptTexts(state.range(0)))};
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

/// A device list or a selection table with the same lines.
void tableDialog(benchmark::State& state, const char* name) {
  const FunctionInfo* function = functionTable().find(QLatin1String(name));
  std::vector<QByteArray> lines;
  for (int64_t row = 0; row < state.range(0); ++row)
    lines.push_back("N" + QByteArray::number(qint64((row * 7919) % state.range(0))) + ";" +
                    QByteArray::number(int(row % 300)) + ";60;5m;SO-8");
  const ScriptVector headings =
      ScriptVector::ofStrings({"Part", "Current", "Voltage", "Resistance", "Package"});
  const std::vector<ScriptVector> arguments{ScriptVector::ofStrings(lines),
                                            ScriptVector::ofStrings({"Parts"}), headings};
  for (auto _ : state)
    state.SetIterationTime(
        PaintedDialogs::secondsToPaint([&] { callHandler(*function, arguments); }));
}

/// The lengths, and the clock that stands still outside the dialog.
void inLengths(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MinTime(2)->UseManualTime();
}

BENCHMARK_CAPTURE(bareList, plain, false)->Apply(inLengths);
BENCHMARK_CAPTURE(bareList, uniform, true)->Apply(inLengths);
BENCHMARK(addRemoveDialog)->Apply(inLengths);
BENCHMARK_CAPTURE(selectDialog, asGiven, "")->Apply(inLengths);
BENCHMARK_CAPTURE(selectDialog, sorted, "sorted")->Apply(inLengths);
BENCHMARK_CAPTURE(bareTree, plain, false)->Apply(inLengths);
BENCHMARK_CAPTURE(bareTree, uniform, true)->Apply(inLengths);
BENCHMARK(manageDataGroupsDialog)->Apply(inLengths);
BENCHMARK_CAPTURE(tableDialog, devices, "SelectDeviceDialog")->Apply(inLengths);
BENCHMARK_CAPTURE(tableDialog, selection, "DefineSelectionTableDialog")->Apply(inLengths);
BENCHMARK_CAPTURE(tableDialog, tests, "SelectTest")->Apply(inLengths);

} // namespace

int main(int argc, char** argv) {
  return runDialogBenchmarks(argc, argv);
}
