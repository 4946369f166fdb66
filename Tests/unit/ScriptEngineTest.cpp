// What scripts see of the host: conversions, faults, checks, services. The functions come from the
// module Tests/modules/EchoModule.cpp.

#include "ScriptFixture.h"

#include "Call/HostApplication.h"
#include "HostSupport/Files.h"
#include "HostSupport/HostSupport.h"
#include "HostSupport/Registry.h"
#include "HostSupportQt/Help.h"
#include "HostSupportQt/Paste.h"
#include "OwnTempDir.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJSEngine>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

using ScriptEngineTest = ScriptFixture;
using Case = ScriptCase;

} // namespace

TEST_F(ScriptEngineTest, convertsArgumentsAndResults) {
  const Case cases[] = {
      {"EchoReals(4.5)", "[4.5]"},
      {"EchoReals(true)", "[1]"},
      {"EchoReals([1, 2, 3])", "[1,2,3]"},
      {"EchoReals([])", "[]"},
      {"EchoReals()", "[]"},
      {"EchoReals(1, undefined)", "[1]"},
      {"EchoReals(undefined, undefined)", "[]"},
      {"EchoReals(undefined, 7)", "[7]"},
      {"isNaN(EchoReals(NaN)[0])", "true"},
      {"EchoReals([Infinity])[0] === Infinity", "true"},
      {"EchoReals({y: [1, 2], x: [3, 4], divisions: 2})", "[1,2]"},
      {"EchoStrings('text')", "[\"text\"]"},
      {"EchoStrings([])", "[]"},
      {"EchoStrings(['a', 0.1, true, 1e21, NaN])", "[\"a\",\"0.1\",\"1\",\"1e21\",\"nan\"]"},
      {"EchoStrings([1, 2, 'a'])", "[\"1\",\"2\",\"a\"]"},
      {"EchoStrings('a\\u0000b')", "[\"a\"]"},
      {"EchoStrings('\\u00e9\\ud83d\\ude00') [0].length", "3"},
      {"EchoStrings('\\ud83d x \\udc00').length", "1"},
      {"EchoAny('s')", "[\"s\"]"},
      {"EchoAny([5])", "[5]"},
      {"ArgumentCount(1, undefined, undefined)", "[1]"},
      {"ArgumentCount(undefined, undefined, 5)", "[3]"},
      {"Kinds('s', {y: [1], x: [2]})", "[true,false,false,true]"},
      {"Shape({y: [1, 2, 3, 4], divisions: 2})", "[2,2]"},
      {"Kinds()", "[]"},
      {"host.call('EchoReals')", "{\"made\":false,\"type\":null,\"values\":[]}"},
      {"host.call('EmptyResult')", "{\"made\":true,\"type\":\"real\",\"values\":[]}"},
      {"host.call('EchoAny', 'x').type", "\"string\""},
      {"host.call('Kinds').type + host.call('Shape', 1).type", "\"boolint\""},
      {"Array.isArray(EchoReals(1))", "true"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(run(c.script), c.expected) << c.script;
}

TEST_F(ScriptEngineTest, refusesWithASentence) {
  const Case cases[] = {
      {"EchoReals('text')",
       "EchoReals: argument 1 must be a real vector, a string vector was given."},
      {"EchoReals(1, 2, 3, 4)", "EchoReals: takes 0 to 3 arguments, 4 were given."},
      {"EchoReals(...Array(100000).fill(1))",
       "EchoReals: takes 0 to 3 arguments, 100000 were given."},
      {"EchoStrings()", "EchoStrings: takes 1 to 2 arguments, none was given."},
      {"EchoStrings(1, 'a')",
       "EchoStrings: argument 1 must be a string vector, a real vector was given."},
      {"EchoReals(null)", "EchoReals: argument 1 must be a real vector, null was given."},
      {"EchoStrings('', print)",
       "EchoStrings: argument 2 must be a string vector, a function was given."},
      {"EchoAny({a: 1})", "EchoAny: argument 1 must be a number, a text or an array of them, an "
                          "object was given."},
      {"EchoAny(Symbol('s'))", "EchoAny: argument 1 must be a number, a text or an array of them, "
                               "a symbol was given."},
      {"EchoAny([1, null])", "EchoAny: argument 1: element [1] must be a number or a text, null "
                             "was given."},
      {"EchoAny([[1]])", "EchoAny: argument 1: element [0] must be a number or a text, an array "
                         "was given."},
      {"let a = [1]; a.length = 4294967295; EchoAny(a)",
       "EchoAny: argument 1: element [1] must be a number or a text, nothing was given."},
      {"EchoReals({y: 1})", "EchoReals: argument 1: y must be an array of numbers, a number was "
                            "given."},
      {"EchoReals({y: [1], x: [1, 2]})", "EchoReals: argument 1: y has 1 elements but x has 2."},
      {"EchoReals({y: [1, 2, 3], divisions: 2})",
       "EchoReals: argument 1: divisions must be a whole number that divides the 3 elements of y."},
      {"Fail('from the handler')", "from the handler"},
      {"host.call('Nobody')", "Nobody: there is no such function"},
      {"command('Nobody')", "Nobody: there is no such command; there are: RunBRENNIX, Note"},
      {"command('Note \"open')", "command: a quote is not closed: Note \"open"},
      {"host.wait(-1)", "host.wait: the time must be a number of milliseconds from 0 to a day"},
      {"host.onDialog(3)", "TypeError: host.onDialog: the handler must be a function, 3 was given"},
      {"host.provide('dyn_GetGraphEditData', () => 1)",
       "host.provide: dyn_GetGraphEditData is steered through host.graphs; it can only be "
       "withdrawn "
       "and brought back"},
      {"throw 'a text'", "a text"},
      {"throw undefined", "undefined"},
      {"+nothing.at.all", "ReferenceError: nothing is not defined"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(run(c.script), std::string("t.js") + (*c.script == 't' ? ": " : ":1: ") + c.expected);
}

TEST_F(ScriptEngineTest, tellsWhatAGetterThrows) {
  const char* places[] = {
      "EchoReals({get y() { THROW }})",
      "EchoReals({y: [1], get x() { THROW }})",
      "EchoReals({y: [1], get divisions() { THROW }})",
      "EchoReals(trapped)",
      "EchoReals({y: trapped})",
      "EchoReals(new (class { get y() { THROW } })())",
      "host.call('EchoStrings', trapped)",
      "host.graphs({get vectors() { THROW }})",
      "host.graphs({vectors: [{get name() { THROW }}]})",
      "host.graphs({vectors: trapped})",
      "host.analysis([{name: 'A', get type() { THROW }}])",
      "host.analysis([], {get action() { THROW }})",
      "host.symbolFileDialog({get filters() { THROW }})",
      "host.system('version', trapped)",
      "host.provide('integ', () => ({get y() { THROW }, x: [1]})); "
      "throw 'integ: ' + Apply('integ', 1)",
      "host.provide('integ', () => trapped); throw 'integ: ' + Apply('integ', 1)",
      "host.onDialog(d => { try { d.set('edit', trapped) } finally { d.reject() } }); Ask()",
      "host.onDialog(d => { try { d.click('edit', {get a() { THROW }}) } finally { d.reject() } });"
      "Ask()",
  };
  // An error, a text, and a number, which could be taken for the value.
  for (const auto value :
       {QLatin1String("new Error('boom')"), QLatin1String("'boom'"), QLatin1String("5")})
    for (const char* place : places) {
      problems.clear();
      const std::string given =
          run(QStringLiteral("var trapped = [1]; Object.defineProperty(trapped, 0, {enumerable: "
                             "true, get() { throw %1 }}); %2")
                  .arg(value, QString::fromLatin1(place).replace(
                                  QStringLiteral("THROW"), QStringLiteral("throw %1").arg(value))));
      const QString told =
          problems.isEmpty() ? QString::fromStdString(given) : QString(problems.first());
      EXPECT_TRUE(told.endsWith(value == QLatin1String("5") ? QStringLiteral(": 5")
                                                            : QStringLiteral(": boom")))
          << place << ", " << value.data() << ": " << told.toStdString();
    }
}

TEST_F(ScriptEngineTest, placesFaults) {
  write(QStringLiteral("inner.js"), "function deep() {\n  Fail('deep');\n}\n");
  const QString outer =
      write(QStringLiteral("outer.js"), "include('inner.js');\n\ndeep();\nprint('unreached');\n");
  const ScriptEngine::Outcome outcome = engine->runFile(outer);
  const QString inner = folder.filePath(QStringLiteral("inner.js"));
  EXPECT_FALSE(outcome.ok);
  EXPECT_EQ(outcome.error, inner + QStringLiteral(":2: deep"));
  EXPECT_EQ(problems, (QStringList{inner + QStringLiteral(":2: deep"),
                                   QStringLiteral("    in deep (%1:2)").arg(inner),
                                   QStringLiteral("    in script (%1:3)").arg(outer)}));
  EXPECT_TRUE(printed.isEmpty());
  EXPECT_TRUE(engine->hasFailed());
  EXPECT_EQ(engine->summary(), QStringLiteral("0 passed, 1 failed"));

  const QString broken = write(QStringLiteral("broken.js"), "\n\nlet = ;\n");
  EXPECT_TRUE(engine->runFile(broken).error.startsWith(broken + QStringLiteral(":3: SyntaxError")));
  const QString loop = write(QStringLiteral("loop.js"), "include('loop.js')");
  problems.clear();
  run("function f() { return f(); } f()");
  EXPECT_LT(problems.size(), 20);
  EXPECT_EQ(run("throw new Error('two\\nlines')"), "t.js:1: two lines");
  EXPECT_EQ(run("throw new (class Own extends Error {})('own')"), "t.js:1: own");
  EXPECT_TRUE(engine->runFile(loop).error.contains(QStringLiteral("more than 64 deep")));
  EXPECT_TRUE(engine->runFile(folder.filePath(QStringLiteral("none.js")))
                  .error.contains(QStringLiteral("none.js: No such file")));
  EXPECT_EQ(engine->runFile(QStringLiteral("/dev/zero")).error,
            QStringLiteral("/dev/zero: it has more than 256 MB"));
  EXPECT_EQ(run("try { include('none.js') } catch (e) { 'caught' }"), "\"caught\"");
}

TEST_F(ScriptEngineTest, runsProgramsAndPrints) {
  EXPECT_EQ(run("print('a', 1, [1, 'x', NaN], undefined, {k: null})"), "undefined");
  EXPECT_EQ(printed, QStringList{QStringLiteral("a 1 [1, \"x\", NaN] undefined {\"k\": null}")});
  EXPECT_EQ(run("var kept = 5; if (true) { 7 }"), "7");
  EXPECT_EQ(run("kept // a comment at the end"), "5");
  EXPECT_EQ(run("new Error('given back, not thrown'); 3"), "3");
  engine->setArguments({QStringLiteral("a b"), QStringLiteral("-x")});
  EXPECT_EQ(run("host.args"), "[\"a b\",\"-x\"]");
  EXPECT_EQ(run("EchoStrings(host.args)"), "[\"a b\",\"-x\"]");
  EXPECT_EQ(run("host.functions().length"), "17");
  EXPECT_EQ(run("let d = []; for (let i = 0; i < 100000; ++i) d = [d]; d").substr(0, 3), "[[[");
  EXPECT_EQ(run("let c = {}; c.self = c; c"), "{\"self\":null}");
  EXPECT_FALSE(engine->hasFailed());
  EXPECT_EQ(engine->summary(), QString());
}

TEST_F(ScriptEngineTest, countsChecks) {
  const Case cases[] = {
      {"check(1 < 2, 'm')", ""},
      {"check(0, 'm')", "t.js:1: check failed: m"},
      {"equal(1, 2)", "t.js:1: check failed: got 1, expected 2"},
      {"equal([1, {a: NaN}], [1, {a: NaN}], 'm')", ""},
      {"equal(EchoReals([1, 2]), [1, 2], 'm')", ""},
      {"equal([1, {a: [1, 2]}], [1, {a: [1, 3]}], 'm')",
       "t.js:1: check failed: m: got 2, expected 3 at [1].a[1]"},
      {"equal([1], [1, 2], 'm')", "t.js:1: check failed: m: got [1], expected [1, 2]"},
      {"equal('1', 1, 'm')", "t.js:1: check failed: m: got \"1\", expected 1"},
      {"equal(undefined, null, 'm')", "t.js:1: check failed: m: got undefined, expected null"},
      {"equal({a: 1}, {b: 1}, 'm')",
       "t.js:1: check failed: m: got {\"a\": 1}, expected {\"b\": 1}"},
      {"equal([], {}, 'm')", "t.js:1: check failed: m: got [], expected {}"},
      {"let a = [1]; a.push(a); let b = [1]; b.push(b); equal(a, b, 'm')", ""},
      {"equal(new Date(5), new Date(6), 'm')", "t.js:1: check failed: m: got"},
      {"near(1.0001, 1, 1e-3, 'm')", ""},
      {"near([1, NaN, Infinity], [1, NaN, Infinity], 0, 'm')", ""},
      {"near([1, 1.1], [1, 1], 0.01, 'm')", "t.js:1: check failed: m: got 1.1, expected 1 at [1]"},
      {"near(1e-9, 0, 1e-3, 'm')", "t.js:1: check failed: m: got 1e-9, expected 0"},
      {"near(1, Infinity, 1, 'm')", "t.js:1: check failed: m: got 1, expected Infinity"},
  };
  int passed = 0;
  int failed = 0;
  for (const Case& c : cases) {
    problems.clear();
    run(c.script);
    const bool passes = *c.expected == 0;
    ++(passes ? passed : failed);
    EXPECT_TRUE(passes ? problems.isEmpty()
                       : problems.value(0).startsWith(QString::fromUtf8(c.expected)))
        << c.script << ": " << problems.value(0).toStdString();
    EXPECT_EQ(engine->checksPassed(), passed);
    EXPECT_EQ(engine->checksFailed(), failed);
  }
  EXPECT_EQ(engine->summary(), QStringLiteral("%1 passed, %2 failed").arg(passed).arg(failed));
}

TEST_F(ScriptEngineTest, servesFilesAndSettings) {
  engine->setArguments({folder.path()});
  const Case cases[] = {
      {"host.readFile(host.args[0] + '/none')", "null"},
      {"host.writeFile(host.args[0] + '/f', 'a\\u00e9\\n'); host.readFile(host.args[0] + '/f')",
       "\"a\u00e9\\n\""},
      {"host.exists(host.args[0]) && !host.exists(host.args[0] + '/none')", "true"},
      {"host.option('New')", "null"},
      {"host.option('New', 'text')", "\"text\""},
      {"host.option('New', '')", "\"\""},
      {"host.option('New', null)", "null"},
      {"host.option('New', null)", "null"},
      {"host.option('New', 2.5) + host.option('New', true)", "\"2.5true\""},
      {"host.config('S', 'k')", "null"},
      {"host.config('S', 'k', 'v\\u00e9')", "\"v\u00e9\""},
      {"host.config('S', 'k', null)", "null"},
      {"host.clipboard('clip'); host.clipboard()", "\"clip\""},
      {"host.tempDir() !== host.tempDir() && host.exists(host.tempDir())", "true"},
      {"let t = host.now(); host.wait(20); host.now() - t >= 20", "true"},
      {"let t = host.now(); let p = host.processTime(); host.wait(300);"
       "for (let i = 0; i < 1e6; ++i); host.processTime() > p &&"
       "host.processTime() - p < host.now() - t - 200",
       "true"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(run(c.script), c.expected) << c.script;
  // A pipe would be waited for, and a device has no end.
  ASSERT_EQ(mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("pipe"))), 0600), 0);
  for (const char* script :
       {"host.writeFile(host.args[0] + '/no/f', '')", "host.writeFile(host.args[0], '')",
        "host.writeFile(host.args[0] + '/pipe', '')", "host.readFile(host.args[0] + '/pipe')",
        "include(host.args[0] + '/pipe')", "host.readFile('/dev/zero')",
        "host.readFile(host.args[0])", "host.readFile()", "host.option('k', {})"})
    EXPECT_FALSE(engine->evaluate(QString::fromUtf8(script)).ok) << script;

  run("var kept = host.tempDir()");
  const QString temp = QString::fromStdString(run("kept")).remove(QLatin1Char('"'));
  EXPECT_TRUE(QFileInfo::exists(temp));
  engine.reset();
  EXPECT_FALSE(QFileInfo::exists(temp));
}

TEST_F(ScriptEngineTest, runsCommandsForModules) {
  const auto ask = [](const char* command, std::uint32_t hash) -> std::string {
    using Entry = void (*)(const YString&, std::uint32_t);
    try {
      reinterpret_cast<Entry>(sp_FindDynFunc("dyn_RunCommand"))(command, hash);
      return std::string();
    } catch (const KelvarinException& exception) {
      return exception.message();
    }
  };
  const auto asked = [&ask](const char* command) { return ask(command, sp_HashValue(command)); };
  EXPECT_EQ(asked("Note one \"two words\""), "");
  EXPECT_EQ(asked("Nobody x"), "Nobody: there is no such command; there are: RunBRENNIX, Note");
  EXPECT_EQ(asked(""), "command: no command was named");
  EXPECT_EQ(ask("Note", 1), "dyn_RunCommand: the hash is not that of the command");
  EXPECT_NE(asked("RunBRENNIX"), "");

  run("var seen = []; host.provide('dyn_RunCommand', c => { seen.push(c); if (c === 'bad') throw "
      "new Error('no ' + c); return {} })"); // what it gives is nobody's affair
  EXPECT_EQ(asked("Nobody \xc3\xa9"), "");
  EXPECT_EQ(asked("bad"), "no bad");
  EXPECT_EQ(run("seen"), "[\"Nobody \xc3\xa9\",\"bad\"]");
  run("host.provide('dyn_RunCommand', undefined)");
  EXPECT_EQ(asked("Note"), "");

  engine = std::make_unique<ScriptEngine>(&table, &driver); // made before the first one ends
  EXPECT_EQ(asked("Note"), "");
  engine.reset();
  EXPECT_EQ(asked("Note"), "dyn_RunCommand: there are no commands");
}

TEST_F(ScriptEngineTest, letsScriptsServe) {
  const Case cases[] = {
      {"host.provide('dyn_EvaluateExpression', t => t.length / 2); Evaluate('abc')", "[1.5]"},
      {"host.provide('dyn_EvaluateExpression', t => { throw new Error('bad ' + t) });"
       "try { Evaluate('x') } catch (e) { e.message }",
       "\"bad x\""},
      {"host.provide('dyn_EvaluateExpression', t => 'no number');"
       "try { Evaluate('x') } catch (e) { e.message }",
       "\"dyn_EvaluateExpression: the script must give a number, it gave a text\""},
      {"host.provide('dyn_EvaluateExpression', null);"
       "try { Evaluate('x') } catch (e) { e.message }",
       "\"*** FATAL ERROR *** Unresolved dynamic function 'dyn_EvaluateExpression' called\""},
      {"host.onDialog(d => d.click('evaluateButton'));"
       "try { Ask() } catch (e) { e.message.slice(-30) }",
       "\"dyn_EvaluateExpression' called\""},
      {"host.provide('dyn_EvaluateStringExpression', t => t + EchoStrings('!')[0]);"
       "EvaluateText('nested')",
       "[\"nested!\"]"},
      {"host.provide('dyn_EvaluateStringExpression', null);"
       "try { EvaluateText('x') } catch (e) { e.message.slice(-32) }",
       "\"EvaluateStringExpression' called\""},
      {"host.provide('integ', args => ({y: args[0].y.map(v => 2 * v), x: args[0].x}));"
       "Apply('integ', {y: [1, 2], x: [3, 4]})",
       "[2,4,3,4]"},
      {"host.provide('integ', args => args.map(a => typeof a === 'string' ? -2 : a.length || a));"
       "Apply('integ', [1, 2, 3], 's')",
       "[3,-2]"},
      {"host.provide('integ', args => { throw 1 }); Apply('integ', 1)", "[\"1\"]"},
      {"host.provide('integ', null); Apply('integ', 1)", R"(["the host has no such function"])"},
      {"AskSchematic()", "[0]"},
      {"host.schematic.hasCurrent = true; [AskSchematic(), host.schematic.picking]",
       "[[1],[1,0,1,0]]"},
      {"host.provide('dyn_GetGlobalSchematicInterface', null);"
       "try { AskSchematic() } catch (e) { 'unresolved' }",
       "\"unresolved\""},
      {"host.provide('dyn_GetGlobalSchematicInterface', undefined); AskSchematic()", "[1]"},
      {"host.schematic.hasCurrent = false; host.schematic.hasCurrent", "false"},
      {"host.system('version', [9, 1])", "[9,1]"},
      {"host.system('cores', 3) + host.system('memory', 4e9)", "4000000003"},
      {"host.system('hasHelp', false)", "false"},
      {"host.system('cores', null) >= 1", "true"},
      {"host.paste('text')", "false"},
      {"command('Note one \"two words\" \"\"')", "undefined"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(run(c.script), c.expected) << c.script;
  for (const char* script :
       {"host.provide('nobody', null)", "host.provide('integ', 5)", "host.system('nobody')",
        "host.system('version', [1])", "host.system('hasHelp', 1)", "host.system('cores', NaN)"})
    EXPECT_FALSE(engine->evaluate(QString::fromUtf8(script)).ok) << script;

  // What a script serves ends with it.
  run("host.provide('dyn_EvaluateExpression', t => 1)");
  engine = std::make_unique<ScriptEngine>(&table, &driver);
  EXPECT_EQ(run("Evaluate('7')"), "[7]");

  sp_RunHelp("Unknown Topic", nullptr);
  sp_RunHelpContext(987654);
  EXPECT_EQ(run("host.helpRequests().slice(-2)"), "[\"Unknown Topic\",\"987654\"]");
}

TEST_F(ScriptEngineTest, servesNumericFunctions) {
  const Case cases[] = {
      {"var c = {y: [0, 4, 0], x: [0, 2, 4]}; Apply('interp', c, 5, 1, [0.004, 0])",
       "[0,2,4,2,0,0,1,2,3,4]"},
      {"Apply('interp', c, 1000).length", "2000"},
      {"Apply('YFromX', c, 1, 1)", "[2]"},
      {"Apply('YFromX', c, 5, 1)", "[]"},
      {"Apply('integ', c)", "[0,4,8,0,2,4]"},
      {"Apply('PWLCurveFit', {y: [0, 1, 2, 6], x: [0, 1, 2, 3]}, 2, 'inductor')"
       "  .map(v => +v.toFixed(9))",
       "[0,2,6,0,2,3]"},
      {"Apply('PWLCurveFit', c, 2, 'no kind that is known')", "[0,4,0,0,2,4]"},
      {"Apply('PWLCurveFit', c, 0)",
       R"(["argument 2 (segments) must be from 1 to 2147483647, 0 was given."])"},
      {"Apply('PWLCurveFit', c, 'two')",
       R"(["argument 2 (segments) must be a number, a text was given."])"},
      {"Apply('integ', [1, 2])",
       R"(["argument 1 (curve) must be a real vector with x values, one without was given."])"},
      {"host.provide('YFromX', args => args[1] * 100); Apply('YFromX', c, 1)", "[100]"},
      {"host.provide('YFromX', null); Apply('YFromX', c, 1)",
       R"(["the host has no such function"])"},
      {"Apply('integ', c).length", "6"}, // the others stay
      {"host.provide('YFromX', undefined); Apply('YFromX', c, 1)", "[2]"},
      {"host.provide('YFromX', () => 7); Apply('YFromX', c, 1)", "[7]"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(run(c.script), c.expected) << c.script;
}

TEST_F(ScriptEngineTest, pastes) {
  class Receiver : public PasteTextObject {
  public:
    explicit Receiver(std::string* out) : m_out(out) {}
    void paste(const char* text) override { *m_out = text; }
    bool isSame(const PasteTextObject* other) const override { return other == this; }

  private:
    std::string* m_out;
  };
  std::string received;
  sp_InstallPasteTextObject(YRef<PasteTextObject>(new Receiver(&received)));
  EXPECT_EQ(run("host.paste('net_1')"), "true");
  EXPECT_EQ(received, "net_1");
  sp_UnInstallPasteTextObject();
  EXPECT_EQ(run("host.paste('x')"), "false");
}

TEST_F(ScriptEngineTest, tellsCalls) {
  QStringList seen;
  QObject::connect(
      engine.get(), &ScriptEngine::called,
      [&](const QString& function, const QString& arguments, const CallResult& result,
          const QString& error) {
        seen.append(
            QStringLiteral("%1 %2 %3 %4").arg(function, arguments).arg(result.count()).arg(error));
      });
  run("EchoReals({y: [1, NaN], x: [2, 3]}); EchoStrings(['a\"b', 'c'], []); EchoReals('x')");
  EXPECT_EQ(seen,
            (QStringList{QStringLiteral("EchoReals [{\"y\": [1, NaN], \"x\": [2, 3]}] 2 "),
                         QStringLiteral("EchoStrings [[\"a\\\"b\", \"c\"], []] 0 "),
                         QStringLiteral("EchoReals [\"x\"] 0 EchoReals: argument 1 must be a real "
                                        "vector, a string vector was given.")}));
  EXPECT_TRUE(engine->call(QStringLiteral("Nobody"), {}).isError());
  EXPECT_EQ(engine->toJson(engine->call(QStringLiteral("EchoReals"), {ScriptVector::ofReals({4})})),
            QStringLiteral("[4]"));
}

TEST_F(ScriptEngineTest, convertsAMillionElementsInLinearTime) {
  const auto seconds = [this](int count) {
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(run(QStringLiteral("let a = []; for (let i = 0; i < %1; ++i) a.push('s' + i);"
                                 "let r = EchoReals(a.map((s, i) => i)); equal(EchoStrings(a), a);"
                                 "r.length")
                      .arg(count)),
              std::to_string(count));
    return static_cast<double>(timer.elapsed()) / 1000;
  };
  const double tenth = seconds(100'000);
  EXPECT_LT(seconds(1'000'000), 30 * tenth + 1);
}

TEST_F(ScriptEngineTest, endsWhatDoesNotMove) {
  engine->setTimeout(1);
  for (const char* script :
       {"while (true) {}", "while (true) { try { while (true) {} } catch (e) {} }",
        "host.wait(60000)",
        "host.provide('integ', () => { while (true) {} }); Apply('integ', 1)"}) {
    QElapsedTimer timer;
    timer.start();
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(run(script), "t.js: ended, since nothing had moved for 1 s") << script;
    EXPECT_NE(::testing::internal::GetCapturedStderr().find(
                  "dialoghost: nothing has moved for 1 s; no dialog was open\n"),
              std::string::npos);
    EXPECT_LT(timer.elapsed(), 4000) << script;
  }
  // Afterwards, and as long as something moves, the engine works as ever.
  EXPECT_EQ(run("for (let i = 0; i < 4; ++i) { host.wait(400); print(i); } 'done'"), "\"done\"");
  EXPECT_TRUE(engine->hasFailed());
}

TEST_F(ScriptEngineTest, drivesDialogs) {
  // The wrappers belong to the script: collecting at every call must not take one in use.
  QObject::connect(engine.get(), &ScriptEngine::called,
                   [this] { engine->jsEngine()->collectGarbage(); });
  const Case cases[] = {
      {"var seen = []; host.onDialog(d => {"
       "  seen.push(d.name, EchoReals(1)[0]); d.type('edit', 'abc'); seen.push(d.text('edit'));"
       "  host.onDialog(inner => { EchoReals(2); seen.push(inner.title); inner.reject(); });"
       "  seen.push(Ask()[0]); d.accept(); });"
       "seen.push(Ask()[0]); seen",
       "[\"AskDialog\",1,\"abc\",\"Ask\",0,1]"},
      {"var kept; host.onDialog(d => { kept = d; d.accept(); }); Ask();"
       "try { kept.click('okButton') } catch (e) { kept.isOpen }",
       "false"},
      {"host.provide('dyn_EvaluateExpression', t => t.length);"
       "host.onDialog(d => { d.type('edit', 'abcd'); d.click('evaluateButton');"
       "  kept = d.text('edit'); d.accept(); }); Ask(); kept",
       "\"4\""},
  };
  for (const Case& c : cases)
    EXPECT_EQ(run(c.script), c.expected) << c.script;
  EXPECT_EQ(problems.join(QLatin1Char('\n')).toStdString(), "");
  problems.clear();

  EXPECT_EQ(run("host.onDialog(d => {\n d.click('nobody') }); Ask()"), "[0]");
  ASSERT_EQ(problems.size(), 1);
  EXPECT_TRUE(problems.first().contains(QStringLiteral("t.js:2: ")))
      << problems.first().toStdString();
  EXPECT_TRUE(problems.first().contains(QStringLiteral("nobody")));
  EXPECT_EQ(run("host.onDialog(d => d.accept())"), "undefined");
  EXPECT_EQ(problems.size(), 2);
  EXPECT_EQ(engine->summary(), QStringLiteral("0 passed, 2 failed"));
}

TEST_F(ScriptEngineTest, endsScriptsThatAnOpenDialogHolds) {
  engine->setTimeout(1);
  for (const char* script : {"Ask()", "host.onDialog(d => { while (true) {} }); Ask()",
                             "host.onDialog(d => host.wait(60000)); Ask()",
                             "host.onDialog(d => { host.onDialog(e => { for (;;) {} }); Ask(); });"
                             "Ask()"}) {
    driver.setInteractive(true); // nobody answers, as when the user has left
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(run(script), "t.js: ended, since nothing had moved for 1 s") << script;
    EXPECT_NE(::testing::internal::GetCapturedStderr().find("open was AskDialog \"Ask\""),
              std::string::npos)
        << script;
    EXPECT_TRUE(driver.openDialogs().isEmpty()) << script;
  }
  EXPECT_EQ(run("1 + 1"), "2");
}

TEST_F(ScriptEngineTest, endsTheProcessWhereCodeNeverComesBack) {
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  engine->setTimeout(1);
  EXPECT_EXIT(run("host.writeFile(host.tempDir() + '/left-behind', 'x'); Hang()"),
              ::testing::ExitedWithCode(1), "nothing has moved for 1 s; no dialog was open");
  QDirIterator files(QDir::tempPath(), {QStringLiteral("left-behind")}, QDir::Files,
                     QDirIterator::Subdirectories);
  EXPECT_FALSE(files.hasNext());
}

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  HostApplication application(argc, argv);
  const OwnTempDir temporary;
  const QTemporaryDir settings;
  sp_SetSettingsDir(YString(settings.path().toUtf8().constData()));
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
