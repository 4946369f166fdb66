// A host that forgets the application object, or calls from another thread, is told so, by every
// function and by what the libraries make of widgets; it is not ended by Qt.

#include "Call/HostCall.h"
#include "HostSupport/KelvarinException.h"
#include "HostSupport/System.h"
#include "HostSupportQt/HostSupportQt.h"
#include "HostWidgets/Buttons.h"
#include "HostWidgets/CheckBox.h"
#include "HostWidgets/ComboBox.h"
#include "HostWidgets/EditBox.h"
#include "HostWidgets/GroupBox.h"
#include "HostWidgets/Label.h"
#include "HostWidgets/ParameterView.h"
#include "HostWidgets/Plotter.h"
#include "HostWidgets/RadioButton.h"
#include "HostWidgets/RadioGroup.h"
#include "HostWidgets/Spinner.h"
#include "HostWidgets/TextEdit.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <thread>

namespace {

constexpr const char* noApplication = ": there is no QApplication; the host has to make it first";
constexpr const char* otherThread = ": called from another thread than that of the QApplication";

std::string reported;

std::string endOf(const std::string& text, const std::string& of) {
  return text.size() < of.size() ? text : text.substr(text.size() - of.size());
}

std::vector<ScriptVector> argumentsOf(const FunctionInfo& function, int elements) {
  std::vector<ScriptVector> arguments;
  const auto count = static_cast<std::size_t>(elements);
  for (int i = 0; i < function.minArgs; ++i)
    arguments.push_back(function.argTypes.at(i) == StringArg
                            ? ScriptVector::ofStrings(std::vector<QByteArray>(count, "1"))
                            : ScriptVector::ofReals(std::vector<double>(count, 1)));
  return arguments;
}

/// Calls every function, with few elements and with more than a dialog takes.
void callFunctions(const FunctionTable& table, const std::string& fault) {
  QStringList answered;
  for (const FunctionInfo& function : table.functions())
    for (const int elements : {4, 20000}) {
      reported.clear();
      try {
        if (function.kind == FunctionInfo::Kind::Command)
          callCommand(function, {});
        else
          callHandler(function, argumentsOf(function, elements));
        answered.append(function.name);
      } catch (const CallError& error) {
        EXPECT_EQ(endOf(error.what(), fault), fault) << function.name.toStdString();
        EXPECT_EQ(reported, error.what());
      }
    }
  answered.removeDuplicates(); // what shows nothing needs nothing
  EXPECT_EQ(answered.join(QLatin1Char(' ')).toStdString(),
            "DigitalConstantDialogConvertToBinary GetAnalogInterface GetURLFromLocalPath");
}

template <class Widget> void makeWidget(const std::string& fault) {
  reported.clear();
  EXPECT_THROW(delete new Widget(nullptr), KelvarinException);
  EXPECT_EQ(endOf(reported, fault), fault) << Widget::staticMetaObject.className();
}

void makeWidgets(const std::string& fault) {
  makeWidget<PushButton>(fault);
  makeWidget<OkButton>(fault);
  makeWidget<CheckBox>(fault);
  makeWidget<ComboBox>(fault);
  makeWidget<EditBox>(fault);
  makeWidget<GroupBox>(fault);
  makeWidget<Label>(fault);
  makeWidget<ParameterView>(fault);
  makeWidget<Plotter>(fault);
  makeWidget<RadioButton>(fault);
  makeWidget<RadioGroup>(fault);
  makeWidget<Spinner>(fault);
  makeWidget<TextEdit>(fault);
}

/// Without an application no widget and no picture can be made; where one is looked at too early,
/// this is none.
template <class Object> Object* nowhere() {
  alignas(16) static char memory[sizeof(Object)];
  return reinterpret_cast<Object*>(memory);
}

void callLibrary(const std::string& fault) {
  UserFunctionInterface call{};
  UserReturnData result{};
  YString text;
  auto* const widget = nowhere<QWidget>();
  const std::pair<const char*, std::function<void()>> calls[] = {
      {"sp_GetPixmap", [&] { sp_GetPixmap(QString(), nowhere<QPixmap>(), 96); }},
      {"sp_ScalePixmap", [&] { sp_ScalePixmap(nowhere<QPixmap>(), 96); }},
      {"sp_GetFontSpec", [&] { sp_GetFontSpec("Fixed"); }},
      {"sp_CvtToHyperlink", [&] { sp_CvtToHyperlink(nowhere<QLabel>(), nullptr); }},
      {"sp_SaveWidgetDims", [&] { sp_SaveWidgetDims(widget, ""); }},
      {"sp_RestoreWidgetDims", [&] { sp_RestoreWidgetDims(widget, ""); }},
      {"sp_AutoSaveDialogDims", [&] { sp_AutoSaveDialogDims(widget); }},
      {"sp_PasteTextFromClipboard", [&] { sp_PasteTextFromClipboard(&text); }},
      {"di_InitialiseDialog", [&] { di_InitialiseDialog(widget, &call); }},
      {"di_ReadDialog", [&] { di_ReadDialog(&call, &result, widget, UserReal, true); }},
  };
  for (const auto& [name, function] : calls) {
    reported.clear();
    function();
    EXPECT_EQ(reported, name + fault);
  }
}

void useEverything(const FunctionTable& table, const char* fault) {
  sp_SetMessageSink([](const char* text) { reported = text; });
  callFunctions(table, fault);
  makeWidgets(fault);
  callLibrary(fault);
  sp_SetMessageSink(nullptr);
}

} // namespace

TEST(WithoutApplication, eachCallIsRefusedWithASentence) {
  FunctionTable table;
  table.loadModule(QStringLiteral(KV_MODULE_FILE));
  useEverything(table, noApplication);
  int argc = 1;
  char name[] = "test";
  char* argv[] = {name, nullptr};
  {
    const QCoreApplication application(argc, argv);
    useEverything(table, noApplication);
  }
  const QApplication application(argc, argv);
  std::thread([&table] { useEverything(table, otherThread); }).join();
}
