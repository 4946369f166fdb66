#pragma once

#include "Script/ScriptRunner.h"
#include "Services/Service.h"

/// A script's function as the provider of a service; the runner has to outlive it. It is called
/// with the arguments of an entry or operation one by one, or with those of a host function as one
/// array. What it throws is raised as `CallError`, and so is an answer that is no use to the
/// service.
Provider scriptProvider(ScriptRunner* runner, const QJSValue& function, const Service& service);
