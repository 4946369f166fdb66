#include "DesignerPlugin.h"

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

#include <QIcon>

namespace {

struct WidgetKind {
  const char* className;
  const char* header;
  const char* objectName; ///< that a new one gets
  const char* property;   ///< what it is dropped with, as form text; may be empty
  const char* toolTip;
  bool isContainer;
  QWidget* (*create)(QWidget* parent);
};

template <typename Widget> QWidget* make(QWidget* parent) {
  return new Widget(parent);
}

#define TEXT_PROPERTY(NAME, TEXT) "<property name=\"" NAME "\"><string>" TEXT "</string></property>"

constexpr WidgetKind kinds[] = {
    {"Spinner", "Spinner.h", "spinner", "", "Number with arrows, engineering suffixes and limits",
     false, make<Spinner>},
    {"EditBox", "EditBox.h", "editBox", "", "One line of text", false, make<EditBox>},
    {"TextEdit", "TextEdit.h", "textEdit", "", "Text of several lines", false, make<TextEdit>},
    {"ComboBox", "ComboBox.h", "comboBox", "", "Choice, bound as index or text", false,
     make<ComboBox>},
    {"CheckBox", "CheckBox.h", "checkBox", TEXT_PROPERTY("text", "CheckBox"), "Flag", false,
     make<CheckBox>},
    {"RadioButton", "RadioButton.h", "radioButton", TEXT_PROPERTY("text", "RadioButton"),
     "One of several", false, make<RadioButton>},
    {"RadioGroup", "RadioGroup.h", "radioGroup", TEXT_PROPERTY("title", "RadioGroup"),
     "Box of radio buttons, bound as one number", true, make<RadioGroup>},
    {"Label", "Label.h", "label", TEXT_PROPERTY("text", "Label"),
     "Caption with an optional information text", false, make<Label>},
    {"GroupBox", "GroupBox.h", "groupBox", TEXT_PROPERTY("title", "GroupBox"),
     "Titled box, which may be checkable", true, make<GroupBox>},
    {"ParameterView", "ParameterView.h", "parameterView", "", "Table of named values", false,
     make<ParameterView>},
    {"PushButton", "Buttons.h", "pushButton", TEXT_PROPERTY("text", "PushButton"), "Button", false,
     make<PushButton>},
    {"OkButton", "Buttons.h", "okButton", TEXT_PROPERTY("text", "OK"), "Default button of a dialog",
     false, make<OkButton>},
    {"CancelButton", "Buttons.h", "cancelButton", TEXT_PROPERTY("text", "Cancel"),
     "Button that leaves a dialog without a result", false, make<CancelButton>},
    {"Plotter", "Plotter.h", "plotter", "", "Curves over a grid, with zoom and a read-out", false,
     make<Plotter>},
};

#undef TEXT_PROPERTY

class DesignerWidget : public QObject, public QDesignerCustomWidgetInterface {
public:
  DesignerWidget(const WidgetKind& kind, QObject* parent) : QObject(parent), m_kind(kind) {}

  QString name() const override { return QLatin1String(m_kind.className); }
  QString group() const override { return QStringLiteral("Kelvarin"); }
  QString toolTip() const override { return QLatin1String(m_kind.toolTip); }
  QString whatsThis() const override { return toolTip(); }
  QString includeFile() const override {
    return QStringLiteral("HostWidgets/") + QLatin1String(m_kind.header);
  }
  QIcon icon() const override { return {}; }
  bool isContainer() const override { return m_kind.isContainer; }
  bool isInitialized() const override { return m_initialized; }
  void initialize(QDesignerFormEditorInterface*) override { m_initialized = true; }
  QWidget* createWidget(QWidget* parent) override { return m_kind.create(parent); }
  QString domXml() const override {
    return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\">%3</widget></ui>")
        .arg(name(), QLatin1String(m_kind.objectName), QLatin1String(m_kind.property));
  }

private:
  const WidgetKind& m_kind;
  bool m_initialized = false;
};

} // namespace

HostWidgetsDesignerPlugin::HostWidgetsDesignerPlugin(QObject* parent) : QObject(parent) {
  for (const WidgetKind& kind : kinds)
    m_widgets.append(new DesignerWidget(kind, this));
}

HostWidgetsDesignerPlugin::~HostWidgetsDesignerPlugin() = default;
