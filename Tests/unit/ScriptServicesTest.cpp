// What a script steers of the host, and what a module then finds.

#include "ScriptFixture.h"

#include "BrennixAnalysisData.h"
#include "GraphEditData.h"
#include "HostSupport/DomainServices.h"
#include "HostSupport/Registry.h"
#include "HostSupport/System.h"
#include "SymbolFile.h"
#include "dialogs1_dynexport.h"
#include "externaldialogs.h"
#include "frontend_dynexport.h"

#include <QApplication>
#include <QJSEngine>
#include <QProgressBar>

#include <algorithm>

namespace {

class ScriptServicesTest : public ScriptFixture {
protected:
  void expectErrors(const std::vector<ScriptCase>& cases) {
    for (const ScriptCase& c : cases)
      EXPECT_EQ(run(c.script), std::string("t.js:1: ") + c.expected);
  }
};

template <class Signature> auto found(const DynEntry<Signature>& entry) {
  return reinterpret_cast<typename DynEntry<Signature>::Function>(sp_FindDynFunc(entry.name));
}

template <class Signature> RegisterDynFuncDef
serve(const DynEntry<Signature>& entry, typename DynEntry<Signature>::Function function) {
  return {entry.name, reinterpret_cast<void*>(function), __FILE__, __LINE__};
}

/// What the action raises, or what it gives.
template <class Action> std::string outcome(Action action) {
  try {
    return action();
  } catch (const KelvarinException& error) {
    return error.message();
  }
}

} // namespace

TEST_F(ScriptServicesTest, handsOutGraphs) {
  const auto listed = [] {
    GraphEditData data{};
    data.numPoints = 7;
    data.specialChars = "&";
    found(dyn_GetGraphEditData)(&data);
    std::string text = std::to_string(data.graphCount);
    for (int i = 0; i < data.vectorCount; ++i) {
      const GraphVector& vector = data.vectors[i];
      text += std::string(" ") + vector.name.c_str() + " " + std::to_string(vector.physicalType) +
              " " + std::to_string(vector.vectorKind) + " " + std::to_string(vector.isPlottable);
    }
    delete[] data.vectors;
    EXPECT_EQ(data.numPoints, 7); // the caller's own
    EXPECT_STREQ(data.specialChars, "&");
    return text;
  };
  EXPECT_EQ(listed(), "0");
  EXPECT_EQ(run("host.graphs({vectors: [{name: 'U1.out', physicalType: 2},"
                " {name: 'd\\u00e9', physicalType: 23, vectorKind: 3, isPlottable: false}],"
                " graphCount: 2}).vectors[0]"),
            "{\"name\":\"U1.out\",\"physicalType\":2,\"vectorKind\":0,\"isPlottable\":true}");
  EXPECT_EQ(listed(), "2 U1.out 2 0 1 d\u00e9 23 3 0");
  EXPECT_EQ(run("host.graphs().graphCount"), "2");
  expectErrors({
      {"host.graphs(5)", "host.graphs: the argument must be an object, a number was given"},
      {"host.graphs({vector: []})",
       "host.graphs: the argument has no \"vector\"; it has: vectors, graphCount"},
      {"host.graphs({vectors: {}})",
       "host.graphs: the argument: vectors must be an array, an object was given"},
      {"host.graphs({vectors: [{}, 'V']})",
       "host.graphs: vectors[1] must be an object, a text was given"},
      {"host.graphs({vectors: [{name: 3}]})",
       "host.graphs: vectors[0]: name must be a text, a number was given"},
      {"host.graphs({graphCount: 1.5})",
       "host.graphs: the argument: graphCount must be a whole number of 32 bits, a number was "
       "given"},
  });
  EXPECT_EQ(listed(), "2 U1.out 2 0 1 d\u00e9 23 3 0"); // a refused one changes nothing
  run("host.provide('dyn_GetGraphEditData', null)");
  EXPECT_FALSE(found(dyn_GetGraphEditData));
  run("host.provide('dyn_GetGraphEditData', undefined); host.graphs(null)");
  EXPECT_EQ(listed(), "0");
  run("host.graphs({graphCount: 3})");
  engine.reset();
  EXPECT_EQ(listed(), "0") << "facts go with the script that told them";
}

TEST_F(ScriptServicesTest, ownsAnalysisBlocks) {
  const char* block = "var b = host.analysis([{name: 'TSTOP', type: 0, value: 2.5e-3},"
                      " {name: 'N_PT', type: 1}, {name: 'ALL', type: 2, value: true},"
                      " {name: 'TRIG_GATE', type: 4, text: '{G}'},"
                      " {name: 'SWEEP_TYPE', type: 5, value: 1, isSet: false}],"
                      " {tranSelected: true, popDefined: true}); ";
  run(block);
  EXPECT_EQ(run("RunBlock(b)"), "[\"TSTOP\",\"N_PT\",\"ALL\",\"TRIG_GATE\",\"SWEEP_TYPE\"]");
  EXPECT_EQ(run("b.fields"),
            "{\"action\":2,\"tranSelected\":true,\"acSelected\":false,\"popSelected\":false,"
            "\"tranDefined\":false,\"acDefined\":false,\"popDefined\":true}");

  expectErrors({{"host.openAnalysis(b)", "*** FATAL ERROR *** Unresolved dynamic function "
                                         "'dyn_OpenBrennixAnalysisDialog' called"}});
  static std::function<void()> destroyBlock;
  destroyBlock = [this] { run("b.destroy(); host.wait(1)"); };
  const auto entry = serve(dyn_OpenBrennixAnalysisDialog, [](BrennixAnalysisData* data) {
    if (data->parameterCount == 0)
      throw KelvarinException("no parameters");
    if (data->parameters[0].name == "DESTROYED") {
      destroyBlock();
      EXPECT_EQ(data->parameters[0].name, "DESTROYED") << "stays for the one who edits it";
      return;
    }
    data->parameters[0].value.real = 4;
    data->parameters[1].value.integer = -3;
    data->parameters[1].isSet = 1;
    data->parameters[2].value.byte = 0;
    data->parameters[3].text = "none";
    data->acSelected = 1;
  });
  EXPECT_EQ(run("host.openAnalysis(b); host.openAnalysis(b)"), "undefined");
  EXPECT_EQ(run("b.parameters.map(p => [p.name, p.value, p.text, p.isSet].join())"),
            "[\"TSTOP,4,,true\",\"N_PT,-3,,true\",\"ALL,false,,true\",\"TRIG_GATE,,none,true\","
            "\"SWEEP_TYPE,1,,false\"]");
  EXPECT_EQ(run("[b.fields.acSelected, b.fields.action]"), "[true,2]");
  expectErrors({
      {"host.openAnalysis(host.analysis([]))", "no parameters"},
      {"host.openAnalysis({})",
       "host.openAnalysis: the block must be one of host.analysis, an object was given"},
      {"host.openAnalysis()",
       "host.openAnalysis: the block must be one of host.analysis, nothing was given"},
      {"EchoReals(b)", "EchoReals: argument 1 must be a real vector, an opaque value was given."},
      {"host.analysis()", "host.analysis: parameters must be an array, nothing was given"},
      {"host.analysis([{name: 'N'}])",
       "host.analysis: parameters[0]: type must be 0 (real), 1 (integer), 2 or 3 (true or false), "
       "4 (text) or 5 (index), nothing was given"},
      {"host.analysis([{type: 2, value: 1}])",
       "host.analysis: parameters[0]: value must be true or false, a number was given"},
      {"host.analysis([{type: 4, value: 'a'}])",
       "host.analysis: parameters[0]: value must be left out: the value of type 4 is its text, a "
       "text was given"},
      {"host.analysis([], {run: true})",
       "host.analysis: fields has no \"run\"; it has: action, tranSelected, acSelected, "
       "popSelected, tranDefined, acDefined, popDefined"},
  });
  run("var b = host.analysis([{name: 'DESTROYED', type: 0}]); host.openAnalysis(b)");
  // A block that is in use stays where it is, whatever is collected meanwhile.
  QObject::connect(engine.get(), &ScriptEngine::called,
                   [this] { engine->jsEngine()->collectGarbage(); });
  EXPECT_EQ(run("EchoReals(1); b = null; RunBlock(host.analysis([{name: 'A', type: 0}]))"),
            "[\"A\"]");
}

TEST_F(ScriptServicesTest, asksForSymbolFiles) {
  expectErrors({{"host.symbolFileDialog()",
                 "*** FATAL ERROR *** Unresolved dynamic function 'dyn_SymbolFileDialog' called"}});
  const auto entry =
      serve(dyn_SymbolFileDialog, [](const SymbolFileRequest& request, SymbolFileResult* result) {
        result->names.append(YString(static_cast<int>(request.fileMode)));
        result->names.append(request.filter);
        for (const YString& filter : request.filters)
          result->names.append(filter);
        result->names.append(request.startDir);
      });
  EXPECT_EQ(run("host.symbolFileDialog()"), "[\"0\",\"\",\"\"]");
  EXPECT_EQ(run("host.symbolFileDialog({fileMode: 2, filter: 'a \\u00e9', filters: ['b', 'c'],"
                " startDir: '/d'})"),
            "[\"2\",\"a \u00e9\",\"b\",\"c\",\"/d\"]");
  expectErrors({
      {"host.symbolFileDialog({filters: [1]})", "host.symbolFileDialog: the argument: filters must "
                                                "be an array of texts, a number was given"},
      {"host.symbolFileDialog('*.slb')",
       "host.symbolFileDialog: the argument must be an object, a text was given"},
  });
}

TEST_F(ScriptServicesTest, editsLists) {
  const auto edited = [](std::vector<const char*> texts) {
    return outcome([&texts]() -> std::string {
      YArray<YString> values;
      for (const char* text : texts)
        values.append(text);
      std::string list = found(dyn_OpenListDialog)(nullptr, &values) ? "changed" : "left";
      for (const YString& value : values)
        list += std::string(" ") + value.c_str();
      return list;
    });
  };
  EXPECT_EQ(edited({"1k"}), "dyn_OpenListDialog: this host has no editor of lists yet");
  const struct {
    const char* function;
    std::vector<const char*> given;
    const char* expected;
  } cases[] = {
      {"list => list.concat(list.length, 2.5)", {"1k"}, "changed 1k 1 2.5"},
      {"list => list.concat('x')", {}, "changed x"},
      {"list => list.length === 1 && list[0] === '\\u00e9' ? [1, 2] : null",
       {"\u00e9"},
       "changed 1 2"},
      {"list => []", {"a", "b"}, "changed"},
      {"list => null", {"a", "b"}, "left a b"},
      {"list => 'a'",
       {"a"},
       "dyn_OpenListDialog: the script must give an array or null, it gave a "
       "text"},
      {"list => {}",
       {"a"},
       "dyn_OpenListDialog: the script must give an array or null, it gave "
       "nothing"},
      {"list => [null]",
       {"a"},
       "dyn_OpenListDialog: the answer: element [0] must be a number or a "
       "text, null was given."},
      {"list => { throw new Error('not now') }", {"a"}, "not now"},
  };
  for (const auto& c : cases) {
    run(QStringLiteral("host.provide('dyn_OpenListDialog', %1)").arg(QLatin1String(c.function)));
    EXPECT_EQ(edited(c.given), c.expected) << c.function;
  }
  run("host.provide('dyn_OpenListDialog', null)");
  EXPECT_FALSE(found(dyn_OpenListDialog));
}

TEST_F(ScriptServicesTest, readsLaplaceExpressions) {
  const auto parsed = [](const char* text) {
    return outcome([text] {
      double first[laplaceCoefficients] = {};
      double second[laplaceCoefficients] = {};
      XSpiceParseLaplaceArgs args{text, first, 0, second, 0, -1, 0};
      sp_ParseLaplaceExpression(&args);
      std::string told = std::to_string(args.status) + ":";
      for (int i = 0; i < args.firstCount; ++i)
        told += " " + std::to_string(int(first[i]));
      told += args.secondCount > 0 ? " over" : "";
      for (int i = 0; i < args.secondCount; ++i)
        told += " " + std::to_string(int(second[i]));
      return told;
    });
  };
  YArray<YString> libraries;
  ASSERT_EQ(sp_SearchDLLs(&libraries, "devices", "Laplace_2.*", {}), 1);
  const auto check = reinterpret_cast<int (*)(const char*)>(
      sp_GetLibraryFunction(libraries[0], "laplace_CheckLaplaceExpression", false, "", false));
  ASSERT_TRUE(check);
  const auto checked = [check](const char* text) {
    return outcome([check, text] { return std::to_string(check(text)); });
  };
  EXPECT_EQ(parsed("(3+2*s)/s^2"), "0: 3 2 over 0 0 1");
  EXPECT_EQ(parsed("sqrt(s)"), "5:");
  EXPECT_EQ(parsed(nullptr), "1:");
  const std::pair<const char*, const char*> codes[] = {
      {"1/s", "0"}, {"exp(-s)", "5"}, {"s^60", "5"},  {"1/", "1"},  {nullptr, "1"},
      {"(s", "2"},  {"foo(s)", "4"},  {"tau*s", "4"}, {"1/0", "6"}, {"table(1,-1,0)", "6"}};
  for (const auto& [text, code] : codes)
    EXPECT_EQ(checked(text), code) << (text ? text : "(null)");
  run("host.provide('sp_ParseLaplaceExpression', t => t === '1/s' ? 0 : 3);"
      "host.provide('laplace_CheckLaplaceExpression', t => t === '' ? null : t.length)");
  EXPECT_EQ(parsed("1/s"), "0: 1 over 0 1");
  EXPECT_EQ(parsed("exp(s)"), "3:");
  EXPECT_EQ(parsed(nullptr), "3:");
  EXPECT_EQ(checked("1/s"), "3");
  EXPECT_EQ(checked(nullptr), "-1");
  run("host.provide('sp_ParseLaplaceExpression', t => 0.5);"
      "host.provide('laplace_CheckLaplaceExpression', t => 'good')");
  EXPECT_EQ(parsed("1/s"),
            "sp_ParseLaplaceExpression: the script must give a whole number, it gave "
            "a number");
  EXPECT_EQ(checked("1/s"),
            "laplace_CheckLaplaceExpression: the script must give a whole number or "
            "null, it gave a text");
  run("host.provide('sp_ParseLaplaceExpression', null);"
      "host.provide('laplace_CheckLaplaceExpression', null)");
  EXPECT_EQ(parsed("1/s"), "sp_ParseLaplaceExpression: nobody serves it");
  EXPECT_EQ(checked("1/s"), "-1"); // no checker library
}

TEST_F(ScriptServicesTest, estimatesFourierSteps) {
  double seconds = -1;
  sp_EstimateFourierCalculationTime(&seconds);
  EXPECT_GT(seconds, 1e-12);
  EXPECT_LT(seconds, 1e-3);
  double again = -1;
  sp_EstimateFourierCalculationTime(&again);
  EXPECT_EQ(again, seconds);
  run("host.provide('sp_EstimateFourierCalculationTime', () => 0.25)");
  sp_EstimateFourierCalculationTime(&seconds);
  EXPECT_EQ(seconds, 0.25);
  run("host.provide('sp_EstimateFourierCalculationTime', () => 'long')");
  EXPECT_EQ(outcome([&seconds] {
              sp_EstimateFourierCalculationTime(&seconds);
              return std::string();
            }),
            "sp_EstimateFourierCalculationTime: the script must give a number, it gave a text");
  engine.reset(); // what the script served ends with it
  sp_EstimateFourierCalculationTime(&seconds);
  EXPECT_EQ(seconds, again);
}

TEST_F(ScriptServicesTest, showsAProgressBox) {
  const auto boxes = [] {
    const QWidgetList all = QApplication::topLevelWidgets();
    return std::count_if(all.begin(), all.end(), [](const QWidget* window) {
      return window->isVisible() && window->findChild<QProgressBar*>();
    });
  };
  const auto show = found(dyn_ShowProgressBox);
  show(1);
  show(1);
  EXPECT_EQ(boxes(), 1);
  EXPECT_TRUE(driver.openDialogs().isEmpty()); // nobody has to answer it
  show(0);
  show(0);
  EXPECT_EQ(boxes(), 0);
  run("var seen = []; host.provide('dyn_ShowProgressBox', on => { seen.push(on) })");
  show(1);
  show(0);
  EXPECT_EQ(boxes(), 0);
  EXPECT_EQ(run("seen"), "[1,0]");
  run("host.provide('dyn_ShowProgressBox', undefined)");
  show(1);
  EXPECT_EQ(boxes(), 1);
  engine.reset();
  EXPECT_EQ(boxes(), 0);
}
