#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QTimer>

// The least that a Qt program can do to show four numbers, and ends once they are painted.

namespace {

class OnePaintDialog : public QDialog {
protected:
  void paintEvent(QPaintEvent* event) override {
    QDialog::paintEvent(event);
    QTimer::singleShot(0, this, &QDialog::reject);
  }
};

} // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  OnePaintDialog dialog;
  auto* layout = new QFormLayout(&dialog);
  for (const char* caption : {"a", "b", "c", "d"})
    layout->addRow(QString::fromLatin1(caption), new QDoubleSpinBox(&dialog));
  layout->addRow(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog));
  dialog.exec();
  return 0;
}
