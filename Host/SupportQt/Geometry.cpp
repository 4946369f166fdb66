#include "HostSupportQt/Geometry.h"

#include "HostSupport/Options.h"
#include "HostSupportQt/GuiThread.h"
#include "HostSupportQt/Text.h"

#include <QEvent>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <optional>

namespace {

constexpr char geometrySection[] = "WidgetDims";
constexpr char autoSaveProperty[] = "kvAutoSavesDims";

// Less of a title bar than this in sight cannot be caught with the mouse.
constexpr int catchableWidth = 64;
constexpr int catchableHeight = 16;
constexpr int largestCoordinate = 1 << 16;

YString geometryKey(const QWidget* widget, const YString& key) {
  return key.isEmpty() ? toYs(widget->objectName()) : key;
}

/// Four plain numbers "x y width height"; anything else counts as not stored.
std::optional<QRect> parseGeometry(const YString& text) {
  const QStringList fields = toQs(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
  if (fields.size() != 4)
    return std::nullopt;
  int numbers[4];
  for (int i = 0; i < 4; ++i) {
    bool ok = false;
    numbers[i] = fields[i].toInt(&ok);
    if (!ok || numbers[i] < -largestCoordinate || numbers[i] > largestCoordinate)
      return std::nullopt;
  }
  if (numbers[2] < 1 || numbers[3] < 1)
    return std::nullopt;
  return QRect(numbers[0], numbers[1], numbers[2], numbers[3]);
}

/// The title bar is above the geometry, but how high nobody knows before the window is on a screen.
QScreen* screenShowing(const QRect& geometry) {
  const QRect top(geometry.left(), geometry.top() - catchableHeight, geometry.width(),
                  2 * catchableHeight);
  for (QScreen* screen : QGuiApplication::screens()) {
    const QRect seen = screen->availableGeometry() & top;
    if (seen.width() >= std::min(catchableWidth, geometry.width()) &&
        seen.height() >= catchableHeight)
      return screen;
  }
  return nullptr;
}

class GeometryKeeper : public QObject {
public:
  explicit GeometryKeeper(QWidget* widget) : QObject(widget), m_widget(widget) {
    widget->installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Show && !event->spontaneous() && !m_restored) {
      m_restored = true;
      sp_RestoreWidgetDims(m_widget, YString());
    } else if (event->type() == QEvent::Hide && !event->spontaneous()) {
      sp_SaveWidgetDims(m_widget, YString());
    }
    return false;
  }

private:
  QWidget* m_widget;
  bool m_restored = false;
};

} // namespace

void sp_SaveWidgetDims(QWidget* widget, const YString& key) {
  if (!widget || !sp_IsGuiThread("sp_SaveWidgetDims"))
    return;
  const YString name = geometryKey(widget, key);
  if (name.isEmpty())
    return;
  // Without the frame, which is not there yet when the place is restored.
  const QRect geometry = widget->isMaximized() || widget->isFullScreen() ? widget->normalGeometry()
                                                                         : widget->geometry();
  const QString text = QStringLiteral("%1 %2 %3 %4")
                           .arg(geometry.x())
                           .arg(geometry.y())
                           .arg(geometry.width())
                           .arg(geometry.height());
  // Writing says by itself when it fails; a forgotten window size is not worth stopping for.
  sp_RememberSetting(geometrySection, name, Tocs(text));
}

bool sp_RestoreWidgetDims(QWidget* widget, const YString& key) {
  if (!widget || !sp_IsGuiThread("sp_RestoreWidgetDims"))
    return false;
  const YString name = geometryKey(widget, key);
  YString stored;
  if (name.isEmpty() || !cfgman_GetConfigSetting(geometrySection, name, &stored))
    return false;
  const std::optional<QRect> geometry = parseGeometry(stored);
  if (!geometry)
    return false;

  QScreen* const shown = screenShowing(*geometry);
  const QScreen* const screen = shown ? shown : QGuiApplication::primaryScreen();
  if (!screen)
    return false;
  const QRect available = screen->availableGeometry();
  const QSize size =
      geometry->size().boundedTo(available.size()).expandedTo(widget->minimumSizeHint());
  // A place where no screen is any more is left to the window system.
  if (shown)
    widget->setGeometry(QRect(geometry->topLeft(), size));
  else
    widget->resize(size);
  return true;
}

void sp_AutoSaveDialogDims(QWidget* widget) {
  if (!widget || !sp_IsGuiThread("sp_AutoSaveDialogDims") ||
      widget->property(autoSaveProperty).toBool())
    return;
  widget->setProperty(autoSaveProperty, true);
  new GeometryKeeper(widget);
}
