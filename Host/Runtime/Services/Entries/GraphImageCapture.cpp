#include "Services/Digitiser/Digitise.h"
#include "Services/Entries/Entries.h"
#include "Services/Entries/EntryCall.h"

#include <QApplication>

CallResult ownGraphImageCapture(const std::vector<ScriptVector>& arguments) {
  QWidget* const modal = QApplication::activeModalWidget();
  CallResult curve;
  if (digitise(modal ? modal : QApplication::activeWindow(), textOf(arguments), &curve.references,
               &curve.reals))
    curve.type = CallResult::Type::Real;
  return curve;
}

bool graphImageCaptureEntry(const GraphImageCaptureRecord& input, GraphImageCaptureRecord* output,
                            KvVector<double>* x, KvVector<double>* y) {
  return asEntry([&] {
    CallResult curve = askForCurve(dyn_GraphImageCapture.name, textArgument(input.picture));
    if (!curve.made())
      return false;
    *output = input;
    *x = KvVector<double>(std::move(curve.references));
    *y = KvVector<double>(std::move(curve.reals));
    return true;
  });
}
