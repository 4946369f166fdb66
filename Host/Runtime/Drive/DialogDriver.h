#pragma once

#include <QObject>
#include <QVector>
#include <QWidget>

#include <functional>
#include <memory>

/// Watches for dialogs that open and hands each to the next waiting handler.
///
/// Handlers belong to scopes: a running handler, or the script itself, is a scope, and what it
/// queues serves the dialogs that open while it runs; the innermost scope's handlers come first. A
/// handler that is still waiting when its scope ends, a dialog that its handler leaves open, and a
/// dialog that nobody answers are failures; such a dialog is rejected.
///
/// Every `QDialog` takes a handler, unless it is not modal and deletes itself on closing: that is a
/// window which no call waits for. A menu takes one, too, where it keeps a handler's action from
/// returning.
class DialogDriver : public QObject {
  Q_OBJECT

public:
  using Handler = std::function<void(QWidget* dialog)>;

  explicit DialogDriver(QObject* parent = nullptr);
  ~DialogDriver() override;
  static DialogDriver* instance(); ///< the one that stands, or null

  /// Whether somebody sits at a display and answers what no handler does.
  void setInteractive(bool on);
  bool isInteractive() const { return m_interactive; }

  /// Queues a handler in the present scope. It may raise: that is a failure, and its dialog is
  /// rejected.
  void onDialog(Handler handler);
  /// Whether a handler waits or runs. Choosers are then Qt's own, and so they are when nobody sits
  /// at a display.
  bool isDriving() const;

  void beginScope();
  /// Ends the scope; handlers still waiting in it count as failures and are dropped.
  void endScope();

  QStringList failures() const { return m_failures; }
  void clearFailures() { m_failures.clear(); }
  void fail(const QString& message);

  /// Dialogs that are open, the innermost last; windows that no call waits for.
  QVector<QWidget*> openDialogs() const;
  QVector<QWidget*> detachedWindows() const;

  /// How many dialogs have opened so far, and whether one that opened since is still open: an
  /// action has not come to its end before its dialogs have. One that has to wait until a modal
  /// dialog closes does not count.
  int openings() const;
  bool isOpenSince(int openings) const;
  /// Whether a handler is acting on this dialog.
  bool isServing(const QWidget* dialog) const;

signals:
  /// A dialog opened, was acted on or closed: the script is alive.
  void moved(const QString& what);
  void dialogOpened(QWidget* dialog);
  /// Before a handler acts, and before an undriven dialog is left to its user: for pictures.
  void dialogReady(QWidget* dialog);
  void failed(const QString& message);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  class Private;
  std::unique_ptr<Private> d;
  bool m_interactive = false;
  QStringList m_failures;
};
