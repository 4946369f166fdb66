#include "Services/Entries/Entries.h"
#include "Services/Entries/EntryCall.h"

CallResult ownOpenListDialog(const std::vector<ScriptVector>&) {
  throw CallError(QStringLiteral("%1: this host has no editor of lists yet")
                      .arg(QLatin1String(dyn_OpenListDialog.name)));
}

bool openListDialogEntry(QWidget*, YArray<YString>* values) {
  return asEntry([&] {
    std::vector<QByteArray> texts;
    for (const YString& value : *values)
      texts.emplace_back(value.c_str());
    const CallResult answer =
        askProvider(dyn_OpenListDialog.name, {ScriptVector::ofStrings(std::move(texts))});
    if (!answer.made())
      return false;
    values->clear();
    for (const QByteArray& text : answer.strings)
      values->append(YString(text.constData()));
    return true;
  });
}
