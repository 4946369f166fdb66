#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QGroupBox>
#include <QList>
#include <QPointer>
#include <QVector>

class QButtonGroup;
class QRadioButton;

/// A box of radio buttons, bound as one number.
///
/// A button's position is its place among the group's buttons in the form, read top to bottom and
/// then left to right. The value is the position, or what `setMapping` maps it to.
class HOSTWIDGETS_EXPORT RadioGroup : public QGroupBox, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(int selectedId READ selectedId WRITE setSelectedId)
  Q_PROPERTY(QString mapping READ mapping WRITE setMapping)
  Q_PROPERTY(double realValue READ value WRITE setValue STORED false DESIGNABLE false)
  Q_PROPERTY(
      QString stringValue READ stringValue WRITE setStringValue STORED false DESIGNABLE false)

public:
  explicit RadioGroup(QWidget* parent = nullptr);

  double value() const;        ///< of the checked button; -1 where none is
  void setValue(double value); ///< a value that no button has leaves the selection
  int selectedId() const;      ///< position of the checked button; -1 where none is
  void setSelectedId(int position);
  QString mapping() const { return m_mapping; }
  /// Values by position, comma-separated: with "0,4,1,3,2" the second button stands for 4.
  /// Positions beyond the list stand for themselves.
  void setMapping(const QString& values);
  QString stringValue() const;
  void setStringValue(const QString& text);
  QList<QRadioButton*> buttons() const; ///< by position

  bool initialiseWidget(UserFunctionInterface* call) override;

signals:
  void clicked(int position); ///< the user chose the button

protected:
  void childEvent(QChildEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  void adoptButtons();
  void adoptLater();
  void buttonClicked();
  void stopTabAtChecked();
  QList<QRadioButton*> sortedButtons() const;
  double valueAt(int position) const;

  QString m_mapping;
  QVector<double> m_values;
  int m_pendingId = -1; ///< set by a form before its buttons exist
  bool m_adoptionPosted = false;
  QButtonGroup* m_exclusion; ///< one choice, though the buttons stand in several containers
  QVector<QPointer<QRadioButton>> m_known; ///< adopted, in the order of their creation
  QList<QRadioButton*> m_positions; ///< as first shown; a button hidden later keeps its position
};
