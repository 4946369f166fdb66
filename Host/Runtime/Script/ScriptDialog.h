#pragma once

#include "Drive/DialogActions.h"

#include <QJSValue>
#include <QObject>

class ScriptRunner;

/// What a handler of `host.onDialog` is called with: `DialogActions` for scripts. What a user could
/// not do becomes a script exception.
class ScriptDialog : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString name READ name)
  Q_PROPERTY(QString title READ title)
  Q_PROPERTY(QString className READ className)
  Q_PROPERTY(bool modal READ isModal)
  Q_PROPERTY(bool isOpen READ isOpen)

public:
  /// `runner`, which the engine's life is longer than, takes over what the script passes; without
  /// one, values are taken as they stand.
  explicit ScriptDialog(QWidget* dialog, ScriptRunner* runner = nullptr);

  QString name() const { return m_actions.name(); }
  QString title() const { return m_actions.title(); }
  QString className() const { return m_actions.className(); }
  bool isModal() const { return m_actions.isModal(); }
  bool isOpen() const { return m_actions.isOpen(); }

  Q_INVOKABLE QJSValue names();
  Q_INVOKABLE QJSValue has(const QJSValue& widget = {});
  Q_INVOKABLE QJSValue get(const QJSValue& widget = {}, const QJSValue& property = {});
  Q_INVOKABLE QJSValue text(const QJSValue& widget = {});
  Q_INVOKABLE QJSValue value(const QJSValue& widget = {});
  Q_INVOKABLE QJSValue checked(const QJSValue& widget = {});
  Q_INVOKABLE QJSValue enabled(const QJSValue& widget = {});
  Q_INVOKABLE QJSValue visible(const QJSValue& widget = {});
  Q_INVOKABLE QJSValue focused();
  Q_INVOKABLE QJSValue items(const QJSValue& widget = {});
  Q_INVOKABLE QJSValue headers(const QJSValue& widget = {});

  Q_INVOKABLE QJSValue click(const QJSValue& widget = {}, const QJSValue& row = {},
                             const QJSValue& column = {});
  Q_INVOKABLE QJSValue doubleClick(const QJSValue& widget = {}, const QJSValue& row = {},
                                   const QJSValue& column = {});
  Q_INVOKABLE QJSValue press(const QJSValue& caption = {});
  Q_INVOKABLE QJSValue type(const QJSValue& widget = {}, const QJSValue& text = {});
  Q_INVOKABLE QJSValue key(const QJSValue& widget = {}, const QJSValue& keys = {});
  Q_INVOKABLE QJSValue set(const QJSValue& widget = {}, const QJSValue& value = {});
  Q_INVOKABLE QJSValue choose(const QJSValue& widget = {}, const QJSValue& rows = {});
  Q_INVOKABLE QJSValue pick(const QJSValue& value = {});

  Q_INVOKABLE QJSValue current(const QJSValue& widget = {}, const QJSValue& row = {},
                               const QJSValue& column = {});
  Q_INVOKABLE QJSValue cell(const QJSValue& widget = {}, const QJSValue& row = {},
                            const QJSValue& column = {}, const QJSValue& value = {});
  Q_INVOKABLE QJSValue cellInfo(const QJSValue& widget = {}, const QJSValue& row = {},
                                const QJSValue& column = {});
  Q_INVOKABLE QJSValue table(const QJSValue& widget = {});
  Q_INVOKABLE QJSValue rows(const QJSValue& widget = {});
  Q_INVOKABLE QJSValue columns(const QJSValue& widget = {});

  Q_INVOKABLE QJSValue tab(const QJSValue& captionOrIndex = {});
  Q_INVOKABLE QJSValue tabs();
  Q_INVOKABLE QJSValue message();

  Q_INVOKABLE QJSValue accept();
  Q_INVOKABLE QJSValue reject();
  Q_INVOKABLE QJSValue close();
  Q_INVOKABLE QJSValue screenshot(const QJSValue& path = {});

private:
  template <typename Action> QJSValue guarded(Action action);
  // All raise `DriveError` for what is missing or of another kind.
  QVariant valueOf(const QJSValue& value, const char* what);
  QString textOf(const QJSValue& value, const char* what);
  QString nameOf(const QJSValue& widget);
  int placeOf(const QJSValue& number);
  int requiredPlaceOf(const QJSValue& number);

  DialogActions m_actions;
  ScriptRunner* m_runner;
};
