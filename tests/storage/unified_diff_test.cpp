#include <klepur/storage/unified_diff.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace klepur {
namespace {

struct Case {
  const char* old_text;
  const char* new_text;
  const char* diff;  // behind the two lines with the names
};

TEST(UnifiedDiff, ShowsWhatDiffers) {
  for (const Case& row : std::vector<Case>{
           {"a\n", "b\n", "@@ -1 +1 @@\n-a\n+b\n"},
           {"", "a\nb\n", "@@ -0,0 +1,2 @@\n+a\n+b\n"},
           {"a\nb\n", "", "@@ -1,2 +0,0 @@\n-a\n-b\n"},
           {"a\n", "a\nb\n", "@@ -1 +1,2 @@\n a\n+b\n"},
           {"a\n", "b\na\n", "@@ -1 +1,2 @@\n+b\n a\n"},
           // the last line's end
           {"a", "a\n", "@@ -1 +1 @@\n-a\n\\ No newline at end of file\n+a\n"},
           {"a\n", "a", "@@ -1 +1 @@\n-a\n+a\n\\ No newline at end of file\n"},
           {"a\nb", "c\nb", "@@ -1,2 +1,2 @@\n-a\n+c\n b\n\\ No newline at end of file\n"},
           {"a\r\n", "a\n", "@@ -1 +1 @@\n-a\r\n+a\n"},
           // three equal lines around each change, and changes that are near each other in one hunk
           {"1\n2\n3\n4\n5\n6\n7\n8\n9\n", "1\n2\n3\n4\nx\n6\n7\n8\n9\n",
            "@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+x\n 6\n 7\n 8\n"},
           {"1\n2\n3\n4\n5\n6\n7\n8\n9\n", "x\n2\n3\n4\n5\n6\n7\nx\n9\n",
            "@@ -1,9 +1,9 @@\n-1\n+x\n 2\n 3\n 4\n 5\n 6\n 7\n-8\n+x\n 9\n"},
           {"1\n2\n3\n4\n5\n6\n7\n8\n9\n", "x\n2\n3\n4\n5\n6\n7\n8\nx\n",
            "@@ -1,4 +1,4 @@\n-1\n+x\n 2\n 3\n 4\n@@ -6,4 +6,4 @@\n 6\n 7\n 8\n-9\n+x\n"},
           // a block that comes behind one like it
           {"host a {\n  x;\n}\nhost c {\n}\n",
            "host a {\n  x;\n}\nhost b {\n  x;\n}\nhost c {\n}\n",
            "@@ -1,5 +1,8 @@\n host a {\n   x;\n }\n+host b {\n+  x;\n+}\n host c {\n }\n"},
       }) {
    EXPECT_EQ(UnifiedDiff(row.old_text, row.new_text, "before", "after"),
              std::string("--- before\n+++ after\n") + row.diff);
  }
  EXPECT_EQ(UnifiedDiff("a\n", "a\n", "before", "after"), "");
  EXPECT_EQ(UnifiedDiff("1\n2\n3\n", "1\nx\n3\n", "f", "f", 0),
            "--- f\n+++ f\n@@ -2 +2 @@\n-2\n+x\n");
  EXPECT_EQ(UnifiedDiff("1\n3\n", "1\n2\n3\n", "f", "f", 0), "--- f\n+++ f\n@@ -1,0 +2 @@\n+2\n");
}

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return lines;
}

/// What a diff makes of a text; "wrong" when it is not a diff of that text.
std::string Patched(const std::string& text, const std::string& diff) {
  const std::vector<std::string> lines = LinesOf(text);
  std::vector<std::string> script = LinesOf(diff);
  for (std::size_t i = 0; i + 1 < script.size(); ++i) {  // a last line without its end
    if (script[i + 1][0] == '\\') script[i].pop_back();
  }
  std::string result;
  std::size_t at = 0;
  for (std::size_t i = 2; i < script.size(); ++i) {
    const std::string line = script[i].substr(1);
    switch (script[i][0]) {
      case '@': {
        const std::size_t begin = std::stoul(script[i].substr(4));
        const bool none = script[i].find(",0 +") != std::string::npos;
        const std::size_t first = none ? begin : begin - 1;
        if (first < at) return "wrong";
        while (at != first) result += lines.at(at++);
        break;
      }
      case ' ':
      case '-':
        if (at == lines.size() || lines[at] != line) return "wrong";
        if (script[i][0] == ' ') result += line;
        ++at;
        break;
      case '+':
        result += line;
        break;
      default:
        break;
    }
  }
  while (at != lines.size()) result += lines[at++];
  return result;
}

std::size_t ChangedLines(const std::string& diff) {
  std::size_t count = 0;
  for (const std::string& line : LinesOf(diff)) count += line[0] == '-' || line[0] == '+' ? 1U : 0U;
  return count == 0 ? 0 : count - 2;
}

/// The fewest lines that must go and come, by the table of all pairs.
std::size_t Fewest(const std::vector<std::string>& left, const std::vector<std::string>& right) {
  std::vector<std::size_t> row(right.size() + 1);
  for (std::size_t j = 0; j <= right.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= left.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= right.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = left[i - 1] == right[j - 1] ? diagonal : std::min(above, row[j - 1]) + 1;
      diagonal = above;
    }
  }
  return row.back();
}

class RandomTexts {
 public:
  std::string Text(std::size_t lines, int kinds) {
    std::string text;
    for (std::size_t i = 0; i != lines; ++i) text += std::to_string(Number(kinds)) + "\n";
    if (lines != 0 && Number(4) == 0) text.pop_back();
    return text;
  }
  std::string Edited(std::string text, int edits) {
    for (int i = 0; i != edits; ++i) {
      const auto place = static_cast<std::size_t>(Number(static_cast<int>(text.size()) + 1));
      if (Number(2) == 0) {
        text.insert(place, "x\ny");
      } else {
        text.erase(place, static_cast<std::size_t>(Number(6)));
      }
    }
    return text;
  }
  int Number(int below) { return static_cast<int>(engine_() % static_cast<unsigned>(below)); }

 private:
  std::mt19937 engine_{20240517};
};

TEST(UnifiedDiff, MakesTheNewTextOfTheOldOneInTheFewestLines) {
  RandomTexts random;
  for (int i = 0; i != 2000; ++i) {
    const std::string old_text = random.Text(static_cast<std::size_t>(random.Number(30)), 8);
    const std::string new_text = i % 2 == 0
                                     ? random.Text(static_cast<std::size_t>(random.Number(30)), 8)
                                     : random.Edited(old_text, random.Number(4));
    const std::string diff =
        UnifiedDiff(old_text, new_text, "f", "f", static_cast<std::size_t>(random.Number(5)));
    ASSERT_EQ(Patched(old_text, diff), new_text) << old_text << "\n" << diff;
    ASSERT_EQ(ChangedLines(diff), Fewest(LinesOf(old_text), LinesOf(new_text))) << diff;
  }
}

#ifdef KLEPUR_SANITIZED
constexpr std::size_t kLines = 1500;
#else
constexpr std::size_t kLines = 8000;
#endif

TEST(UnifiedDiff, IsRightWhereTextsDifferInThousandsOfLines) {
  RandomTexts random;
  for (const int kinds : {2, 50, 100000}) {
    const std::string old_text = random.Text(kLines, kinds);
    for (const std::string& new_text :
         {random.Text(kLines + 1000, kinds), random.Edited(old_text, 3000), std::string("1\n")}) {
      EXPECT_TRUE(Patched(old_text, UnifiedDiff(old_text, new_text, "f", "f")) == new_text)
          << kinds;
    }
  }
}

}  // namespace
}  // namespace klepur
