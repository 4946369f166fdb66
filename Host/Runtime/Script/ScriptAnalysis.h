#pragma once

#include "BrennixAnalysisData.h"

#include <QJSValue>
#include <QObject>

#include <memory>
#include <vector>

/// What `host.analysis` gives: a block of analysis settings that the host owns, and its state now.
class ScriptAnalysis : public QObject {
  Q_OBJECT
  /// `[{name, type, value, text, isSet}]`; `value` is true or false of the types 2 and 3.
  Q_PROPERTY(QJSValue parameters READ parameters)
  Q_PROPERTY(QJSValue fields READ fields)

public:
  /// Raises `CallError` for members that are not as they must be.
  ScriptAnalysis(const QJSValue& parameters, const QJSValue& fields);
  ScriptAnalysis(const ScriptAnalysis&) = delete;
  ScriptAnalysis& operator=(const ScriptAnalysis&) = delete;

  static ScriptAnalysis* of(const QJSValue& value); ///< null for any other value
  /// The block, which stays as long as somebody holds it: a script may destroy this object while a
  /// module edits what it stands for.
  std::shared_ptr<BrennixAnalysisData> data() const { return {m_block, &m_block->data}; }

  QJSValue parameters() const;
  QJSValue fields() const;

private:
  struct Block {
    std::vector<AnalysisParameter> parameters;
    BrennixAnalysisData data{};
  };
  std::shared_ptr<Block> m_block = std::make_shared<Block>();
};
