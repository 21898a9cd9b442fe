// The manual lists every rule, and its examples are what it says.
#include <klepur/check/check_rules.h>
#include <klepur/check/checker.h>

#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <vector>

#include "tests/support/files.h"

namespace klepur::test {
namespace {

/// What the manual says of a rule.
struct Section {
  std::string name;
  std::string first_line;  ///< Of the paragraph, over its lines.
  std::string example;
  std::string said;
};

/// The text between two marks, from a place on.
std::string Between(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t at = text.find(begin);
  if (at == std::string::npos) return {};
  const std::size_t from = at + begin.size();
  return text.substr(from, text.find(end, from) - from);
}

/// The bytes that the manual writes as a word.
std::string WithNuls(std::string text) {
  const std::size_t at = text.find("NUL\n");
  return at == std::string::npos ? text : text.replace(at, 3, 2, '\0');
}

std::vector<Section> Sections() {
  const std::string manual = ReadFile(KLEPUR_DOCS "/checks.md");
  std::vector<Section> sections;
  const std::string heading = "\n### ";
  for (std::size_t at = manual.find(heading); at != std::string::npos;) {
    const std::size_t next = manual.find(heading, at + 1);
    const std::string text = manual.substr(at + heading.size(), next - at - heading.size());
    Section section;
    section.name = text.substr(0, text.find('\n'));
    section.first_line = Between(text, "\n\n", "\n\n");
    for (char& byte : section.first_line) byte = byte == '\n' ? ' ' : byte;
    const std::string block = Between(text, "```conf", "```");
    section.example = WithNuls(block.substr(block.find('\n') + 1));
    section.said = Between(text.substr(text.rfind("```")), "\n\n    ", "\n");
    sections.push_back(section);
    at = next;
  }
  return sections;
}

/// A finding as the manual has it, without severity and rule, which stand above it.
std::string InTheManual(const CheckFinding& finding) {
  const std::string text = ToText(finding);
  const std::string severity = std::string(ToText(finding.severity)) + ": ";
  const std::size_t at = text.find(severity);
  return text.substr(0, at - 2) + " " +
         text.substr(at + severity.size(), text.rfind(" [") - at - severity.size());
}

TEST(ChecksManual, HasASectionForEachRuleInTheirOrder) {
  std::vector<std::string> rules;
  for (const CheckRule& rule : CheckRules()) rules.emplace_back(rule.name);
  std::vector<std::string> sections;
  for (const Section& section : Sections()) sections.push_back(section.name);
  EXPECT_EQ(sections, rules);
}

TEST(ChecksManual, SaysTheSeverityAndTheTitleOfEachRule) {
  for (const Section& section : Sections()) {
    const auto rule = FindCheckRule(section.name);
    ASSERT_TRUE(rule) << section.name;
    std::string severity(ToText(rule->severity));
    severity[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(severity[0])));
    const std::string begin = "**" + severity + ".** " + std::string(rule->title) + ". ";
    EXPECT_EQ(section.first_line.substr(0, begin.size()), begin) << section.name;
  }
}

TEST(ChecksManual, ItsExamplesGiveWhatItSays) {
  for (const Section& section : Sections()) {
    const Document document(section.example);
    const std::vector<CheckFinding> findings = Check(document);
    ASSERT_EQ(findings.size(), 1U) << section.name << "\n" << section.example;
    EXPECT_EQ(findings[0].rule, section.name);
    EXPECT_EQ(InTheManual(findings[0]), section.said) << section.name;
  }
}

TEST(ChecksManual, MendsOfItsExamplesPutThemRight) {
  std::string mended;
  for (const Section& section : Sections()) {
    Document document(section.example);
    const std::vector<CheckFinding> findings = Check(document);
    if (findings.empty() || !findings[0].mend) continue;
    mended += section.name + "\n";
    EXPECT_TRUE(findings[0].mend->Fits(document));
    findings[0].mend->Apply(document);
    EXPECT_FALSE(findings[0].mend->Fits(document)) << section.name;
    EXPECT_TRUE(Check(document).empty()) << section.name << "\n" << document.Text();
  }
  EXPECT_EQ(mended,
            "missing-semicolon\n"
            "empty-statement\n"
            "malformed-text\n"
            "malformed-expression\n"
            "host-bits\n"
            "misspelled-keyword\n"
            "unknown-permission\n"
            "lone-word\n"
            "malformed-name\n"
            "unknown-option\n"
            "reversed-range\n");
}

}  // namespace
}  // namespace klepur::test
