#include "HostSupportQt/Binding.h"

#include "HostSupport/Numbers.h"
#include "HostSupportQt/GuiThread.h"
#include "HostSupportQt/Text.h"

#include <QMetaProperty>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace {

constexpr char bindingProperty[] = "isKvDialogWidget";
constexpr char outElementProperty[] = "outElementIndex";
constexpr char realProperty[] = "realValue";
constexpr char stringProperty[] = "stringValue";

// A result beyond this is a form's mistake; making it would only exhaust the host's memory.
constexpr int largestResult = 1 << 20;

struct BoundWidget {
  QWidget* widget;
  KV_FunctionDef* binding;
  int outElement;
};

bool hasProperty(const QWidget* widget, const char* name) {
  return widget->metaObject()->indexOfProperty(name) >= 0;
}

std::vector<BoundWidget> boundWidgets(const QWidget* dialog) {
  std::vector<BoundWidget> bound;
  const QList<QWidget*> descendants = dialog->findChildren<QWidget*>();
  for (QWidget* widget : descendants) {
    auto* binding = dynamic_cast<KV_FunctionDef*>(widget);
    if (!binding || !widget->property(bindingProperty).toBool())
      continue;
    // A composite sheet has its number as a dynamic property only.
    const QVariant dynamic = widget->property(outElementProperty);
    bound.push_back(
        {widget, binding, dynamic.isValid() ? dynamic.toInt() : binding->outElementIndex});
  }
  return bound;
}

void loadElement(const BoundWidget& bound, const UserArgument& argument) {
  const auto element = static_cast<unsigned>(bound.binding->elementIndex);
  if (bound.binding->elementIndex < 0 || element >= argument.count || !argument.data)
    return;
  if (argument.type == UserReal) {
    const double value = static_cast<const double*>(argument.data)[element];
    if (hasProperty(bound.widget, realProperty))
      bound.widget->setProperty(realProperty, value);
    else
      bound.widget->setProperty(stringProperty, toQs(sp_ConvertRealToPlain(value, 15)));
  } else if (argument.type == UserString) {
    const char* text = static_cast<const char* const*>(argument.data)[element];
    if (hasProperty(bound.widget, stringProperty))
      bound.widget->setProperty(stringProperty, QString::fromUtf8(text ? text : ""));
    else
      bound.widget->setProperty(realProperty, sp_ConvertEngToReal(text));
  }
}

double realValue(const QWidget* widget) {
  const QVariant value = widget->property(realProperty);
  return value.isValid() ? value.toDouble()
                         : sp_ConvertEngToReal(widget->property(stringProperty).toString());
}

QString stringValue(const QWidget* widget) {
  const QVariant value = widget->property(stringProperty);
  return value.isValid()
             ? value.toString()
             : toQs(sp_ConvertRealToPlain(widget->property(realProperty).toDouble(), 15));
}

/// The first element of a result made by the host, by kind.
class ResultVector {
public:
  ResultVector(UserFunctionInterface* args, UserDataType type, int count)
      : m_call(args), m_type(type) {
    if (type == UserReal) {
      m_reals = args->makeRealResult(args, count, nullptr);
      if (m_reals)
        std::fill_n(m_reals, count, 0.0);
    } else {
      m_strings = args->makeStringResult(args, count);
    }
  }

  void* at(int element) const {
    if (m_type == UserReal)
      return m_reals ? m_reals + element : nullptr;
    return m_strings ? m_strings + element : nullptr;
  }

  void store(const BoundWidget& bound) const {
    if (m_type == UserReal)
      m_reals[bound.outElement] = realValue(bound.widget);
    else
      m_strings[bound.outElement] = m_call->hostString(Tocs(stringValue(bound.widget)));
  }

  void fillEmpty(const std::vector<bool>& filled) const {
    if (m_type == UserReal)
      return;
    for (std::size_t element = 0; element < filled.size(); ++element)
      if (!filled[element])
        m_strings[element] = m_call->hostString("");
  }

private:
  UserFunctionInterface* m_call;
  UserDataType m_type;
  double* m_reals = nullptr;
  char** m_strings = nullptr;
};

bool isBoundToResult(const BoundWidget& bound) {
  const int size = bound.binding->vectorSize();
  return bound.outElement >= 0 && size > 0 && bound.outElement <= largestResult - size;
}

} // namespace

KV_FunctionDef::~KV_FunctionDef() = default;

bool KV_FunctionDef::readWidget(UserReturnData*, const UserFunctionInterface*) {
  return false;
}

void di_InitialiseDialog(QWidget* dialog, UserFunctionInterface* args) {
  if (!dialog || !args || !sp_IsGuiThread("di_InitialiseDialog"))
    return;
  for (const BoundWidget& bound : boundWidgets(dialog)) {
    if (bound.binding->initialiseWidget(args))
      continue;
    const int argument = bound.binding->argIndex;
    if (argument >= 0 && argument < std::min(args->argCount, maxUserArguments))
      loadElement(bound, args->args[argument]);
  }
}

void di_ReadDialog(UserFunctionInterface* args, UserReturnData* result, QWidget* dialog,
                   UserDataType type, bool accepted) {
  if (!accepted || !args || !result || !dialog || !sp_IsGuiThread("di_ReadDialog"))
    return;

  std::vector<BoundWidget> bound = boundWidgets(dialog);
  bound.erase(std::remove_if(bound.begin(), bound.end(),
                             [](const BoundWidget& widget) { return !isBoundToResult(widget); }),
              bound.end());
  int count = 0;
  for (const BoundWidget& widget : bound)
    count = std::max(count, widget.outElement + widget.binding->vectorSize());

  const ResultVector vector(args, type, count);
  if (!vector.at(0))
    return;
  result->data = vector.at(0);
  result->type = type;
  result->count = static_cast<std::uint32_t>(count);

  std::vector<bool> filled(static_cast<std::size_t>(count));
  for (const BoundWidget& widget : bound) {
    const int size = widget.binding->vectorSize();
    if (!widget.binding->hasReadWidget()) {
      vector.store(widget); // its first element; it knows of no other
      filled[static_cast<std::size_t>(widget.outElement)] = true;
      continue;
    }
    UserReturnData slot{vector.at(widget.outElement), type, static_cast<std::uint32_t>(size)};
    if (widget.binding->readWidget(&slot, args))
      std::fill_n(filled.begin() + widget.outElement, size, true);
  }
  vector.fillEmpty(filled);
}

QObjectList qtsp_QueryList(const QObject* root, const char* className, const char* objectName, bool,
                           bool recursive) {
  QObjectList found;
  if (!root)
    return found;
  const QString name = QString::fromLatin1(objectName);
  for (QObject* child : root->children()) {
    if ((!className || child->inherits(className)) && (!objectName || child->objectName() == name))
      found.append(child);
    if (recursive)
      found += qtsp_QueryList(child, className, objectName, true, true);
  }
  return found;
}

QObject* qtsp_SearchChild(const QObject* root, const char* objectName, const char* className,
                          bool recursive) {
  return qtsp_QueryList(root, className, objectName, true, recursive).value(0);
}
