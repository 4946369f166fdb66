#include "Drive/DialogDriver.h"

#include "Call/HostApplication.h"
#include "Drive/DriveError.h"
#include "Drive/InputPlayer.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMenu>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <optional>
#include <vector>

namespace {

DialogDriver* theInstance = nullptr;

QString describe(const QWidget* dialog) {
  const QString name = dialog->objectName().isEmpty()
                           ? QString::fromUtf8(dialog->metaObject()->className())
                           : dialog->objectName();
  return dialog->windowTitle().isEmpty()
             ? QStringLiteral("dialog \"%1\"").arg(name)
             : QStringLiteral("dialog \"%1\" (%2)").arg(dialog->windowTitle(), name);
}

bool isDetached(const QWidget* window) {
  if (const auto* dialog = qobject_cast<const QDialog*>(window))
    return isDetachedDialog(dialog);
  return window->windowType() == Qt::Window || window->windowType() == Qt::Dialog ||
         window->windowType() == Qt::Tool;
}

} // namespace

class DialogDriver::Private {
public:
  enum class Stage { Waiting, Running, Done };
  struct Opening {
    int number = 0;
    QPointer<QWidget> dialog;
    Stage stage = Stage::Waiting;
    std::optional<Handler> handler; ///< reserved, even where the dialog cannot be served yet
    std::size_t scope = 0;          ///< that the handler came from
    int loopLevel = 0;              ///< of the event loop in which its handler runs
  };
  using Scope = std::deque<Handler>;

  explicit Private(DialogDriver* owner) : q(owner) {}

  DialogDriver* q;
  std::vector<std::unique_ptr<Opening>> openings; ///< in the order of opening
  std::vector<Scope> scopes{1};
  QVector<QPointer<QWidget>> detached;
  int count = 0;
  int running = 0;
  int rejecting = 0; ///< what opens while a dialog is rejected is rejected, too
  bool hadNativeDialogs = !QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs);

  void updateChoosers() {
    if (hadNativeDialogs)
      QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs,
                                     q->isDriving() || !q->isInteractive());
  }

  Opening* find(int number) {
    for (const auto& opening : openings)
      if (opening->number == number)
        return opening.get();
    return nullptr;
  }

  void reserveHandler(Opening* opening) {
    if (opening->handler || rejecting > 0)
      return;
    for (auto scope = scopes.size(); scope-- > 0;)
      if (!scopes[scope].empty()) {
        opening->handler = std::move(scopes[scope].front());
        opening->scope = scope;
        scopes[scope].pop_front();
        return;
      }
  }

  /// The dialog has gone before its turn came: the handler is for the next one.
  void giveBackHandler(Opening* opening) {
    if (opening->handler)
      scopes[std::min(opening->scope, scopes.size() - 1)].push_front(std::move(*opening->handler));
    opening->handler.reset();
  }

  void add(QWidget* dialog) {
    for (const auto& opening : openings)
      if (opening->dialog == dialog) // its handler runs, and has seen it hide for a moment
        return;
    openings.erase(std::remove_if(openings.begin(), openings.end(),
                                  [](const auto& opening) {
                                    return !opening->dialog && opening->stage != Stage::Running;
                                  }),
                   openings.end());
    auto opening = std::make_unique<Opening>();
    opening->number = ++count;
    opening->dialog = dialog;
    openings.push_back(std::move(opening));
    emit q->moved(QStringLiteral("%1 opened").arg(describe(dialog)));
    emit q->dialogOpened(dialog);
    attendLater(count);
  }

  /// From the loop that waits for the dialog, when all that its opening brought has been delivered.
  void attendLater(int number) {
    QTimer::singleShot(0, q, [this, number] {
      try {
        attend(number);
      } catch (...) { // of a slot that an event reached
        q->fail(QStringLiteral("an exception left a dialog's event handler"));
      }
    });
  }

  void closed(const QWidget* dialog) {
    for (auto opening = openings.begin(); opening != openings.end(); ++opening)
      if ((*opening)->dialog == dialog) {
        emit q->moved(QStringLiteral("%1 closed").arg(describe(dialog)));
        giveBackHandler(opening->get());
        if ((*opening)->stage != Stage::Running)
          openings.erase(opening);
        break;
      }
    for (const auto& opening : openings)
      if (opening->stage == Stage::Waiting)
        attendLater(opening->number);
  }

  void attend(int number) {
    Opening* opening = find(number);
    if (!opening || opening->stage != Stage::Waiting || !opening->dialog ||
        !opening->dialog->isVisible())
      return;
    reserveHandler(opening);
    if (InputPlayer::isBlocked(opening->dialog)) // its turn comes when the other one closes
      return;
    opening->stage = Stage::Running;
    opening->loopLevel = QThread::currentThread()->loopLevel();
    const QPointer<QWidget> dialog = opening->dialog;
    try {
      run(number, dialog);
    } catch (...) {
      reject(dialog);
      finish(number);
      throw;
    }
    finish(number);
  }

  void finish(int number) {
    for (auto opening = openings.begin(); opening != openings.end(); ++opening)
      if ((*opening)->number == number) {
        (*opening)->stage = Stage::Done;
        if (!(*opening)->dialog || !(*opening)->dialog->isVisible())
          openings.erase(opening);
        break;
      }
    updateChoosers();
  }

  void run(int number, const QPointer<QWidget>& dialog) {
    InputPlayer::activate(dialog);
    InputPlayer::settle();
    Opening* opening = find(number);
    if (!dialog || !dialog->isVisible()) {
      giveBackHandler(opening);
      return;
    }
    const std::optional<Handler> handler = std::move(opening->handler);
    opening->handler.reset();
    const QString name = describe(dialog);
    if (!handler && q->isInteractive() && rejecting == 0) {
      emit q->dialogReady(dialog);
      return;
    }
    const int opened = count;
    if (handler) {
      emit q->dialogReady(dialog);
      const bool isServed = serve(*handler, dialog, name);
      InputPlayer::settle();
      if (isServed && dialog && dialog->isVisible())
        q->fail(QStringLiteral("%1 was left open by its handler").arg(name));
    } else {
      q->fail(QStringLiteral("%1 opened, and no handler was waiting").arg(name));
    }
    rejectSince(opened);
    reject(dialog);
  }

  /// False where the handler raised. No exception may reach Qt's event loop.
  bool serve(const Handler& handler, QWidget* dialog, const QString& name) {
    bool isServed = false;
    q->beginScope();
    ++running;
    try {
      handler(dialog);
      isServed = true;
    } catch (const std::exception& error) {
      q->fail(QStringLiteral("%1: %2").arg(name, QString::fromUtf8(error.what())));
    } catch (...) {
      q->fail(QStringLiteral("%1: its handler raised an unknown exception").arg(name));
    }
    --running;
    endScope(isServed ? QStringLiteral("the handler of %1").arg(name) : QString());
    return isServed;
  }

  /// Drops what still waits; `owner` names the scope in the failures, and is empty for no failures:
  /// what a handler queued before it raised had no chance.
  void endScope(const QString& owner) {
    if (scopes.size() > 1) {
      const Scope scope = std::move(scopes.back());
      scopes.pop_back();
      for (std::size_t i = 0; !owner.isEmpty() && i < scope.size(); ++i)
        q->fail(
            QStringLiteral("%1 ended, and a handler was still waiting for a dialog").arg(owner));
    }
    updateChoosers();
  }

  void rejectSince(int opened) {
    for (auto opening = openings.size(); opening-- > 0;) {
      if (opening < openings.size() && openings[opening]->number > opened &&
          openings[opening]->dialog)
        reject(openings[opening]->dialog);
    }
  }

  /// As a user would; by force where that does not close it.
  void reject(QPointer<QWidget> dialog) { // a copy: its opening goes when it closes
    ++rejecting;
    const auto isOpen = [&dialog] { return dialog && dialog->isVisible(); };
    try {
      if (isOpen()) {
        InputPlayer::closePopups();
        if (isOpen() && !InputPlayer::isBlocked(dialog)) {
          InputPlayer::activate(dialog);
          if (isOpen())
            InputPlayer::pressKey(dialog, Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b"));
        }
      }
    } catch (const DriveError&) {
      // it has no window any more to play to
    }
    if (auto* asDialog = qobject_cast<QDialog*>(dialog.data()); asDialog && isOpen()) {
      asDialog->reject();
      InputPlayer::settle();
    }
    if (isOpen()) {
      dialog->close();
      InputPlayer::settle();
    }
    if (isOpen())
      dialog->hide();
    --rejecting;
  }

  /// A menu is answered by a handler only where the running handler's action waits for it.
  void openMenu(QMenu* menu) {
    int level = -1;
    for (const auto& opening : openings)
      if (opening->stage == Stage::Running)
        level = opening->loopLevel;
    if (level < 0)
      return;
    const QPointer<QMenu> guard(menu);
    QTimer::singleShot(0, q, [this, guard, level] {
      if (guard && guard->isVisible() && QThread::currentThread()->loopLevel() > level)
        add(guard);
    });
  }
};

DialogDriver::DialogDriver(QObject* parent) : QObject(parent), d(std::make_unique<Private>(this)) {
  if (!theInstance)
    theInstance = this;
  d->updateChoosers();
  qApp->installEventFilter(this);
}

DialogDriver::~DialogDriver() {
  qApp->removeEventFilter(this);
  if (d->hadNativeDialogs)
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false);
  if (theInstance == this)
    theInstance = nullptr;
}

DialogDriver* DialogDriver::instance() {
  return theInstance;
}

void DialogDriver::setInteractive(bool on) {
  m_interactive = on;
  d->updateChoosers();
}

void DialogDriver::onDialog(Handler handler) {
  d->scopes.back().push_back(std::move(handler));
  d->updateChoosers();
}

bool DialogDriver::isDriving() const {
  if (d->running > 0)
    return true;
  for (const auto& scope : d->scopes)
    if (!scope.empty())
      return true;
  for (const auto& opening : d->openings)
    if (opening->handler)
      return true;
  return false;
}

void DialogDriver::beginScope() {
  d->scopes.emplace_back();
}

void DialogDriver::endScope() {
  d->endScope(QStringLiteral("the script"));
}

void DialogDriver::fail(const QString& message) {
  m_failures.append(message);
  emit failed(message);
}

QVector<QWidget*> DialogDriver::openDialogs() const {
  QVector<QWidget*> dialogs;
  for (const auto& opening : d->openings)
    if (opening->dialog && opening->dialog->isVisible())
      dialogs.append(opening->dialog);
  return dialogs;
}

QVector<QWidget*> DialogDriver::detachedWindows() const {
  QVector<QWidget*> windows;
  for (const QPointer<QWidget>& window : d->detached)
    if (window && window->isVisible())
      windows.append(window);
  return windows;
}

int DialogDriver::openings() const {
  return d->count;
}

bool DialogDriver::isOpenSince(int openings) const {
  for (const auto& opening : d->openings)
    if (opening->number > openings && opening->dialog && opening->dialog->isVisible() &&
        !(opening->stage == Private::Stage::Waiting && InputPlayer::isBlocked(opening->dialog)))
      return true;
  return false;
}

bool DialogDriver::isServing(const QWidget* dialog) const {
  for (const auto& opening : d->openings)
    if (opening->dialog == dialog && opening->stage == Private::Stage::Running)
      return true;
  return false;
}

bool DialogDriver::eventFilter(QObject* watched, QEvent* event) {
  const bool isShow = event->type() == QEvent::Show;
  if ((!isShow && event->type() != QEvent::Hide) || event->spontaneous() ||
      !watched->isWidgetType() || !static_cast<QWidget*>(watched)->isWindow())
    return false;
  auto* window = static_cast<QWidget*>(watched);
  if (!isShow) {
    for (const auto& opening : d->openings)
      if (opening->dialog == window) {
        d->closed(window);
        break;
      }
    if (d->detached.removeOne(window))
      emit moved(QStringLiteral("%1 closed").arg(describe(window)));
  } else if (auto* menu = qobject_cast<QMenu*>(window)) {
    d->openMenu(menu);
  } else if (window->testAttribute(Qt::WA_DontShowOnScreen)) {
    // the platform shows a chooser of its own in its place
  } else if (isDetached(window)) {
    // a window of the host itself opens outside of any script
    if (d->scopes.size() > 1 || qobject_cast<QDialog*>(window)) {
      d->detached.append(window);
      emit moved(QStringLiteral("%1 opened").arg(describe(window)));
    }
  } else if (qobject_cast<QDialog*>(window)) {
    d->add(window);
  }
  return false;
}
