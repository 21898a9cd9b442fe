// Finds what is wrong with a configuration file.
#ifndef KLEPUR_CHECK_CHECKER_H
#define KLEPUR_CHECK_CHECKER_H

#include <memory>
#include <string>
#include <vector>

#include <klepur/check/check_finding.h>
#include <klepur/document/document.h>
#include <klepur/document/family.h>
#include <klepur/export.h>

namespace klepur {

struct CheckOptions {
  /// The server that the file is for. Unknown: as Document::GetFamily tells it, and where the content
  /// does not tell, what either of the two takes is right.
  Family family = Family::kUnknown;
  /// Names of rules that are not to be applied. Names of no rule do nothing.
  std::vector<std::string> off;
};

/// Checks a document piece by piece, so that a program with a window stays quick:
///
///     klepur::Checker checker(document);
///     while (checker.Step()) {
///       if (user_went_on()) return;       // to stop is to step no more
///     }
///     for (const klepur::CheckFinding& finding : checker.Findings()) show(klepur::ToText(finding));
///
/// A comment above a statement or block silences rules for it and all that is in it:
///
///     # klepur: allow duplicate-hardware-address, netmask-with-holes
///     host spare { hardware ethernet 00:16:3e:00:00:01; }
///
/// The document must outlive it, and may be edited between two steps: then the check begins anew. While
/// nobody edits, several checks of one document may run in several threads.
class KLEPUR_EXPORT Checker {
 public:
  explicit Checker(const Document& document, CheckOptions options = {});
  Checker(Checker&&) noexcept;
  Checker& operator=(Checker&&) noexcept;
  ~Checker();

  /// Does a piece of the check and says whether there is more to do. A piece is some thousand statements,
  /// or one rule that looks at the file as a whole; the longest take about a tenth of reading the file.
  /// When it throws std::bad_alloc the check begins anew with the next step.
  bool Step();

  /// What was found, in the order of the file; of several at one place, in the order of the rules. Empty
  /// until the check is done.
  const std::vector<CheckFinding>& Findings() const noexcept;

 private:
  struct Run;
  std::unique_ptr<Run> run_;
};

/// All at once. Cost: some three times that of reading the file.
KLEPUR_EXPORT std::vector<CheckFinding> Check(const Document& document, CheckOptions options = {});

}  // namespace klepur

#endif
