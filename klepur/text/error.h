// What is thrown when something asked of a document cannot be done.
#ifndef KLEPUR_TEXT_ERROR_H
#define KLEPUR_TEXT_ERROR_H

#include <stdexcept>
#include <string>

#include <klepur/export.h>

namespace klepur {

/// Why something was not done.
enum class ErrorCode {
  kFile,  ///< A file could not be read or written; the text says the step, the path and the reason.
  kTooLarge,  ///< The text reaches 4 GiB.
  kGone,      ///< The block, statement or comment was removed, or is none at all.
  kBadText,  ///< The text that was given is not what is asked for: a word, a value, whole statements.
  kBadPlace,  ///< The place does not fit: in a statement, in itself, between an "if" and its "else".
  kNotFound,  ///< What should be changed is not there.
  kMalformed,  ///< What reading found wrong with the file is in the way: a block that is never closed.
  kChanged,  ///< The file is not what was read any more: somebody else wrote it.
  kLocked,   ///< Somebody else is saving the file, and took too long.
  kRefused,  ///< The file cannot be replaced, only written in place, which the caller did not allow.
  kRejected,  ///< The verifier did not accept the new text.
};

/// The one exception of the document and of what is built on it.
///
/// When an edit throws, the document is as it was before that edit. Malformed text that is read
/// throws nothing: it is data (Finding), and all text stays. Looking for what is not there throws
/// nothing either: the answer is empty. std::bad_alloc can come from everything that is not noexcept,
/// and then too the document is as it was.
class KLEPUR_EXPORT Error : public std::runtime_error {
 public:
  Error(ErrorCode code, const std::string& what) : std::runtime_error(what), code_(code) {}
  ~Error() override;
  ErrorCode Code() const noexcept { return code_; }

 private:
  ErrorCode code_;
};

}  // namespace klepur

#endif
