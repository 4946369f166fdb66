#include "Services/Digitiser/Digitise.h"

#include "Services/Digitiser/DigitiserDialog.h"
#include "Services/Digitiser/PictureFile.h"

#include <QMessageBox>

bool digitise(QWidget* over, const QString& path, std::vector<double>* x, std::vector<double>* y) {
  const PictureFile file = readPicture(path);
  if (!file.fault.isEmpty()) {
    QMessageBox::warning(over, DigitiserDialog::tr("Digitise Curve"), file.fault);
    return false;
  }
  DigitiserDialog dialog(file.picture, over);
  if (dialog.exec() != QDialog::Accepted)
    return false;
  x->clear();
  y->clear();
  for (const QPointF& value : dialog.values()) {
    x->push_back(value.x());
    y->push_back(value.y());
  }
  return true;
}
