#pragma once

#include "Core/Properties/PropertyList.h"

class QWidget;

/// Opens the editor that fits a property's type over another dialog; the property takes what the
/// user settled, and stays as it was on cancel. `fontStyles` are the names that a property of the
/// schematic can choose from.
void editListedProperty(QWidget* over, Property* property, const QStringList& fontStyles);

/// Asks for a property that is not in the list yet. Nothing on cancel.
std::optional<Property> askForNewProperty(QWidget* over, const QStringList& fontStyles);
