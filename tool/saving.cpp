#include <tool/saving.h>

#include <klepur/storage/unified_diff.h>

#include <fmt/core.h>

#include <cstdio>

#include <tool/language.h>
#include <tool/output.h>
#include <tool/progress.h>
#include <tool/source.h>

namespace klepur::tool {

EditedFile::EditedFile(const Invocation& invocation)
    : EditedFile(invocation, invocation.Argument("FILE"), false) {}

EditedFile::EditedFile(const Invocation& invocation, const std::string& path, bool only_reads)
    : invocation_(invocation),
      path_(path),
      output_(invocation.Value("output")),
      is_dry_(only_reads || invocation.Has("dry-run")),
      document_("") {
  const Progress progress(fmt::format("reading {}", Name()));
  if (path_ == kStandard) {
    if (output_.empty()) output_ = std::string(kStandard);
    input_ = ReadStandardInput();
    document_ = klepur::Document(input_);
    as_read_ = document_.GetMark();
    return;
  }
  const bool is_replaced = !is_dry_ && output_.empty();
  file_ = is_replaced ? StoredFile::OpenLocked(path_) : StoredFile::Open(path_);
  document_ = file_->Read();
  as_read_ = document_.GetMark();
}

std::string EditedFile::Name() const {
  return ShownName(path_);
}

klepur::Document EditedFile::Before() const {
  return file_ ? klepur::Document::Read(path_) : klepur::Document(input_);
}

void EditedFile::Replace(std::string text) {
  is_replaced_ = text != document_.Text();
  document_ = klepur::Document(text);
}

bool EditedFile::IsChanged() const {
  return is_replaced_ || document_.IsChanged();
}

std::string EditedFile::Diff() const {
  return file_ ? file_->Diff(document_) : UnifiedDiff(input_, document_.Text(), path_, path_);
}

SaveOptions EditedFile::Options() const {
  SaveOptions options;
  if (invocation_.Has("backup")) options.WithBackup();
  if (invocation_.Has("backup-to")) options.WithBackup(invocation_.Value("backup-to"));
  if (invocation_.Has("verify")) options.VerifiedBy(ShellWords(invocation_.Value("verify")));
  if (invocation_.Has("in-place")) options.InPlaceIfNeeded();
  return options;
}

Saved EditedFile::Save() {
  if (is_dry_) return {};
  if (GoesToOutput()) {
    for (const std::string_view piece : document_.Pieces()) {
      std::fwrite(piece.data(), 1, piece.size(), stdout);
    }
    Flush();
    return {true, {}};
  }
  const Progress progress(fmt::format("saving {}", output_.empty() ? Name() : output_));
  const SaveReport report = output_.empty() ? file_->Save(document_, Options())
                                            : SaveText(output_, document_.Text(), Options());
  Saved saved = {report.Written(), {}};
  if (!report.Backup().empty()) {
    saved.notes.push_back(fmt::format("the old text is in {}", report.Backup()));
  }
  for (const std::string& stray : report.StraysRemoved()) {
    saved.notes.push_back(fmt::format("removed {}, which a killed process left", stray));
  }
  if (!report.Warning().empty()) saved.notes.push_back(report.Warning());
  return saved;
}

}  // namespace klepur::tool
