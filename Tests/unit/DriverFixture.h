#pragma once

#include <QDialog>
#include <QJSValue>
#include <QStringList>

class QTableWidget;

/// A dialog with every kind of widget, which notes what its user did.
class FixtureDialog : public QDialog {
  Q_OBJECT

public:
  explicit FixtureDialog(QWidget* parent = nullptr);
  QStringList log;

protected:
  void keyPressEvent(QKeyEvent* event) override;

private:
  void note(const QString& what) { log.append(what); }
  QWidget* fieldPage();
  QWidget* choicePage();
  QWidget* viewPage();
  QWidget* longPage();
  QWidget* buttonRow();
  void fillTable(QTableWidget* table);
  void askNonModal();
};

/// What a driving script has beside its wrapper: `test.onDialog(fn)`, `test.log()`, the texts that
/// the present fixture noted.
class ScriptBridge : public QObject {
  Q_OBJECT

public:
  FixtureDialog* dialog = nullptr;
  Q_INVOKABLE void onDialog(const QJSValue& handler);
  Q_INVOKABLE QString log() const { return dialog->log.join(QLatin1Char(' ')); }
  Q_INVOKABLE bool hasPopup() const; ///< whether one is open now
};
