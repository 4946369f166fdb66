#pragma once

#include <QJSValue>
#include <QString>

class QJSEngine;

// The host's own script code, NAME.js in this folder.

/// Where it says it comes from, so that its frames can be left out of what scripts are told.
QString hostScriptName();

/// Runs NAME.js, which is one function, on the global object and `bridge`, and gives its result.
QJSValue runHostScript(QJSEngine* engine, const QString& name, const QJSValue& bridge);
