// One filled example of each record that host and module share, made with the system's own headers,
// for a reader that knows their layout only; and what this side sees after the reader has written.

#include "BrennixAnalysisData.h"
#include "GraphEditData.h"
#include "SymbolFile.h"
#include "XSpiceParseLaplaceArgs.h"

#include <cstdio>
#include <cstring>

#ifdef _WIN32
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C" __attribute__((visibility("default")))
#endif

namespace {

AnalysisParameter parameterOf(const char* name, AnalysisParameterType type) {
  AnalysisParameter parameter{};
  parameter.name = name;
  parameter.type = type;
  return parameter;
}

BrennixAnalysisData& analysis() {
  static AnalysisParameter parameters[] = {
      parameterOf("TSTOP", AnalysisReal), parameterOf("N_PT", AnalysisInteger),
      parameterOf("ALL", AnalysisFlag), parameterOf("TRIG_GATE", AnalysisText),
      parameterOf("SWEEP_TYPE", AnalysisIndex)};
  static BrennixAnalysisData block{};
  parameters[0].value.real = 2.5e-3;
  parameters[0].isSet = 1;
  parameters[1].value.integer = -7;
  parameters[2].value.byte = 1;
  parameters[3].text = "{GATE}";
  parameters[4].value.integer = 1;
  block.parameters = parameters;
  block.parameterCount = 5;
  block.action = BrennixRun;
  block.acSelected = block.tranDefined = block.popDefined = 1;
  return block;
}

GraphEditData& graphs() {
  static GraphEditData data{};
  data.vectors = new GraphVector[2]{{"U1.out", GraphVoltage, 1, {}, 1, {}},
                                    {"R1#p", GraphCurrent, listedVectorKind, {}, 0, {}}};
  data.vectorCount = 2;
  data.graphCount = 3;
  data.numPoints = 5'000'000'000;
  data.isEvenlySpaced = 1;
  data.xStart = -1;
  data.xEnd = 0.5;
  data.numDivisions = 6;
  data.specialChars = "\"&";
  return data;
}

SymbolFileRequest& request() {
  static SymbolFileRequest record;
  record.fileMode = SeveralSymbolFiles;
  record.filter = "*.sym";
  record.filters.append("all (*)");
  record.filters.append("libraries (*.slb)");
  record.startDir = "/home";
  record.flag = true;
  record.parent = reinterpret_cast<QWidget*>(&record);
  return record;
}

SymbolFileResult& chosen() {
  static SymbolFileResult record;
  record.names.append("a.slb");
  return record;
}

XSpiceParseLaplaceArgs& laplace() {
  static double first[laplaceCoefficients] = {1, 2};
  static double second[laplaceCoefficients] = {3};
  static XSpiceParseLaplaceArgs record{"1/(s+1)", first, 2, second, 1, -1, 0};
  return record;
}

} // namespace

/// The example of that name; null for another.
EXPORTED void* recordNamed(const char* name) {
  if (std::strcmp(name, "analysis") == 0)
    return &analysis();
  if (std::strcmp(name, "graphs") == 0)
    return &graphs();
  if (std::strcmp(name, "symbolFileRequest") == 0)
    return &request();
  if (std::strcmp(name, "symbolFileResult") == 0)
    return &chosen();
  return std::strcmp(name, "laplace") == 0 ? &laplace() : nullptr;
}

/// The text behind a field that holds one.
EXPORTED const char* textOfField(const void* field) {
  return static_cast<const YString*>(field)->c_str();
}

/// What the reader is to have written, as this side sees it.
EXPORTED void printWritten(void* analysisBlock, void* laplaceRecord) {
  const auto& block = *static_cast<BrennixAnalysisData*>(analysisBlock);
  const auto& record = *static_cast<XSpiceParseLaplaceArgs*>(laplaceRecord);
  std::printf("written: %g %d %d, %d %d %d %d; %d %d %d\n", block.parameters[0].value.real,
              block.parameters[1].value.integer, block.parameters[2].isSet, block.action,
              block.tranSelected, block.popSelected, block.acDefined, record.firstCount,
              record.secondCount, record.status);
}
