#include <QApplication>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <cstdio>

// The least that a Qt program can do to show the box of ColdStartBenchmark: four labelled numbers
// in a group, OK and Cancel. Says so once it is painted, and ends.

namespace {

class OnePaintDialog : public QDialog {
protected:
  void paintEvent(QPaintEvent* event) override {
    QDialog::paintEvent(event);
    QTimer::singleShot(0, this, [this] {
      std::puts("painted");
      std::fflush(stdout);
      reject();
    });
  }
};

} // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  OnePaintDialog dialog;
  auto* layout = new QVBoxLayout(&dialog);
  auto* group = new QGroupBox(&dialog);
  auto* rows = new QGridLayout(group);
  int row = 0;
  for (const char* caption : {"a", "b", "c", "d"}) {
    rows->addWidget(new QLabel(QString::fromLatin1(caption), group), row, 0);
    rows->addWidget(new QDoubleSpinBox(group), row++, 1);
  }
  layout->addWidget(group);
  auto* buttons = new QHBoxLayout;
  for (const char* caption : {"OK", "Cancel"})
    buttons->addWidget(new QPushButton(QString::fromLatin1(caption), &dialog));
  layout->addLayout(buttons);
  dialog.exec();
  return 0;
}
