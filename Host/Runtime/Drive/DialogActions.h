#pragma once

#include "Drive/DriveError.h"

#include <QPointer>
#include <QVariant>
#include <QWidget>

/// What a user does to one open dialog, by real mouse and keyboard events, and what they see.
///
/// The members are those of the script wrapper, which `ScriptDialog` makes of them one to one; see
/// "Driving a dialog" in docs/scripting.md for names of widgets and exact meaning. Every action
/// waits until its effects have settled.
class DialogActions {
public:
  explicit DialogActions(QWidget* dialog);

  QWidget* dialog() const { return m_dialog; }
  bool isOpen() const;
  QString name() const;
  QString title() const;
  QString className() const;
  bool isModal() const;

  QStringList names() const;
  bool has(const QString& widget) const;
  QVariant get(const QString& widget, const QString& property) const;
  QString text(const QString& widget) const;
  QVariant value(const QString& widget) const;
  bool checked(const QString& widget) const;
  bool enabled(const QString& widget) const;
  bool visible(const QString& widget) const;
  QString focused() const;
  QStringList items(const QString& widget) const;
  QStringList headers(const QString& widget) const;

  void click(const QString& widget, int row = -1, int column = -1);
  void doubleClick(const QString& widget, int row = -1, int column = -1);
  void press(const QString& caption);
  void type(const QString& widget, const QString& text);
  void key(const QString& widget, const QString& keys); ///< an empty name: to the dialog
  void set(const QString& widget, const QVariant& value);
  void choose(const QString& widget, const QVariantList& rows);
  void pick(const QVariant& value);

  QVariant current(const QString& widget) const;
  void setCurrent(const QString& widget, int row, int column = -1);
  QString cell(const QString& widget, int row, int column) const;
  void setCell(const QString& widget, int row, int column, const QVariant& value);
  QVariantMap cellInfo(const QString& widget, int row, int column) const;
  QVariantList table(const QString& widget) const;
  int rows(const QString& widget) const;
  int columns(const QString& widget) const;

  QString tab() const;
  void setTab(const QVariant& captionOrIndex);
  QStringList tabs() const;
  QVariantMap message() const;

  void accept();
  void reject();
  void close();
  void screenshot(const QString& path) const;

private:
  QWidget* require(const QString& widget) const;
  QWidget* usable(const QString& widget) const; ///< neither hidden nor disabled
  QPointer<QWidget> m_dialog;
};
