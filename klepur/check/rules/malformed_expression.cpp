// Conditions and other expressions that the server cannot read, and the statements that are made of them.
#include <klepur/check/expression_reader.h>

#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <string>

namespace klepur::internal {
namespace {

constexpr std::string_view kRule = "malformed-expression";

/// A statement's value, taken token by token.
class Taker {
 public:
  Taker(ValueWords& words, ValueProblem& problem)
      : words_(words), problem_(problem), text_(words.Rest()) {}
  ~Taker() { words_ = ValueWords(text_); }
  Taker(const Taker&) = delete;
  Taker& operator=(const Taker&) = delete;

  bool Is(std::string_view token) const { return EqualButForCase(FrontToken(text_), token); }

  bool Skip(std::string_view token) {
    if (!Is(token)) return false;
    last_ = TakeToken(text_);
    return true;
  }

  /// Whether what follows may be a value.
  bool BeginsValue() const {
    const std::string_view front = FrontToken(text_);
    const bool begins = !front.empty() &&
                        (IsWordByte(front.front()) || front.front() == '"' || front.front() == '(');
    return begins && !Is("and") && !Is("or");
  }

  void Drop() { text_ = {}; }

  void Want(std::string_view token) {
    if (!problem_ && !Skip(token)) Missing("a \"" + std::string(token) + "\"");
  }

  void Expression(Wanted wanted) {
    if (problem_) return;
    if (text_.empty()) return Missing("an expression");
    gave_up_ = !TakeExpression(text_, wanted, problem_) || gave_up_;
  }

  void Quoted() {
    if (problem_) return;
    if (text_.empty() || text_.front() != '"') return Missing("a text between quotes");
    last_ = TakeToken(text_);
  }

  void Variable() {
    if (problem_) return;
    const std::string_view name = FrontToken(text_);
    const bool is_word = !name.empty() && IsWordByte(name.front()) && name.front() != '_';
    if (is_word && !std::all_of(name.begin(), name.end(), IsDigit)) {
      last_ = TakeToken(text_);
    } else if (name.empty()) {
      Missing("the name of a variable");
    } else {
      problem_ = {kRule, name, Excerpt(name) + " is no name of a variable"};
    }
  }

  /// The value is at its end.
  void End() {
    if (problem_ || text_.empty()) return;
    const std::string_view more = FrontToken(text_);
    problem_ = {kRule, more, Excerpt(more) + " stands behind the end of the expression"};
  }

 private:
  void Missing(const std::string& what) {
    if (gave_up_) return;
    const std::string_view front = FrontToken(text_);
    problem_ = {
        kRule, front.empty() ? last_ : front,
        what + (front.empty() ? " is missing at the end" : " is missing before " + Excerpt(front))};
  }

  ValueWords& words_;
  ValueProblem& problem_;
  std::string_view text_;
  std::string_view last_;
  bool gave_up_ = false;
};

void ReadOne(ValueWords& words, Wanted wanted, ValueProblem& problem) {
  Taker taker(words, problem);
  taker.Expression(wanted);
  taker.End();
}

}  // namespace

/// That of "if": one that begins with a "(" ends at its ")".
void ReadCondition(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const std::string_view whole = words.Rest();
  Taker taker(words, problem);
  if (!taker.Skip("(")) {
    taker.Expression(Wanted::kCondition);
    return taker.End();
  }
  taker.Expression(Wanted::kCondition);
  taker.Want(")");
  if (!problem && (taker.Is("and") || taker.Is("or"))) {
    const std::string_view condition = UpToLastWord(whole);
    problem = {kRule, condition,
               "the condition ends at the \")\" of the \"(\" that it begins with; the whole of it "
               "wants parentheses",
               '(' + std::string(condition) + ')'};
  }
  taker.End();
}

/// Nothing, or "if" and a condition.
void ReadElse(ValueWords& words, std::string_view type, ValueProblem& problem) {
  const std::string_view value = words.Rest();
  if (!words.Skip("if")) {
    problem = {kRule, value,
               "behind \"else\" stands a \"{\" or an \"if\", not " + Excerpt(FrontToken(value))};
  } else if (words.AtEnd()) {
    problem = {kRule, value, "the condition is missing"};
  } else {
    ReadCondition(words, type, problem);
  }
}

void ReadMatchCondition(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  ReadOne(words, Wanted::kCondition, problem);
}

void ReadDataExpression(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  ReadOne(words, Wanted::kData, problem);
}

void ReadAnyExpression(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  ReadOne(words, Wanted::kAny, problem);
}

void ReadSwitch(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  Taker taker(words, problem);
  taker.Want("(");
  taker.Expression(Wanted::kChoice);
  taker.Want(")");
  taker.End();
}

/// NAME = expression.
void ReadAssignment(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  Taker taker(words, problem);
  taker.Variable();
  taker.Want("=");
  taker.Expression(Wanted::kAny);
  taker.End();
}

void ReadUnset(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  Taker taker(words, problem);
  taker.Variable();
  taker.End();
}

/// NAME = expression, or NAME ( NAMES ), before a block.
void ReadDefine(ValueWords& words, std::string_view type, ValueProblem& problem) {
  ValueWords behind = words;
  std::string_view rest = behind.Rest();
  TakeToken(rest);
  if (FrontToken(rest) != "(") return ReadAssignment(words, type, problem);
  Taker taker(words, problem);
  taker.Variable();
  taker.Want("(");
  while (!problem && !taker.Is(")")) {
    taker.Variable();
    if (!taker.Skip(",")) break;
  }
  taker.Want(")");
  taker.End();
}

/// ( [level,] expression ). The server passes over what begins as no expression does.
void ReadLog(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  Taker taker(words, problem);
  taker.Want("(");
  for (const std::string_view level : {"fatal", "error", "info", "debug"}) {
    if (problem || !taker.Skip(level)) continue;
    taker.Want(",");
    break;
  }
  if (!problem && !taker.BeginsValue()) return taker.Drop();
  taker.Expression(Wanted::kData);
  taker.Want(")");
  taker.End();
}

/// ( "command", expressions ).
void ReadExecute(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  Taker taker(words, problem);
  taker.Want("(");
  taker.Quoted();
  while (!problem && taker.Skip(",")) taker.Expression(Wanted::kData);
  taker.Want(")");
  taker.End();
}

}  // namespace klepur::internal
