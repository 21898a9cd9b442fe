#include "tests/document/random_document.h"

#include <vector>

#include "tests/support/files.h"

namespace klepur::test {
namespace {

const std::vector<std::string>& Keywords() {
  static const std::vector<std::string> words = {"option routers",    "option domain-name-servers",
                                                 "max-lease-time",    "min-lease-time",
                                                 "next-server",       "filename",
                                                 "fixed-address",     "option domain-name",
                                                 "default-lease-time"};
  return words;
}

const std::vector<std::string>& Values() {
  static const std::vector<std::string> values = {
      "600",  "10.0.0.1, 10.0.0.2",          "10.0.0.7", "\"a;b\"", "\"x # { } \\\" y\"",
      "7200", "10.0.0.1,10.0.0.2, 10.0.0.3", "00:11:22"};
  return values;
}

const std::vector<std::string>& Prose() {
  static const std::vector<std::string> lines = {"phones",        "Bob's laptop; do not move",
                                                 "was { once }",  "",
                                                 "-------------", "see \"the list",
                                                 "10.0.0.1",      "third floor, room 4"};
  return lines;
}

/// Writes one file in one random style, with leanings to do what it did before.
class Writer {
 public:
  explicit Writer(Chance& chance)
      : chance_(chance),
        step_(chance.Pick(Steps())),
        own_line_braces_(chance.OneIn(3)),
        one_lines_(chance.Between(2, 5)),
        comments_(chance.Between(3, 8)) {}

  std::string File() {
    if (chance_.OneIn(3)) Banner("");
    for (std::size_t count = chance_.Below(8); count > 0; --count) Child("", 0);
    if (chance_.OneIn(4)) Footer("");
    if (chance_.OneIn(4) && !text_.empty()) text_.pop_back();
    return text_;
  }

 private:
  static const std::vector<std::string>& Steps() {
    static const std::vector<std::string> steps = {"\t", "  ", "    ", " ", ""};
    return steps;
  }

  void Banner(const std::string& indentation) {
    for (std::size_t count = chance_.Between(1, 3); count > 0; --count) Comment(indentation);
    text_ += chance_.OneIn(4) ? "\n\n" : "\n";
  }

  void Footer(const std::string& indentation) {
    if (chance_.OneIn(2)) text_ += "\n";
    Comment(indentation);
  }

  void Comment(const std::string& indentation) {
    text_ += indentation + Mark() + chance_.Pick(Prose()) + "\n";
  }

  std::string Mark() { return chance_.OneIn(4) ? "#" : "# "; }

  std::string Trailing() {
    if (!chance_.OneIn(comments_)) return chance_.OneIn(15) ? " " : "";
    return std::string(chance_.Between(1, 4), chance_.OneIn(5) ? '\t' : ' ') + Mark() +
           chance_.Pick(Prose());
  }

  void Child(const std::string& indentation, std::size_t depth) {
    if (chance_.OneIn(6)) text_ += chance_.OneIn(5) ? " \n" : "\n";
    if (chance_.OneIn(comments_ * 2)) Banner(indentation);
    if (chance_.OneIn(comments_)) Comment(indentation);
    if (chance_.OneIn(comments_ * 2)) Disabled(indentation);
    if (depth < 3 && chance_.OneIn(3)) {
      Block(indentation, depth);
    } else {
      Statements(indentation);
    }
  }

  void Disabled(const std::string& indentation) {
    if (chance_.OneIn(2)) {
      text_ += indentation + Mark() + RandomStatement(chance_) + "\n";
    } else {
      const std::string mark = Mark();
      text_ += indentation + mark + "host " + RandomName(chance_) + " {\n";
      text_ += indentation + mark + "  " + RandomStatement(chance_) + "\n";
      text_ += indentation + mark + "}\n";
    }
  }

  void Statements(const std::string& indentation) {
    text_ += indentation;
    if (chance_.OneIn(10)) {
      text_ += "option domain-name-servers\n" + indentation + step_ + "  10.0.0.1,  # one\n" +
               indentation + step_ + "  10.0.0.2;";
    } else if (chance_.OneIn(20)) {
      text_ += "option domain-name \"one\n two\";";
    } else {
      text_ += RandomStatement(chance_);
    }
    while (chance_.OneIn(8)) text_ += " " + RandomStatement(chance_);
    text_ += Trailing() + "\n";
  }

  void Block(const std::string& indentation, std::size_t depth) {
    if (chance_.OneIn(6)) return Conditions(indentation, depth);
    const std::string header = Header();
    const bool key = header.compare(0, 4, "key ") == 0;
    text_ += indentation + header;
    if (chance_.OneIn(one_lines_)) {
      OneLineBody(depth);
    } else {
      Body(indentation, depth);
    }
    if (key && chance_.OneIn(2)) text_ += ";";
    text_ += Trailing() + "\n";
  }

  std::string Header() {
    switch (chance_.Below(6)) {
      case 0:
        return "group";
      case 1:
        return "subnet 10.0." + std::to_string(chance_.Below(9)) + ".0 netmask 255.255.255.0";
      case 2:
        return "class \"" + RandomName(chance_) + " x\"";
      case 3:
        return "key " + RandomName(chance_);
      default:
        return "host " + RandomName(chance_);
    }
  }

  void OneLineBody(std::size_t depth) {
    const bool padded = !chance_.OneIn(3);
    text_ += padded ? " { " : " {";
    for (std::size_t count = chance_.Below(4); count > 0; --count) {
      if (depth < 2 && chance_.OneIn(8)) {
        text_ += "group";
        OneLineBody(depth + 1);
      } else {
        text_ += RandomStatement(chance_);
      }
      if (count > 1) text_ += " ";
    }
    text_ += padded ? " }" : "}";
  }

  void Body(const std::string& indentation, std::size_t depth) {
    text_ += own_line_braces_ ? "\n" + indentation + "{" : " {";
    text_ += Trailing() + "\n";
    if (chance_.OneIn(12)) text_ += "\n";
    for (std::size_t count = chance_.Below(6); count > 0; --count) {
      Child(indentation + step_, depth + 1);
    }
    if (chance_.OneIn(6)) Footer(indentation + step_);
    text_ += indentation + "}";
  }

  void Conditions(const std::string& indentation, std::size_t depth) {
    text_ += indentation + "if option arch = 00:07";
    Body(indentation, depth);
    while (chance_.OneIn(3)) {
      text_ += (chance_.OneIn(2) ? " " : "\n" + indentation) + std::string("elsif known");
      Body(indentation, depth);
    }
    if (chance_.OneIn(2)) {
      text_ += (chance_.OneIn(2) ? " " : "\n" + indentation) + std::string("else");
      Body(indentation, depth);
    }
    text_ += Trailing() + "\n";
  }

  Chance& chance_;
  std::string text_;
  const std::string step_;
  const bool own_line_braces_;
  const std::size_t one_lines_;
  const std::size_t comments_;
};

}  // namespace

std::string RandomDocumentText(Chance& chance) {
  std::string text = Writer(chance).File();
  if (chance.OneIn(3)) text = WithCarriageReturns(text);
  return text;
}

std::string RandomStatement(Chance& chance) {
  if (chance.OneIn(10)) return "authoritative;";
  return chance.Pick(Keywords()) + " " + RandomValue(chance) + ";";
}

std::string RandomBlock(Chance& chance) {
  const std::string name = "host " + RandomName(chance);
  const std::string first = RandomStatement(chance);
  const std::string second = RandomStatement(chance);
  switch (chance.Below(4)) {
    case 0:
      return name + " { " + first + " }";
    case 1:
      return name + " {\n  " + first + "\n  " + second + "\n}";
    case 2:
      return "group\n{\n" + name + " {" + first + second + "}\n}";
    default:
      return name + " {}";
  }
}

std::string RandomValue(Chance& chance) {
  return chance.Pick(Values());
}

std::string RandomName(Chance& chance) {
  static const std::vector<std::string> names = {"a", "b", "pc1", "pc-2", "x.example"};
  return chance.Pick(names);
}

}  // namespace klepur::test
