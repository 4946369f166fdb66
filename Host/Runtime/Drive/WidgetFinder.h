#pragma once

#include "HostSupportQt/Captions.h"

#include <QString>
#include <QStringList>
#include <QVector>

class QWidget;

/// Whether a caption is the one that is asked for, with or without its mnemonic.
bool isCaption(const QString& caption, const QString& asked);

/// Class and object name of a widget, for a message.
QString describeWidget(const QWidget* widget);

/// The names of what there is, for a message: shortened where there are many, without repetitions.
QString shortList(QStringList names);

/// Finds the widgets of one dialog by name: "name", "name:1" for the second of that name, or
/// "Class:n" for the n-th of a class. The inner parts of a composite (the line edit of a spinner)
/// count as the composite, and the windows that belong to the dialog do not count at all.
class WidgetFinder {
public:
  explicit WidgetFinder(QWidget* dialog) : m_dialog(dialog) {}

  QWidget* find(const QString& name) const;    ///< null where there is none
  QWidget* require(const QString& name) const; ///< raises `DriveError`, listing what there is
  QStringList names() const;                   ///< object names, in the order of creation
  QString nameOf(QWidget* widget) const;       ///< "Class:n" where it has none
  QVector<QWidget*> widgets() const;           ///< all that count, in the order of creation
  /// The composite that a widget is a part of, or the widget itself.
  QWidget* ownerOf(QWidget* part) const;

private:
  QWidget* m_dialog;
};
