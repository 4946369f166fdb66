#pragma once

#include <QObject>

#include <functional>

class DialogDriver;
class QWidget;

/// Stands in for the user: looks at each dialog that opens, and accepts those for which the script
/// has no handler. What goes wrong is among the driver's failures.
class DialogAcceptor : public QObject {
  Q_OBJECT

public:
  using Look = std::function<void(QWidget*)>;
  explicit DialogAcceptor(DialogDriver* driver, const Look& look = {});

private:
  void accept(QWidget* dialog);

  int m_accepting = 0;
};
