#pragma once

#include <QHash>
#include <QPointer>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <QWidget>

/// Notes what the user does in a call's dialogs, as script lines that do it again: the fields whose
/// value is another at the end than at the beginning, and how the dialog was closed.
class DialogRecorder : public QObject {
  Q_OBJECT

public:
  using QObject::QObject;

  void watch(QWidget* dialog); ///< from when it is ready for its user
  /// The lines for the dialogs since the last time, in the order in which they opened.
  QString takeAnswers();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  struct Field {
    QPointer<QWidget> widget;
    QString name;
    QVariant value;
  };
  struct Dialog {
    QPointer<QWidget> widget;
    QVector<Field> fields;
    QStringList lines;
  };
  static void collect(QWidget* parent, QHash<QString, int>* counts, QVector<Field>* fields);
  static void finish(Dialog* dialog);

  QVector<Dialog> m_dialogs;
};
