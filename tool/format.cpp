// format: one layout for whole files.
#include <fmt/core.h>

#include <algorithm>
#include <exception>
#include <string>

#include <tool/commands.h>
#include <tool/failure.h>
#include <tool/layout.h>
#include <tool/output.h>
#include <tool/problem.h>
#include <tool/saving.h>
#include <tool/source.h>

namespace klepur::tool {
namespace {

std::string StepOf(const std::string& indent) {
  if (indent.empty() || indent == "tab") return "\t";
  return std::string(static_cast<std::size_t>(indent.front() - '0'), ' ');
}

/// What became of one file.
struct Formatted {
  std::string file;
  bool would_change;
  bool saved;
  std::string diff;
};

class Formatting {
 public:
  explicit Formatting(const Invocation& invocation)
      : invocation_(invocation), output_(invocation), step_(StepOf(invocation.Value("indent"))) {}

  Formatted One(const std::string& path) const {
    const bool only_checks = invocation_.Has("check");
    EditedFile file(invocation_, path, only_checks);
    file.Replace(LaidOut(file.Document(), step_));
    Formatted formatted = {file.Name(), file.IsChanged(), false, {}};
    if (!only_checks && (file.IsDry() || invocation_.Has("diff"))) formatted.diff = file.Diff();
    if (!only_checks) Save(file, formatted);
    if (!output_.IsJson() && !file.GoesToOutput()) Tell(formatted);
    return formatted;
  }

 private:
  static void Save(EditedFile& file, Formatted& formatted) {
    const Saved saved = file.Save();
    formatted.saved = saved.written;
    for (const std::string& note : saved.notes) SayPlain(fmt::format("{}: {}", file.Name(), note));
  }

  void Tell(const Formatted& formatted) const {
    if (invocation_.Has("check")) {
      if (formatted.would_change) output_.Print(formatted.file + "\n");
      return;
    }
    output_.PrintDiff(formatted.diff);
    const char* const what = !formatted.would_change ? "is laid out already"
                             : formatted.saved       ? "laid out"
                                                     : "would be laid out (not saved)";
    SayPlain(fmt::format("{}: {}", formatted.file, what));
  }

  const Invocation& invocation_;
  Output output_;
  std::string step_;
};

}  // namespace

ExitStatus RunFormat(const Invocation& invocation) {
  const std::vector<std::string>& files = invocation.Arguments("FILE");
  if (files.size() > 1 && (invocation.Has("output") || invocation.Has("backup-to"))) {
    throw Problem(ExitStatus::kUsage, "format: --output and --backup-to take one FILE");
  }
  const Output output(invocation);
  const Formatting formatting(invocation);
  ExitStatus status = ExitStatus::kDone;
  Records records;
  for (const std::string& path : files) {
    try {
      const Formatted formatted = formatting.One(path);
      if (invocation.Has("check") && formatted.would_change && status == ExitStatus::kDone) {
        status = ExitStatus::kNothing;
      }
      Record record;
      record.With("file", formatted.file).With("would_change", formatted.would_change);
      records.push_back(record.With("saved", formatted.saved).With("diff", formatted.diff));
    } catch (const std::exception& failure) {
      // The other files are formatted all the same.
      const std::string front = ShownName(path) + ": ";
      const std::string message = MessageOf(failure);
      Say(message.rfind(front, 0) == 0 ? message : front + message);
      status = std::max(status, StatusOf(failure));
    }
  }
  if (output.IsJson()) output.Print(Record().With("files", std::move(records)));
  return status;
}

}  // namespace klepur::tool
