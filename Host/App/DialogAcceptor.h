#pragma once

#include <QObject>

#include <functional>

class DialogDriver;
class QWidget;

/// Stands in for the user: looks at each dialog that opens, and accepts those for which the script
/// has no handler, after typing a text where the cursor is, if one is given. What goes wrong is
/// among the driver's failures.
class DialogAcceptor : public QObject {
  Q_OBJECT

public:
  using Look = std::function<void(QWidget*)>;
  explicit DialogAcceptor(DialogDriver* driver, const Look& look = {}, const QString& typed = {});

private:
  void accept(QWidget* dialog);

  QString m_typed;
  int m_accepting = 0;
};
