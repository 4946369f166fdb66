#include "Script/ScriptDialog.h"

#include "Call/HostApplication.h"
#include "Call/HostCall.h"
#include "Drive/WidgetValues.h"
#include "HostSupport/KelvarinException.h"
#include "Script/ScriptObject.h"
#include "Script/ScriptRunner.h"

#include <QDialog>
#include <QJSEngine>

#include <type_traits>

namespace {

/// Lists of texts as lists of values: scripts then get real arrays.
QVariant plainValue(const QVariant& value) {
  if (value.type() == QVariant::StringList || value.type() == QVariant::List) {
    QVariantList list;
    const auto elements = value.toList();
    for (const QVariant& element : elements)
      list.append(plainValue(element));
    return list;
  }
  if (value.type() == QVariant::Map) {
    QVariantMap map = value.toMap();
    for (QVariant& element : map)
      element = plainValue(element);
    return map;
  }
  return value;
}

constexpr char theValue[] = "the value";

bool isMissing(const QJSValue& value) {
  return value.isUndefined() || value.isNull();
}

} // namespace

ScriptDialog::ScriptDialog(QWidget* dialog, ScriptRunner* runner)
    : m_actions(dialog), m_runner(runner) {}

/// Nothing of the script runs, and nothing nests endlessly, in what this gives.
QVariant ScriptDialog::valueOf(const QJSValue& value, const char* what) {
  if (isMissing(value))
    throw DriveError(QStringLiteral("%1 is missing").arg(QLatin1String(what)));
  if (!m_runner || !value.isObject())
    return value.toVariant();
  const ScriptOutcome taken = m_runner->takeRecord(value);
  if (!taken.ok)
    throw DriveError(m_runner->describe(taken.value).message);
  return taken.value.toVariant();
}

QString ScriptDialog::textOf(const QJSValue& value, const char* what) {
  valueOf(value, what); // what a getter throws says more
  if (value.isObject())
    throw DriveError(QStringLiteral("%1 must be a text, %2 was given")
                         .arg(QLatin1String(what), describeValue(value)));
  return value.toString();
}

QString ScriptDialog::nameOf(const QJSValue& widget) {
  return textOf(widget, "the widget's name");
}

/// A row or column; -1 where none was given.
int ScriptDialog::placeOf(const QJSValue& number) {
  if (number.isUndefined())
    return -1;
  const int place = toIndex(valueOf(number, "the row or column"));
  if (place < 0)
    throw DriveError(QStringLiteral("rows and columns count from 0, not from %1").arg(place));
  return place;
}

int ScriptDialog::requiredPlaceOf(const QJSValue& number) {
  return placeOf(isMissing(number) ? QJSValue(QJSValue::NullValue) : number);
}

/// Runs an action for a script: its result, or its failure as a script exception.
template <typename Action> QJSValue ScriptDialog::guarded(Action action) {
  QJSEngine* engine = qjsEngine(this);
  QString error;
  try {
    if constexpr (std::is_void_v<decltype(action())>) {
      action();
      return QJSValue();
    } else {
      const QVariant result = plainValue(QVariant(action()));
      return engine && result.isValid() ? engine->toScriptValue(result)
                                        : QJSValue(QJSValue::NullValue);
    }
  } catch (const KelvarinException&) {
    // A fault of the module in answer to the action. It has to leave the handler, not the action.
    if (callDepth() > 0) {
      HostApplication::takeException();
      return QJSValue();
    }
    error = describeException();
  } catch (...) {
    error = describeException();
  }
  if (engine)
    engine->throwError(error);
  return QJSValue();
}

QJSValue ScriptDialog::names() {
  return guarded([&] { return m_actions.names(); });
}

QJSValue ScriptDialog::has(const QJSValue& widget) {
  return guarded([&] { return m_actions.has(nameOf(widget)); });
}

QJSValue ScriptDialog::get(const QJSValue& widget, const QJSValue& property) {
  return guarded([&] { return m_actions.get(nameOf(widget), textOf(property, "the property")); });
}

QJSValue ScriptDialog::text(const QJSValue& widget) {
  return guarded([&] { return m_actions.text(nameOf(widget)); });
}

QJSValue ScriptDialog::value(const QJSValue& widget) {
  return guarded([&] { return m_actions.value(nameOf(widget)); });
}

QJSValue ScriptDialog::checked(const QJSValue& widget) {
  return guarded([&] { return m_actions.checked(nameOf(widget)); });
}

QJSValue ScriptDialog::enabled(const QJSValue& widget) {
  return guarded([&] { return m_actions.enabled(nameOf(widget)); });
}

QJSValue ScriptDialog::visible(const QJSValue& widget) {
  return guarded([&] { return m_actions.visible(nameOf(widget)); });
}

QJSValue ScriptDialog::focused() {
  return guarded([&] { return m_actions.focused(); });
}

QJSValue ScriptDialog::items(const QJSValue& widget) {
  return guarded([&] { return m_actions.items(nameOf(widget)); });
}

QJSValue ScriptDialog::headers(const QJSValue& widget) {
  return guarded([&] { return m_actions.headers(nameOf(widget)); });
}

QJSValue ScriptDialog::click(const QJSValue& widget, const QJSValue& row, const QJSValue& column) {
  return guarded([&] { m_actions.click(nameOf(widget), placeOf(row), placeOf(column)); });
}

QJSValue ScriptDialog::doubleClick(const QJSValue& widget, const QJSValue& row,
                                   const QJSValue& column) {
  return guarded([&] { m_actions.doubleClick(nameOf(widget), placeOf(row), placeOf(column)); });
}

QJSValue ScriptDialog::press(const QJSValue& caption) {
  return guarded([&] { m_actions.press(textOf(caption, "the caption")); });
}

QJSValue ScriptDialog::type(const QJSValue& widget, const QJSValue& text) {
  return guarded([&] { m_actions.type(nameOf(widget), textOf(text, "the text")); });
}

QJSValue ScriptDialog::key(const QJSValue& widget, const QJSValue& keys) {
  return guarded([&] {
    m_actions.key(isMissing(widget) ? QString() : nameOf(widget), textOf(keys, "the key"));
  });
}

QJSValue ScriptDialog::set(const QJSValue& widget, const QJSValue& value) {
  return guarded([&] {
    const QVariant plain = valueOf(value, theValue);
    if (!plain.isValid() || (value.isObject() && !value.isArray()))
      throw DriveError(QStringLiteral("%1 must be a text, a number or a flag, %2 was given")
                           .arg(QLatin1String(theValue), describeValue(value)));
    m_actions.set(nameOf(widget), plain);
  });
}

QJSValue ScriptDialog::choose(const QJSValue& widget, const QJSValue& rows) {
  return guarded([&] {
    const QVariant list = valueOf(rows, theValue);
    m_actions.choose(nameOf(widget), rows.isArray() ? list.toList() : QVariantList{list});
  });
}

QJSValue ScriptDialog::pick(const QJSValue& value) {
  return guarded([&] { m_actions.pick(valueOf(value, theValue)); });
}

QJSValue ScriptDialog::current(const QJSValue& widget, const QJSValue& row,
                               const QJSValue& column) {
  return guarded([&]() -> QVariant {
    if (row.isUndefined())
      return m_actions.current(nameOf(widget));
    m_actions.setCurrent(nameOf(widget), placeOf(row), placeOf(column));
    return QVariant();
  });
}

QJSValue ScriptDialog::cell(const QJSValue& widget, const QJSValue& row, const QJSValue& column,
                            const QJSValue& value) {
  return guarded([&]() -> QVariant {
    const int atRow = requiredPlaceOf(row);
    const int atColumn = requiredPlaceOf(column);
    if (value.isUndefined())
      return m_actions.cell(nameOf(widget), atRow, atColumn);
    m_actions.setCell(nameOf(widget), atRow, atColumn, valueOf(value, theValue));
    return QVariant();
  });
}

QJSValue ScriptDialog::cellInfo(const QJSValue& widget, const QJSValue& row,
                                const QJSValue& column) {
  return guarded([&] {
    return m_actions.cellInfo(nameOf(widget), requiredPlaceOf(row), requiredPlaceOf(column));
  });
}

QJSValue ScriptDialog::table(const QJSValue& widget) {
  return guarded([&] { return m_actions.table(nameOf(widget)); });
}

QJSValue ScriptDialog::rows(const QJSValue& widget) {
  return guarded([&] { return m_actions.rows(nameOf(widget)); });
}

QJSValue ScriptDialog::columns(const QJSValue& widget) {
  return guarded([&] { return m_actions.columns(nameOf(widget)); });
}

QJSValue ScriptDialog::tab(const QJSValue& captionOrIndex) {
  return guarded([&] {
    if (!captionOrIndex.isUndefined())
      m_actions.setTab(valueOf(captionOrIndex, theValue));
    return m_actions.tab();
  });
}

QJSValue ScriptDialog::tabs() {
  return guarded([&] { return m_actions.tabs(); });
}

QJSValue ScriptDialog::message() {
  return guarded([&] { return m_actions.message(); });
}

QJSValue ScriptDialog::accept() {
  return guarded([&] { m_actions.accept(); });
}

QJSValue ScriptDialog::reject() {
  return guarded([&] { m_actions.reject(); });
}

QJSValue ScriptDialog::close() {
  return guarded([&] { m_actions.close(); });
}

QJSValue ScriptDialog::screenshot(const QJSValue& path) {
  return guarded([&] { m_actions.screenshot(textOf(path, "the path")); });
}
