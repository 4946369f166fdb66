// A small module for the tests of the host: functions that give back what they were given, in every
// way in which a module can.

#include "BrennixAnalysisData.h"
#include "EchoEntries.h"
#include "HostSupport/Registration.h"
#include "schematic_dynexport.h"
#include "vecdll_dynexport.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>

KV_DYN_CALL(evaluateExpression, dyn_EvaluateExpression);
KV_DYN_CALL(evaluateStringExpression, dyn_EvaluateStringExpression);
KV_DYN_CALL(globalSchematic, dyn_GetGlobalSchematicInterface);

namespace {

void copyStrings(UserFunctionInterface* call, const UserArgument& argument) {
  const int count = static_cast<int>(argument.count);
  char** out = call->makeStringResult(call, count);
  for (int i = 0; out && i < count; ++i)
    out[i] = call->hostString(static_cast<char**>(argument.data)[i]);
}

void copyReals(UserFunctionInterface* call, const UserArgument& argument) {
  double* out = call->makeRealResult(call, static_cast<int>(argument.count), nullptr);
  if (out && argument.count > 0)
    std::memcpy(out, argument.data, argument.count * sizeof(double));
}

/// The last argument, whatever it is; no result without one.
int echo(UserFunctionInterface* call) {
  if (call->argCount == 0)
    return 0;
  const UserArgument& last = call->args[call->argCount - 1];
  last.type == UserString ? copyStrings(call, last) : copyReals(call, last);
  return 0;
}

int argumentCount(UserFunctionInterface* call) {
  if (double* out = call->makeRealResult(call, 1, "PT_NONE"))
    *out = call->argCount;
  return 0;
}

int emptyResult(UserFunctionInterface* call) {
  call->makeRealResult(call, 0, nullptr);
  return 0;
}

int evaluate(UserFunctionInterface* call) {
  const YString text(static_cast<char**>(call->args[0].data)[0]);
  if (double* out = call->makeRealResult(call, 1, nullptr))
    *out = evaluateExpression(text);
  return 0;
}

int evaluateText(UserFunctionInterface* call) {
  const YString text = evaluateStringExpression(static_cast<char**>(call->args[0].data)[0]);
  if (char** out = call->makeStringResult(call, 1))
    *out = call->hostString(text);
  return 0;
}

/// y and x of what the host function named first makes of the other arguments; where it fails, the
/// reason, or -1.
int apply(UserFunctionInterface* call) {
  UserArgument result{};
  const int status = call->callFunction(call, static_cast<char**>(call->args[0].data)[0],
                                        call->args + 1, call->argCount - 1, &result, nullptr);
  if (status != 0 && result.type == UserString) {
    copyStrings(call, result);
    return 0;
  }
  if (status != 0 || result.type != UserReal) {
    if (double* out = call->makeRealResult(call, 1, nullptr))
      *out = -1;
    return 0;
  }
  const int count = static_cast<int>(result.count);
  double* out = call->makeRealResult(call, result.reference ? 2 * count : count, nullptr);
  if (out && count > 0) {
    std::memcpy(out, result.data, result.count * sizeof(double));
    if (result.reference)
      std::memcpy(out + count, result.reference, result.count * sizeof(double));
  }
  return 0;
}

int askSchematic(UserFunctionInterface* call) {
  GlobalSchematicInterface* schematic = globalSchematic();
  schematic->setPicking(1);
  schematic->setPicking(0);
  if (double* out = call->makeRealResult(call, 1, nullptr))
    *out = schematic->hasCurrentSchematic() ? 1 : 0;
  return 0;
}

/// What a module does with the block of a host: names the parameters and says that it is to run.
int runBlock(UserFunctionInterface* call) {
  const UserArgument& argument = call->args[0];
  if (call->argCount < 1 || argument.type != UserOpaque)
    return 0;
  auto* block = *static_cast<BrennixAnalysisData**>(argument.data);
  block->action = BrennixRun;
  char** out = call->makeStringResult(call, block->parameterCount);
  for (int i = 0; out && i < block->parameterCount; ++i)
    out[i] = call->hostString(block->parameters[i].name);
  return 0;
}

int fail(UserFunctionInterface* call) {
  throw KelvarinException(static_cast<char**>(call->args[0].data)[0]);
}

/// A dialog with an edit and buttons, one of which evaluates; the result tells whether OK ended it.
int ask(UserFunctionInterface* call) {
  QDialog dialog;
  dialog.setObjectName(QStringLiteral("AskDialog"));
  dialog.setWindowTitle(QStringLiteral("Ask"));
  auto* layout = new QVBoxLayout(&dialog);
  auto* edit = new QLineEdit;
  edit->setObjectName(QStringLiteral("edit"));
  layout->addWidget(edit);
  auto* evaluateButton = new QPushButton(QStringLiteral("Evaluate"));
  evaluateButton->setObjectName(QStringLiteral("evaluateButton"));
  layout->addWidget(evaluateButton);
  QObject::connect(evaluateButton, &QPushButton::clicked, edit, [edit] {
    edit->setText(QString::number(evaluateExpression(YString(edit->text().toUtf8().constData()))));
  });
  auto* okButton = new QPushButton(QStringLiteral("OK"));
  okButton->setObjectName(QStringLiteral("okButton"));
  okButton->setDefault(true);
  layout->addWidget(okButton);
  QObject::connect(okButton, &QPushButton::clicked, &dialog, &QDialog::accept);
  const int accepted = dialog.exec();
  if (double* out = call->makeRealResult(call, 1, nullptr))
    *out = accepted;
  return 0;
}

/// Never comes back.
int hang(UserFunctionInterface*) {
  for (;;)
    std::this_thread::sleep_for(std::chrono::seconds(1));
}

UserFunctionDecl* head() {
  static const struct {
    const char* name;
    ArgType types[5];
    std::uint16_t minArgs;
    std::uint16_t maxArgs;
    UserFunctionHandler handler;
  } functions[] = {
      {"EchoReals", {RealArg, RealArg, RealArg}, 0, 3, echo},
      {"EchoStrings", {StringArg, StringArg}, 1, 2, echo},
      {"EchoAny", {AnyArg}, 1, 1, echo},
      {"ArgumentCount", {RealArg, StringArg, AnyArg}, 0, 3, argumentCount},
      {"EmptyResult", {}, 0, 0, emptyResult},
      {"Evaluate", {StringArg}, 1, 1, evaluate},
      {"EvaluateText", {StringArg}, 1, 1, evaluateText},
      {"Apply", {StringArg, AnyArg, AnyArg, AnyArg, AnyArg}, 1, 5, apply},
      {"AskSchematic", {}, 0, 0, askSchematic},
      {"RunBlock", {AnyArg}, 0, 1, runBlock},
      {"Fail", {StringArg}, 1, 1, fail},
      {"Ask", {}, 0, 0, ask},
      {"Hang", {}, 0, 0, hang},
  };
  constexpr std::size_t count = sizeof(functions) / sizeof(functions[0]);
  static UserFunctionDecl records[count];
  for (std::size_t i = 0; i < count; ++i) {
    UserFunctionDecl& record = records[i];
    record = {};
    std::strncpy(record.name, functions[i].name, sizeof(record.name) - 1);
    std::copy(std::begin(functions[i].types), std::end(functions[i].types), record.argTypes);
    record.minArgs = functions[i].minArgs;
    record.maxArgs = functions[i].maxArgs;
    record.handler = functions[i].handler;
    record.resultType = RealVectorResult;
    record.declVersion = 1;
    record.next = i + 1 < count ? &records[i + 1] : nullptr;
  }
  return records;
}

/// Booleans that tell the kinds of the arguments: is it a string vector, has it x values.
FUNC_ERROR kinds(const FuncArgsMinimal& args, FuncResultMinimal* result, YRef<MessageHandler>,
                 const ScpParseContext&, const FunctionRunTime&) {
  bool* out = result->makeBools(2 * args.argCount());
  for (int i = 0; out && i < args.argCount(); ++i) {
    out[2 * i] = args.strings(i) != nullptr;
    out[2 * i + 1] = args.references(i) != nullptr;
  }
  result->commit();
  return FUNC_OK;
}

/// Elements per division, and divisions.
FUNC_ERROR shape(const FuncArgsMinimal& args, FuncResultMinimal* result, YRef<MessageHandler>,
                 const ScpParseContext&, const FunctionRunTime&) {
  if (std::int32_t* out = result->makeInts(2)) {
    out[0] = args.count(0);
    out[1] = args.divisions(0);
  }
  result->commit();
  return FUNC_OK;
}

/// What a test has to notice: one element more than it has asked for.
FUNC_ERROR writeTooFar(const FuncArgsMinimal&, FuncResultMinimal* result, YRef<MessageHandler>,
                       const ScpParseContext&, const FunctionRunTime&) {
  constexpr int count = 3;
  double* out = result->makeReals(count);
  for (int i = 0; out && i <= count; ++i)
    out[i] = i;
  result->commit();
  return FUNC_OK;
}

int countTexts(const YArray<YString>* texts) {
  return texts
             ? static_cast<int>(std::count_if(texts->begin(), texts->end(),
                                              [](const YString& text) { return !text.isEmpty(); }))
             : 0;
}

COMERROR note(int argc, char** argv, YRef<MessageHandler> messages, const ScpParseContext&) {
  for (int i = 0; i < argc; ++i)
    messages->message(argv[i]);
  return COM_OK;
}

const FuncConstruct kindsFunction("Kinds", {AnyArg, AnyArg}, {}, 0, 2, kinds, "", BoolVectorResult,
                                  FunctionOption());
const FuncConstruct shapeFunction("Shape", {RealArg, RealArg}, {}, 1, 1, shape, "", IntVectorResult,
                                  FunctionOption());
const FuncConstruct writeTooFarFunction("WriteTooFar", {}, {}, 0, 0, writeTooFar, "",
                                        RealVectorResult, FunctionOption());
const RegisterDynFuncDef countTextsEntry(echo_CountTexts.name, reinterpret_cast<void*>(countTexts),
                                         echo_CountTexts.file, echo_CountTexts.line);
const ComConstruct noteCommand("Note", note, 0, "");

} // namespace

extern "C" Q_DECL_EXPORT std::uintptr_t udf_GetFunctionDecls(void** firstDecl, std::uint8_t* flags,
                                                             std::uint32_t* sizes) {
  *flags = 0;
  sizes[0] = userFunctionInterfaceSize;
  sizes[1] = userFunctionDeclSize;
  sizes[2] = userFunctionInterfaceVersion;
  *firstDecl = head();
  return reinterpret_cast<std::uintptr_t>(*firstDecl);
}
