#include "Workbench/MessageLog.h"

#include "HostSupport/System.h"
#include "Workbench/Tables.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QTime>

#include <atomic>

namespace {

constexpr int mostMessages = 2000;
constexpr int longestMessage = 5000; // characters

std::atomic<MessageLog*> s_log{nullptr};
QtMessageHandler s_handlerBefore = nullptr;

void forward(const QString& source, const QString& text) {
  MessageLog* log = s_log;
  if (log)
    QMetaObject::invokeMethod(
        log, [log, source, text] { log->add(source, text); }, Qt::QueuedConnection);
}

void takeQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  // The terminal has it as before.
  s_handlerBefore(type, context, text);
  forward(QStringLiteral("Qt"), text);
}

void takeHostMessage(const char* text) {
  const QString message = QString::fromUtf8(text);
  forward(MessageLog::tr("Host"), message);
}

} // namespace

MessageLog::MessageLog(QWidget* parent) : QWidget(parent), m_table(new QTableWidget(0, 3)) {
  m_table->setHorizontalHeaderLabels({tr("Time"), tr("From"), tr("Message")});
  m_table->setAccessibleName(tr("Messages"));
  setUpTable(m_table);
  m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
  m_table->horizontalHeader()->setStretchLastSection(true);
  setFocusProxy(m_table);

  auto* clearButton = new QPushButton(tr("C&lear"));
  connect(clearButton, &QPushButton::clicked, this, &MessageLog::clear);
  layOutPanel(this, m_table, {clearButton});

  s_log = this;
  s_handlerBefore = qInstallMessageHandler(takeQtMessage);
  sp_SetMessageSink(takeHostMessage);
}

MessageLog::~MessageLog() {
  sp_SetMessageSink(nullptr);
  qInstallMessageHandler(s_handlerBefore);
  s_log = nullptr;
}

void MessageLog::add(const QString& source, const QString& text) {
  const int row = m_table->rowCount();
  m_table->insertRow(row);
  const QString shown = text.left(longestMessage);
  const QStringList cells{QTime::currentTime().toString(QStringLiteral("HH:mm:ss")), source,
                          shown.simplified()};
  for (int column = 0; column < cells.size(); ++column) {
    auto* item = new QTableWidgetItem(cells[column]);
    item->setToolTip(column == 2 ? shown : QString());
    m_table->setItem(row, column, item);
  }
  if (m_table->rowCount() > mostMessages)
    m_table->removeRow(0);
  m_table->scrollToBottom();
  emit countChanged(count());
}

void MessageLog::clear() {
  m_table->setRowCount(0);
  emit countChanged(0);
}

int MessageLog::count() const {
  return m_table->rowCount();
}
