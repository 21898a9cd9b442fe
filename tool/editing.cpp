// The commands that edit a file, one edit or a script of them.
#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <memory>
#include <sstream>

#include <tool/command_line.h>
#include <tool/command_table.h>
#include <tool/commands.h>
#include <tool/editor.h>
#include <tool/guard.h>
#include <tool/language.h>
#include <tool/nearest.h>
#include <tool/output.h>
#include <tool/problem.h>
#include <tool/saving.h>
#include <tool/source.h>

namespace klepur::tool {
namespace {

/// How many edits of one command are told one by one.
constexpr std::size_t kMostNotes = 20;

/// Says what was done, and where; of a script by which line of it.
void SayNotes(const EditedFile& file, const std::string& script, const std::vector<EditNote>& notes,
              std::string_view behind) {
  for (std::size_t i = 0; i < notes.size() && i < kMostNotes; ++i) {
    const EditNote& note = notes[i];
    const bool is_of_script = note.script_line != 0;
    SayPlain(fmt::format("{}:{}: {}{}", is_of_script ? script : file.Name(),
                         is_of_script ? note.script_line : note.Line(), note.text, behind));
    for (const std::string& comment : note.comments) {
      SayPlain(fmt::format("  with its comment: {}", OneLine(comment)));
    }
  }
  if (notes.size() > kMostNotes) {
    SayPlain(fmt::format("{}: and {} more{}", script.empty() ? file.Name() : script,
                         notes.size() - kMostNotes, behind));
  }
}

Records EditsOf(const std::vector<EditNote>& notes) {
  Records edits;
  for (const EditNote& note : notes) {
    Record& edit = edits.emplace_back();
    if (note.script_line != 0) edit.With("script_line", note.script_line);
    if (const std::size_t line = note.Line()) edit.With("line", line);
    edit.With("text", note.text).With("comments", note.comments);
  }
  return edits;
}

/// Checks, shows and saves what was edited, and says so.
///
/// \param script  the name of the script, or empty
ExitStatus Finish(const Invocation& invocation, EditedFile& file,
                  const std::vector<EditNote>& notes, const std::string& script = {},
                  const std::string& summary = {}) {
  const Output output(invocation);
  if (!invocation.Has("force")) RefuseNewErrors(file);
  const bool shows_diff = file.IsDry() || invocation.Has("diff");
  const std::string diff = shows_diff ? file.Diff() : std::string();
  const bool is_changed = file.IsChanged();
  const Saved saved = file.Save();
  if (output.IsJson() && !file.GoesToOutput()) {
    Record record;
    record.With("file", file.Name()).With("edits", EditsOf(notes)).With("saved", saved.written);
    if (shows_diff) record.With("diff", diff);
    output.Print(record);
  } else if (!file.GoesToOutput()) {
    output.PrintDiff(diff);
  }
  const std::string_view behind = file.IsDry() ? " (not saved)" : "";
  if (!is_changed) {
    SayPlain(fmt::format("{}: nothing to change", file.Name()));
  } else {
    SayNotes(file, script, notes, behind);
    if (!summary.empty()) SayPlain(fmt::format("{}: {}{}", file.Name(), summary, behind));
  }
  for (const std::string& note : saved.notes) SayPlain(fmt::format("{}: {}", file.Name(), note));
  return ExitStatus::kDone;
}

/// The lines of a script, each an edit in the words of the command line without the file.
class Script {
 public:
  explicit Script(const std::string& name, const std::string& text) : name_(name), text_(text) {}

  /// Carries them all out and gives their number. Throws Problem with the line's number in front.
  std::size_t ApplyTo(Document& document) {
    std::size_t count = 0;
    document.AsOne([&] {
      Editor editor(document, Editor::Tells::kNames);
      std::istringstream lines(text_);
      std::size_t number = 0;
      for (std::string line; std::getline(lines, line);) {
        ++number;
        editor.SetScriptLine(number);
        if (ApplyLine(editor, line, number)) ++count;
      }
      notes_ = editor.Notes();
    });
    return count;
  }

  const std::string& Name() const { return name_; }
  /// What was done.
  const std::vector<EditNote>& Notes() const { return notes_; }

 private:
  bool ApplyLine(Editor& editor, const std::string& line, std::size_t number) {
    const auto where = [&](const char* what) {
      return fmt::format("{}:{}: {}", name_, number, what);
    };
    try {
      const std::vector<std::string> words = ShellWords(line);
      if (words.empty()) return false;
      editor.Apply(LineOf(words.front()).Understand({words.begin() + 1, words.end()}));
      return true;
    } catch (const Problem& problem) {
      throw Problem(problem.Status(), where(problem.what()));
    } catch (const Error& error) {
      throw Error(error.Code(), where(error.what()));
    }
  }

  CommandLine& LineOf(const std::string& name) {
    std::unique_ptr<CommandLine>& line = lines_[name];
    if (line) return *line;
    const Command* const command = FindCommand(name);
    if (command == nullptr || !command->is_edit) {
      throw Problem(ExitStatus::kUsage, fmt::format("there is no edit '{}'{}", name, Hint(name)));
    }
    line = std::make_unique<CommandLine>(*command, CommandLine::Of::kScript);
    return *line;
  }

  static std::string Hint(const std::string& name) {
    std::vector<std::string> edits;
    for (const Command& command : Commands()) {
      if (command.is_edit) edits.emplace_back(command.name);
    }
    const std::string nearest = Nearest(name, edits);
    return nearest.empty() ? "" : fmt::format("; did you mean {}?", nearest);
  }

  std::string name_;
  std::string text_;
  std::vector<EditNote> notes_;
  std::map<std::string, std::unique_ptr<CommandLine>> lines_;
};

}  // namespace

ExitStatus RunEdit(const Invocation& invocation) {
  EditedFile file(invocation);
  Editor editor(file.Document(), Editor::Tells::kPaths);
  editor.Apply(invocation);
  return Finish(invocation, file, editor.Notes());
}

ExitStatus RunScript(const Invocation& invocation) {
  const std::string path = invocation.Argument("SCRIPT");
  if (path == kStandard && invocation.Argument("FILE") == kStandard) {
    throw Problem(ExitStatus::kUsage, "edit: only one of FILE and SCRIPT can be standard input");
  }
  Script script(ShownName(path), ReadWhole(path));
  EditedFile file(invocation);
  const std::size_t count = script.ApplyTo(file.Document());
  return Finish(invocation, file, script.Notes(), script.Name(),
                fmt::format("{} edit{}", count, count == 1 ? "" : "s"));
}

}  // namespace klepur::tool
