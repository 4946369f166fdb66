#include "Core/Analog/PartCatalogue.h"
#include "PaintedDialogs.h"

#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QVBoxLayout>

#include <cstring>

// A keystroke of a part search: the catalogue's part of it against a memmem scan of the same folded
// names, and all of it, from the key to the painted list, against a plain QListWidget that is
// refilled with the same names.

namespace {

/// What is typed: it is in all names, in some, in few, in none.
const char* const texts[] = {"r", "17", "r4217", "ohm"};

std::vector<QByteArray> catalogueLines(int64_t count) {
  std::vector<QByteArray> lines;
  for (int64_t line = 0; line < count; ++line)
    lines.push_back("Resistor R" + QByteArray::number(qint64((line * 7919) % count)) +
                    " 0603 1 %;Passives|Resistors;" + QByteArray::number(qint64(line)) + ";symbol");
  return lines;
}

struct Script {
  explicit Script(int64_t count) : lines(catalogueLines(count)) {
    for (const QByteArray& line : lines)
      raw.push_back(line.constData());
  }
  Texts view() const { return {raw.data(), static_cast<unsigned>(raw.size())}; }

  std::vector<QByteArray> lines;
  std::vector<const char*> raw;
};

void open(benchmark::State& state) {
  const Script script(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(PartCatalogue(script.view()).count());
  state.SetComplexityN(state.range(0));
}

void search(benchmark::State& state) {
  const Script script(state.range(0));
  PartCatalogue catalogue(script.view());
  PartCatalogue::Lines found;
  const QString text = QString::fromLatin1(texts[state.range(1)]);
  for (auto _ : state)
    catalogue.search(text, false, &found);
  state.counters["found"] = static_cast<double>(found.size());
  state.SetComplexityN(state.range(0));
}

#ifdef __GLIBC__
void scan(benchmark::State& state) {
  std::string folded;
  for (const QByteArray& line : catalogueLines(state.range(0)))
    folded += line.left(line.indexOf(';')).toLower().toStdString() + '\0';
  const char* const text = texts[state.range(1)];
  const char* const end = folded.data() + folded.size();
  for (auto _ : state) {
    int64_t found = 0;
    for (const char* at = folded.data();; ++found) {
      const void* match = memmem(at, static_cast<std::size_t>(end - at), text, std::strlen(text));
      if (!match)
        break;
      at = static_cast<const char*>(match);
      at += std::strlen(at) + 1; // the next name
    }
    benchmark::DoNotOptimize(found);
    state.counters["found"] = static_cast<double>(found);
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(scan)
    ->ArgsProduct({{10000, 100000, 1000000}, {0, 1, 2, 3}})
    ->Unit(benchmark::kMillisecond);
#endif

/// The seconds that `act` takes in an open dialog, until all is painted.
template <class Act> double secondsOf(QDialog* dialog, Act act) {
  QCoreApplication::processEvents();
  const auto start = PaintedDialogs::Clock::now();
  act();
  QCoreApplication::processEvents();
  dialog->repaint();
  return std::chrono::duration<double>(PaintedDialogs::Clock::now() - start).count();
}

void dialogKey(benchmark::State& state) {
  const FunctionInfo* function = functionTable().find(QStringLiteral("SearchDialog"));
  const std::vector<ScriptVector> arguments{
      ScriptVector::ofStrings(catalogueLines(state.range(0)))};
  const QString text = QString::fromLatin1(texts[state.range(1)]);
  PaintedDialogs::onPaint = [&](QDialog* dialog) {
    auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("searchEdit"));
    for (auto _ : state) {
      edit->setText(text.chopped(1));
      state.SetIterationTime(secondsOf(dialog, [&] { edit->setText(text); }));
    }
  };
  callHandler(*function, arguments);
  PaintedDialogs::onPaint = nullptr;
  state.SetComplexityN(state.range(0));
}

void refilledList(benchmark::State& state) {
  const Script script(state.range(0));
  PartCatalogue catalogue(script.view());
  PartCatalogue::Lines found;
  catalogue.search(QString::fromLatin1(texts[state.range(1)]), false, &found);
  QStringList names;
  for (int line : found)
    names.append(catalogue.shownName(line));
  QDialog dialog;
  auto* layout = new QVBoxLayout(&dialog);
  auto* list = new QListWidget(&dialog);
  list->setUniformItemSizes(true);
  layout->addWidget(list);
  dialog.show();
  for (auto _ : state)
    state.SetIterationTime(secondsOf(&dialog, [&] {
      list->clear();
      list->addItems(names);
    }));
  state.SetComplexityN(state.range(0));
}

void inLengths(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgsProduct({{10000, 100000, 1000000}, {0, 1, 2, 3}})->Unit(benchmark::kMillisecond);
}

BENCHMARK(open)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(search)->Apply(inLengths);
BENCHMARK(dialogKey)->Apply(inLengths)->UseManualTime();
BENCHMARK(refilledList)->Apply(inLengths)->UseManualTime();

} // namespace

int main(int argc, char** argv) {
  return runDialogBenchmarks(argc, argv);
}
