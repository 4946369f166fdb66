#include "PaintedDialogs.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <functional>

// A file-defined source of many lines, against a plain QTableWidget that is given the same cells in
// the same process: from the call to the first paint, and what a paste and an OK take.

namespace {

constexpr int columns = 3;

std::vector<QByteArray> linesOf(int64_t count) {
  std::vector<QByteArray> lines;
  for (int64_t row = 0; row < count; ++row)
    lines.push_back(QByteArray::number(1e-6 * double(row)) + '\t' +
                    QByteArray::number(int(row % 7)));
  return lines;
}

void fill(QTableWidget* table, const std::vector<QByteArray>& lines) {
  table->setRowCount(int(lines.size()));
  for (int row = 0; row < table->rowCount(); ++row) {
    const QList<QByteArray> fields = lines[std::size_t(row)].split('\t');
    for (int column = 0; column < columns; ++column)
      table->setItem(row, column,
                     new QTableWidgetItem(column < 2 ? QString::fromLatin1(fields[column])
                                                     : QStringLiteral("Select...")));
  }
}

void bareTable(benchmark::State& state) {
  const std::vector<QByteArray> lines = linesOf(state.range(0));
  for (auto _ : state)
    state.SetIterationTime(PaintedDialogs::secondsToPaint([&] {
      QDialog dialog;
      auto* layout = new QVBoxLayout(&dialog);
      auto* table = new QTableWidget(0, columns, &dialog);
      fill(table, lines);
      layout->addWidget(table);
      dialog.exec();
    }));
}

/// The seconds that a plain table takes to be emptied and filled anew, as a paste would.
void bareRefill(benchmark::State& state) {
  const std::vector<QByteArray> lines = linesOf(state.range(0));
  QTableWidget table(0, columns);
  for (auto _ : state) {
    table.setRowCount(0);
    fill(&table, lines);
  }
}

/// The seconds that a plain table takes to give its cells as lines.
void bareRead(benchmark::State& state) {
  QTableWidget table(0, columns);
  fill(&table, linesOf(state.range(0)));
  for (auto _ : state)
    for (int row = 0; row < table.rowCount(); ++row)
      benchmark::DoNotOptimize(
          (table.item(row, 0)->text() + QLatin1Char('\t') + table.item(row, 1)->text()).toUtf8());
}

std::vector<ScriptVector> argumentsFor(int64_t count) {
  return {ScriptVector::ofStrings(linesOf(count)),
          ScriptVector::ofStrings({"0", "0", "0", "points.txt", "Disk"})};
}

const FunctionInfo& function() {
  return *functionTable().find(QStringLiteral("EditFileDefinedPWLDialog"));
}

void openDialog(benchmark::State& state) {
  const std::vector<ScriptVector> arguments = argumentsFor(state.range(0));
  for (auto _ : state)
    state.SetIterationTime(
        PaintedDialogs::secondsToPaint([&] { callHandler(function(), arguments); }));
}

/// Runs the dialog, clicks a button in it once it has painted itself, and gives the seconds from
/// the click to the end of the call.
double secondsFromClick(const char* button, const std::vector<ScriptVector>& arguments) {
  PaintedDialogs::Clock::time_point start;
  PaintedDialogs::onPaint = [&](QDialog* dialog) {
    start = PaintedDialogs::Clock::now();
    dialog->findChild<QPushButton*>(QLatin1String(button))->click();
  };
  callHandler(function(), arguments);
  PaintedDialogs::onPaint = nullptr;
  return std::chrono::duration<double>(PaintedDialogs::Clock::now() - start).count();
}

void pasteInDialog(benchmark::State& state) {
  QByteArray text;
  for (const QByteArray& line : linesOf(state.range(0)))
    text += line + '\n';
  QGuiApplication::clipboard()->setText(QString::fromLatin1(text));
  const std::vector<ScriptVector> arguments = argumentsFor(2);
  for (auto _ : state)
    state.SetIterationTime(secondsFromClick("pasteButton", arguments));
}

void acceptDialog(benchmark::State& state) {
  const std::vector<ScriptVector> arguments = argumentsFor(state.range(0));
  for (auto _ : state)
    state.SetIterationTime(secondsFromClick("okButton", arguments));
}

void inLengths(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(bareTable)->Apply(inLengths)->UseManualTime();
BENCHMARK(openDialog)->Apply(inLengths)->UseManualTime();
BENCHMARK(bareRefill)->Apply(inLengths);
BENCHMARK(pasteInDialog)->Apply(inLengths)->UseManualTime();
BENCHMARK(bareRead)->Apply(inLengths);
BENCHMARK(acceptDialog)->Apply(inLengths)->UseManualTime();

} // namespace

int main(int argc, char** argv) {
  return runDialogBenchmarks(argc, argv);
}
