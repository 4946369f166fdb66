#pragma once

#include <QString>

#include <stdexcept>

/// An action that a user could not do: the widget is missing, hidden or disabled. `what()` is UTF-8
/// and says which, and what there is.
class DriveError : public std::runtime_error {
public:
  explicit DriveError(const QString& message) : std::runtime_error(message.toStdString()) {}
};
