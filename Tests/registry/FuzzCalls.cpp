#include "Chance.h"
#include "GuardedCall.h"
#include "ServedEntries.h"
#include "TestHost.h"

#include "HostSupport/System.h"
#include "Services/Commands.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

// Calls every registered function with random counts, kinds and contents, plays with the dialog
// that opens, and accepts or cancels it. Nothing may crash, hang or trip a sanitizer. A function
// that is added to the module is found here by itself.

namespace {

double randomReal(Chance& chance) {
  static const double corners[] = {0,
                                   -0.0,
                                   1,
                                   -1,
                                   4.7e3,
                                   1e-18,
                                   1e18,
                                   -1e300,
                                   2147483648.0,
                                   -2147483649.0,
                                   std::numeric_limits<double>::max(),
                                   std::numeric_limits<double>::denorm_min(),
                                   std::numeric_limits<double>::infinity(),
                                   -std::numeric_limits<double>::infinity(),
                                   std::nan("")};
  return chance.one(3) ? chance.of(corners)
                       : std::pow(10.0, chance.below(60) - 30) * (chance.below(2000) - 1000);
}

QByteArray randomText(Chance& chance) {
  static const char* const words[] = {"",
                                      "0",
                                      "1",
                                      "-1",
                                      "true",
                                      "false",
                                      "4.7k",
                                      "2Meg",
                                      "1e400",
                                      "nan",
                                      "{2*Rload}",
                                      "{",
                                      "Switch",
                                      "DIGITALPULSE",
                                      "Transformer",
                                      "TransmissionLine",
                                      "a;b;c",
                                      ";;;",
                                      "a|b|c",
                                      "label:real:0|10|1",
                                      "&Ok",
                                      "&&",
                                      "<b>x</b>",
                                      "line\nbreak",
                                      "\r\n\t",
                                      "C:\\x\\y",
                                      "/tmp",
                                      "2147483648",
                                      "%s%n%d",
                                      "multiple",
                                      "sorted",
                                      "\xff\xfe",
                                      "\xc3\x28",
                                      "\xed\xa0\x80",
                                      "µΩ – 電圧"};
  if (chance.one(40))
    return QByteArray(chance.below(100000), 'x');
  if (chance.one(4)) {
    QByteArray text;
    for (int i = chance.below(20); i > 0; --i)
      text.append(char(1 + chance.below(255)));
    return text;
  }
  return chance.of(words);
}

int randomCount(Chance& chance) {
  return chance.one(50)   ? chance.below(1000000)
         : chance.one(10) ? chance.below(200)
                          : chance.below(8);
}

ScriptVector randomVector(Chance& chance, ArgType declared) {
  const bool asDeclared = !chance.one(6);
  const bool strings =
      asDeclared ? declared == StringArg || (declared == AnyArg && chance.one(2)) : chance.one(2);
  const int count = randomCount(chance);
  if (strings) {
    std::vector<QByteArray> texts;
    const QByteArray filling = randomText(chance);
    for (int i = 0; i < count; ++i)
      texts.push_back(i < 100 ? randomText(chance) : filling.left(8));
    return ScriptVector::ofStrings(std::move(texts));
  }
  std::vector<double> values;
  for (int i = 0; i < count; ++i)
    values.push_back(randomReal(chance));
  return ScriptVector::ofReals(std::move(values));
}

void playWith(DialogActions& dialog, Chance& chance) {
  static const char* const keys[] = {"Tab", "Up",     "Down", "PgUp", "Ctrl+A", "Ctrl+V", "Ctrl+X",
                                     "F2",  "Delete", "Home", "End",  "Space",  "Right",  "Alt+O"};
  const QStringList names = dialog.names();
  for (int step = chance.below(8); step > 0 && dialog.isOpen() && !names.isEmpty(); --step) {
    const QString name = names[chance.below(names.size())];
    try {
      switch (chance.below(5)) {
      case 0:
        dialog.type(name, QString::fromUtf8(randomText(chance).left(200)));
        break;
      case 1:
        dialog.key(name, QString::fromLatin1(chance.of(keys)));
        break;
      case 2:
        dialog.click(name);
        break;
      case 3:
        dialog.set(name, chance.one(2) ? QVariant(randomReal(chance)) : QVariant(chance.one(2)));
        break;
      default:
        dialog.key(QString(), QString::fromLatin1(chance.of(keys)));
      }
    } catch (const DriveError&) {
      // A user could not have done this either.
    }
  }
  if (!dialog.isOpen())
    return;
  try {
    chance.one(2) ? dialog.accept() : chance.one(2) ? dialog.reject() : dialog.close();
  } catch (const DriveError&) {
  }
}

/// Makes the call and plays with the dialog that it opens, where it opens one.
void playing(Chance& chance, const std::function<void()>& call) {
  TestHost& host = TestHost::instance();
  host.driver().beginScope();
  host.driver().onDialog([&chance](QWidget* widget) {
    DialogActions dialog(widget);
    playWith(dialog, chance);
  });
  call();
  host.driver().endScope();
  host.driver().clearFailures();
  host.closeDetachedWindows();
}

void callOnce(const FunctionInfo& function, Chance& chance) {
  std::vector<ScriptVector> arguments;
  for (int i = 0, count = chance.below(function.maxArgs + 1); i < count; ++i)
    arguments.push_back(randomVector(chance, function.argTypes.value(i, AnyArg)));
  EXPECT_TRUE(keepsToItsResult(function, arguments))
      << qPrintable(function.name) << " writes outside of its result";
}

void commandOnce(const FunctionTable& table, const QString& name, Chance& chance) {
  QString line = name;
  for (int i = chance.below(5); i > 0; --i) {
    const QString word = QString::fromUtf8(randomText(chance));
    line += QStringLiteral(" \"%1\"").arg(
        QString(word).replace(QLatin1Char('"'), QStringLiteral("\"\"")));
  }
  try {
    runCommand(table, line);
  } catch (const CallError&) {
    // What it does not take it may refuse.
  }
}

int callsOfEach() {
  const int rounds = qEnvironmentVariableIntValue("KV_FUZZ_ROUNDS");
  return rounds > 0 ? rounds : 200;
}

void fuzz(const LoadedModule& module, const FunctionInfo& function, Chance& chance) {
  const int calls = callsOfEach();
  for (int i = 0; i < calls; ++i)
    playing(chance, [&] {
      if (function.kind == FunctionInfo::Kind::Command)
        commandOnce(module.table, function.name, chance);
      else
        callOnce(function, chance);
    });
  std::printf("%s: %d calls\n", qPrintable(function.name), calls);
}

void fuzzEntries(const LoadedModule& module, Chance& chance) {
  for (const DynFuncDefRecord& record : module.served) {
    const ServedEntry* entry = servedEntry(record.name);
    ASSERT_TRUE(entry) << "ServedEntries.cpp does not say how to call " << record.name;
    const int calls = callsOfEach();
    for (int i = 0; i < calls; ++i)
      playing(chance, [&] { entry->call(record.entry, unsigned(chance.below(1 << 20))); });
    std::printf("%s: %d calls\n", record.name.c_str(), calls);
  }
}

} // namespace

TEST(FuzzCalls, NothingCrashesOrHangs) {
  Chance chance(testSeed());
  const LoadedModule& module = TestHost::instance().module();
  for (const FunctionInfo& function : module.table.functions())
    fuzz(module, function, chance);
  fuzzEntries(module, chance);
  EXPECT_TRUE(TestHost::instance().driver().openDialogs().isEmpty());
}

TEST(FuzzCalls, ReachesEveryKind) {
  static int messages = 0;
  sp_SetMessageSink([](const char*) { ++messages; });
  Chance chance(testSeed());
  const LoadedModule& echo = TestHost::instance().echoModule();
  for (const char* name : {"EchoAny", "Kinds", "Shape", "Note"})
    fuzz(echo, *echo.table.find(QLatin1String(name)), chance);
  fuzzEntries(echo, chance);
  EXPECT_GT(messages, 0) << "the command's words did not reach it";
  EXPECT_EQ(echo.served.size(), 1u);
  EXPECT_FALSE(keepsToItsResult(*echo.table.find(QStringLiteral("WriteTooFar")), {}));
  sp_SetMessageSink(nullptr);
}
