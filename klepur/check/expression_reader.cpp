#include <klepur/check/expression_reader.h>

#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace klepur::internal {
namespace {

/// What a value is. The server only knows what a variable or a function of the file gives when it runs.
enum class Type : std::uint8_t { kUnknown, kBoolean, kData, kNumber };

/// How a token that is a word is taken.
enum class Spelling : std::uint8_t { kNumber, kHex, kName };

/// The words that give a value, and what they want behind them: a letter for each argument.
struct KnownWord {
  std::string_view name;
  Type type;
  /// d data, n a number, w a width of 8, 16 or 32, q a text between quotes, v a name, "d+" one or more and "dd+"
  /// two or more; null for no parentheses.
  const char* arguments;
};

constexpr KnownWord kKnownWords[] = {
    {"binary-to-ascii", Type::kData, "nndd"},
    {"client-state", Type::kNumber, nullptr},
    {"concat", Type::kData, "dd+"},
    {"defined", Type::kBoolean, "v"},
    {"encode-int", Type::kData, "nw"},
    {"extract-int", Type::kNumber, "dw"},
    {"filename", Type::kData, nullptr},
    {"gethostbyname", Type::kData, "q"},
    {"gethostname", Type::kData, ""},
    {"hardware", Type::kData, nullptr},
    {"host-decl-name", Type::kData, nullptr},
    {"known", Type::kBoolean, nullptr},
    {"lcase", Type::kData, "d"},
    {"lease-time", Type::kNumber, nullptr},
    {"leased-address", Type::kData, nullptr},
    {"null", Type::kData, nullptr},
    {"packet", Type::kData, "nn"},
    {"pick", Type::kData, "d+"},
    {"pick-first-value", Type::kData, "d+"},
    {"reverse", Type::kData, "nd"},
    {"server-name", Type::kData, nullptr},
    {"static", Type::kBoolean, nullptr},
    {"substring", Type::kData, "dnn"},
    {"suffix", Type::kData, "dn"},
    {"ucase", Type::kData, "d"},
    {"v6relay", Type::kData, "nd"},
};

enum class Operator : std::uint8_t { kNone, kEqual, kLike, kLogic, kSum, kBits };

bool IsLogicWord(std::string_view token) {
  return EqualButForCase(token, "and") || EqualButForCase(token, "or");
}

bool IsHexDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char byte) {
    const char small = ToSmallLetter(byte);
    return IsDigit(byte) || (small >= 'a' && small <= 'f');
  });
}

bool IsWordToken(std::string_view token) {
  return !token.empty() && IsWordByte(token.front()) && token.front() != '_';
}

Spelling SpellingOf(std::string_view token) {
  const bool negative = token.front() == '-';
  if (negative) token.remove_prefix(1);
  if (token.empty()) return Spelling::kHex;
  if (std::all_of(token.begin(), token.end(), IsDigit)) return Spelling::kNumber;
  if (IsHexDigits(token)) return Spelling::kHex;
  if (negative) return Spelling::kName;
  // The first letter of a word is not looked at.
  if (IsLetter(token.front()) && IsHexDigits(token.substr(1))) return Spelling::kHex;
  if (token.size() > 1 && token[0] == '0' && ToSmallLetter(token[1]) == 'x' &&
      IsHexDigits(token.substr(2))) {
    return Spelling::kHex;
  }
  return Spelling::kName;
}

/// What the server binds closer has a larger number. Sums are looser than comparisons, which is a mistake of its own.
int ClosenessOf(Operator op) {
  switch (op) {
    case Operator::kNone:
      return 0;
    case Operator::kLogic:
    case Operator::kSum:
      return 1;
    case Operator::kEqual:
    case Operator::kLike:
      return 2;
    case Operator::kBits:
      return 3;
  }
  return 0;
}

class Reader {
 public:
  Reader(std::string_view text, ValueProblem& problem) : text_(text), problem_(problem) {}

  std::string_view Rest() const { return text_; }
  bool GaveUp() const { return depth_ > kMostDepth; }

  void Read(Wanted wanted) {
    const Type context = wanted == Wanted::kCondition ? Type::kBoolean
                         : wanted == Wanted::kChoice  ? Type::kNumber
                                                      : Type::kData;
    const std::string_view begin = Front();
    const Type type = Expression(context);
    if (problem_) return;
    const Type right = wanted == Wanted::kCondition ? Type::kBoolean
                       : wanted == Wanted::kData    ? Type::kData
                                                    : type;
    const std::string_view front = Front();
    const bool goes_on = !front.empty() && front != ")" && front != ",";
    if (goes_on && type != right && type != Type::kUnknown) {
      Fail(front, Excerpt(front) + " is no operator");
    }
    Want(right, type, begin);
  }

 private:
  std::string_view Front() const { return FrontToken(text_); }

  std::string_view Take() {
    last_ = TakeToken(text_);
    return last_;
  }

  bool TakeIf(std::string_view token) {
    if (!EqualButForCase(Front(), token)) return false;
    Take();
    return true;
  }

  /// The first problem is the one that counts.
  void Fail(std::string_view at, std::string message) {
    if (!problem_ && !GaveUp()) problem_ = {"malformed-expression", at, std::move(message)};
  }

  /// Something is missing before the front token, or at the end.
  void Missing(const std::string& what) {
    const std::string_view front = Front();
    if (front.empty()) {
      Fail(last_, what + " is missing behind " + Excerpt(last_));
    } else {
      Fail(front, what + " is missing before " + Excerpt(front));
    }
  }

  bool Expect(std::string_view token) {
    if (TakeIf(token)) return true;
    Missing("a \"" + std::string(token) + "\"");
    return false;
  }

  void Want(Type wanted, Type type, std::string_view begin) {
    if (problem_ || type == wanted || type == Type::kUnknown) return;
    constexpr const char* kKinds[] = {"", "a condition", "data", "a number"};
    Fail(begin, "what begins with " + Excerpt(begin) + " is " +
                    kKinds[static_cast<std::size_t>(type)] + ", not " +
                    kKinds[static_cast<std::size_t>(wanted)]);
  }

  /// Reads to where no operator follows. `context` says what is expected.
  Type Expression(Type context) {
    Type type = ReadOperand(context);
    while (!problem_) {
      const Operator op = PeekOperator();
      if (op == Operator::kNone) break;
      type = Binary(type, op, type);
    }
    return type;
  }

  /// The rest of an operation behind its left side, together with what binds closer than it on its right.
  Type Binary(Type left, Operator op, Type context) {
    const std::string_view sign = TakeOperator(op);
    if (problem_) return Type::kUnknown;
    const std::string_view begin = Front();
    Type right = ReadOperand(context);
    Operator next = problem_ ? Operator::kNone : PeekOperator();
    if (ClosenessOf(next) > ClosenessOf(op)) {
      const Type inner = next == Operator::kBits ? Type::kNumber : Type::kData;
      // What follows is taken together, whatever its operators.
      for (Type now = inner; next != Operator::kNone && !problem_; next = PeekOperator()) {
        right = Binary(right, next, now);
        now = right;
      }
    }
    return problem_ ? Type::kUnknown : Joined(left, op, right, sign, begin);
  }

  Type Joined(Type left, Operator op, Type right, std::string_view sign, std::string_view begin) {
    if (left != right && left != Type::kUnknown && right != Type::kUnknown) {
      Fail(sign, "the two sides of " + Excerpt(sign) + " are of different kinds");
      return Type::kUnknown;
    }
    switch (op) {
      case Operator::kEqual:
        if (right == Type::kBoolean) Fail(sign, "conditions cannot be compared");
        return Type::kBoolean;
      case Operator::kLike:
        if (right != Type::kData && sign.back() == '=')
          Fail(begin, "what stands behind " + Excerpt(sign) + " must be data");
        return Type::kBoolean;
      case Operator::kLogic:
        Want(Type::kBoolean, right, begin);
        return Type::kBoolean;
      default:
        Want(Type::kNumber, right, begin);
        return Type::kNumber;
    }
  }

  Operator PeekOperator() {
    const std::string_view front = Front();
    if (IsLogicWord(front)) return Operator::kLogic;
    if (front.size() != 1) return Operator::kNone;
    switch (front.front()) {
      case '=':
      case '!':
        return Operator::kEqual;
      case '~':
        return Operator::kLike;
      case '+':
      case '*':
      case '/':
      case '%':
        return Operator::kSum;
      case '&':
      case '|':
      case '^':
        return Operator::kBits;
      default:
        return Operator::kNone;
    }
  }

  /// The operator as written. Those of other languages are told with what they are here.
  std::string_view TakeOperator(Operator op) {
    const std::string_view sign = Take();
    const auto with_next = [&] {
      return std::string_view(sign.data(),
                              static_cast<std::size_t>(Front().data() - sign.data()) + 1);
    };
    if (sign == "!" && !TakeIf("=")) Missing("a \"=\"");
    if (sign == "~") {
      const std::string_view both = with_next();
      if (TakeIf("~") || TakeIf("=")) return both;
      Missing("another \"~\", or a \"=\",");
    }
    const bool twice = sign == Front() && (sign == "=" || sign == "&" || sign == "|");
    if (twice && op != Operator::kLike) {
      const char* const meant = sign == "=" ? "=" : sign == "&" ? "and" : "or";
      const std::string_view both = with_next();
      Fail(both, Excerpt(both) + " is no operator; \"" + meant + "\" may be meant");
      problem_.instead = std::string(meant);
    }
    return sign;
  }

  Type ReadOperand(Type context) {
    if (++depth_ > kMostDepth) {  // nothing is told any more
      text_ = {};
      return Type::kUnknown;
    }
    const Type type = ReadWithin(context);
    if (!GaveUp()) --depth_;
    return type;
  }

  Type ReadWithin(Type context) {
    const std::string_view front = Front();
    if (front.empty()) {
      Missing("a value");
      return Type::kUnknown;
    }
    if (front == "(") {
      Take();
      const Type type = Expression(context);
      if (!problem_) Expect(")");
      return type;
    }
    if (front.front() == '"' && front.size() > 1) {
      Take();
      return Type::kData;
    }
    if (!IsWordToken(front) || IsLogicWord(front)) {
      Fail(front, Excerpt(front) + " stands where a value must");
      return Type::kUnknown;
    }
    return Word(front, context);
  }

  Type Word(std::string_view front, Type context) {
    if (EqualButForCase(front, "not")) {
      Take();
      const std::string_view begin = Front();
      const Type type = ReadOperand(Type::kBoolean);
      if (!problem_ && type != Type::kBoolean) {
        Fail(begin, "what stands behind \"not\" is no condition");
      }
      return Type::kBoolean;
    }
    if (EqualButForCase(front, "exists")) return Option(Type::kBoolean);
    if (EqualButForCase(front, "option") || EqualButForCase(front, "config-option")) {
      return Option(Type::kData);
    }
    if (EqualButForCase(front, "check")) {
      Take();
      if (Front().empty() || Front().front() != '"') Missing("the name of a class between quotes");
      Take();
      return Type::kBoolean;
    }
    const auto* const found =
        std::find_if(std::begin(kKnownWords), std::end(kKnownWords),
                     [&](const KnownWord& word) { return EqualButForCase(word.name, front); });
    if (found != std::end(kKnownWords)) {
      Take();
      if (found->arguments != nullptr) Arguments(found->arguments);
      return found->type;
    }
    switch (SpellingOf(front)) {
      case Spelling::kNumber:
        if (context == Type::kNumber) {
          Take();
          return Type::kNumber;
        }
        return Bytes();
      case Spelling::kHex:
        return Bytes();
      case Spelling::kName:
        break;
    }
    Take();
    if (TakeIf("(")) Values();
    return Type::kUnknown;
  }

  /// The name of an option behind "option" or "exists".
  Type Option(Type type) {
    Take();
    const bool named = IsWordToken(Front()) && SpellingOf(Front()) != Spelling::kNumber;
    if (!named) {
      Missing("the name of an option");
      return type;
    }
    Take();
    if (TakeIf(".")) {
      if (!IsWordToken(Front())) Missing("the name of an option");
      Take();
    }
    return type;
  }

  /// 1:2f:0. What is no name is read so too.
  Type Bytes() {
    do {
      const std::string_view token = Front();
      const bool is_number = IsWordToken(token) && SpellingOf(token) != Spelling::kName;
      if (is_number && IsHexByte(token)) {
        Take();
      } else if (is_number) {
        Fail(token, "the server reads " + Excerpt(token) + " as a byte in hexadecimal");
      } else {
        Missing("a byte in hexadecimal");
      }
    } while (!problem_ && TakeIf(":"));
    return Type::kData;
  }

  /// Those of a function of the file.
  void Values() {
    do {
      Expression(Type::kUnknown);
    } while (!problem_ && TakeIf(","));
    if (!problem_) Expect(")");
  }

  void Arguments(const char* kinds) {
    if (!Expect("(")) return;
    for (const char* kind = kinds; *kind != 0 && *kind != '+' && !problem_; ++kind) {
      if (kind != kinds && !Expect(",")) return;
      Argument(*kind);
      if (kind[1] == '+') {
        while (!problem_ && TakeIf(",")) Argument(*kind);
      }
    }
    if (!problem_) Expect(")");
  }

  void Argument(char kind) {
    const std::string_view begin = Front();
    switch (kind) {
      case 'd':
        return Want(Type::kData, Expression(Type::kData), begin);
      case 'n':
        return Want(Type::kNumber, Expression(Type::kNumber), begin);
      case 'w':
        return Width();
      case 'q':
        if (begin.empty() || begin.front() != '"') return Missing("a text between quotes");
        break;
      default:
        if (!IsWordToken(begin)) return Missing("the name of a variable");
        break;
    }
    Take();
  }

  /// 8, 16 or 32, also with zeros in front.
  void Width() {
    const std::string_view token = Front();
    const std::string_view width =
        token.substr(std::min(token.find_first_not_of('0'), token.size()));
    if (width == "8" || width == "16" || width == "32") {
      Take();
    } else if (token.empty()) {
      Missing("a width of 8, 16 or 32");
    } else {
      Fail(token, Excerpt(token) + " is no width of an integer: that is 8, 16 or 32");
    }
  }

  static constexpr int kMostDepth = 1000;

  std::string_view text_;
  std::string_view last_;
  ValueProblem& problem_;
  int depth_ = 0;
};

}  // namespace

std::string_view FrontToken(std::string_view text) noexcept {
  return TakeToken(text);
}

std::string_view TakeToken(std::string_view& text) noexcept {
  text = WithoutLeadingBlanks(text);
  std::size_t size = std::min<std::size_t>(text.size(), 1);
  if (!text.empty() && text.front() == '"') {
    const std::size_t end = StringEnd(text, 0);
    if (end != std::string_view::npos) size = end;
  } else if (IsWordToken(text)) {
    while (size != text.size() && IsWordByte(text[size])) ++size;
  }
  const std::string_view token = text.substr(0, size);
  text = WithoutLeadingBlanks(text.substr(size));
  return token;
}

bool TakeExpression(std::string_view& text, Wanted wanted, ValueProblem& problem) {
  Reader reader(text, problem);
  reader.Read(wanted);
  text = reader.Rest();
  return !reader.GaveUp();
}

}  // namespace klepur::internal
