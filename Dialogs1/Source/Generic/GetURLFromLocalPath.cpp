#include "Frame/ScriptFunction.h"
#include "HostSupport/Arguments.h"
#include "HostSupportQt/HostSupportQt.h"

#include <QUrl>

static int getURLFromLocalPath(UserFunctionInterface* call) {
  YString path;
  if (sp_GetScalarString(call, 0, &path))
    setStringResult(call, toYs(QUrl::fromLocalFile(toQs(path)).toString()));
  return 0;
}

static const ScriptFunction declaration("GetURLFromLocalPath", 1, "S", OptionalStringResult,
                                        getURLFromLocalPath);
