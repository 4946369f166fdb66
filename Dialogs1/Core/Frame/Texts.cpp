#include "Core/Frame/Texts.h"

#include "Core/Frame/Integers.h"
#include "HostSupport/Arguments.h"
#include "HostSupport/Registration.h"

#include <algorithm>
#include <utility>

Texts::Texts(UserFunctionInterface* call, int index) {
  sp_GetStringIfVector(call, index, &m_texts, &m_count);
}

Texts::Texts(const FuncArgsMinimal& args, int index)
    : m_texts(args.strings(index)),
      m_count(m_texts ? static_cast<unsigned>(std::max(0, args.count(index))) : 0) {}

const char* Texts::raw(unsigned place) const {
  return has(place) && m_texts[place] ? m_texts[place] : "";
}

QString Texts::text(unsigned place) const {
  return QString::fromUtf8(raw(place));
}

QString Texts::text(unsigned place, const QString& forEmpty) const {
  return *raw(place) ? text(place) : forEmpty;
}

int Texts::number(unsigned place, int forEmpty) const {
  return *raw(place) ? leadingInteger(raw(place)) : forEmpty;
}

bool Texts::flag(unsigned place) const {
  return is(place, flagWord(true));
}

bool Texts::is(unsigned place, const char* word) const {
  return sp_CompareNoCase(raw(place), word) == 0;
}

QStringList Texts::all() const {
  QStringList list;
  list.reserve(static_cast<int>(m_count));
  for (unsigned place = 0; place < m_count; ++place)
    list.append(text(place));
  return list;
}

const char* flagWord(bool isSet) {
  return isSet ? "true" : "false";
}

void TextVector::set(unsigned place, YString text) {
  if (place >= count())
    m_texts.resize(std::size_t{place} + 1);
  m_texts[place] = std::move(text);
}

void TextVector::set(unsigned place, const QString& text) {
  set(place, YString(text.toUtf8().constData()));
}

void TextVector::append(const QStringList& texts) {
  m_texts.reserve(m_texts.size() + static_cast<std::size_t>(texts.size()));
  for (const QString& text : texts)
    append(text);
}

void TextVector::makeResult(UserFunctionInterface* call) const {
  if (char** slot = sp_MakeStringResult(call, static_cast<int>(count())))
    for (const YString& text : m_texts)
      *slot++ = call->hostString(text.c_str());
}

void TextVector::makeResult(FuncResultMinimal* result) const {
  if (char** slot = result->makeStrings(static_cast<int>(count())))
    for (const YString& text : m_texts)
      *slot++ = text.copy();
}
