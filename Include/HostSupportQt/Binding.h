#pragma once

#include "HostSupportQt/Export.h"
#include "HostSupportQt/KV_FunctionDef.h"

#include <QObjectList>

class QWidget;

/// Loads every binding widget below `dialog` from its element of `args`: by its own
/// `initialiseWidget`, else by the Qt property `realValue` or `stringValue` that fits the element's
/// kind. A missing argument or element leaves the widget as the form made it. Null `args` loads
/// nothing.
HOSTSUPPORTQT_EXPORT void di_InitialiseDialog(QWidget* dialog, UserFunctionInterface* args);

/// Where `accepted`, makes one result vector of `type` (0 real, 2 string), long enough for the
/// `outElementIndex` and `vectorSize` of every binding widget, and stores each widget's value;
/// elements that no widget fills are 0 or empty. Not accepted: no result. Nothing is stored where
/// the host has no memory to give.
HOSTSUPPORTQT_EXPORT void di_ReadDialog(UserFunctionInterface* args, UserReturnData* result,
                                        QWidget* dialog, UserDataType type, bool accepted);

/// Descendants of `root` of class `className` (or derived; null: any) and of object name
/// `objectName` (null: any), depth first. Without `recursive`, direct children only.
HOSTSUPPORTQT_EXPORT QObjectList qtsp_QueryList(const QObject* root, const char* className,
                                                const char* objectName, bool, bool recursive);
/// The first of `qtsp_QueryList`, or null.
HOSTSUPPORTQT_EXPORT QObject* qtsp_SearchChild(const QObject* root, const char* objectName,
                                               const char* className, bool recursive);
