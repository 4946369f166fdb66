#pragma once

#include <optional>
#include <string>
#include <vector>

/// A piece of an expression as the simulator reads it.
struct SimToken {
  enum class Kind {
    Number,   ///< with its suffix and unit: 4.7k, 10kOhm
    Text,     ///< with its double quotes
    Name,     ///< of a parameter, or a quantity as time
    Function, ///< the name in front of a bracket; V and I as well
    Node,     ///< of V(node, node) or I(source)
    Operator,
    Bracket,
    Comma,
  };
  Kind kind;
  std::string text; ///< as typed
};

/// The tokens of an expression by the rules of SPICE. Nothing where it does not parse, and where a
/// sign beyond ASCII stands outside of texts that is no letter, mark or digit: what documents have
/// for minus, times or a blank would else be a part of a name. Names of functions that are not the
/// simulator's stand for those that the circuit defines.
std::optional<std::vector<SimToken>> readSimExpression(const std::string& expression);

/// The expression again, with blanks between two operators and nowhere else.
std::string writeSimExpression(const std::vector<SimToken>& tokens);

/// Whether it is this name: letter case makes no difference to the simulator.
bool isSimName(const std::string& name, const std::string& other);
