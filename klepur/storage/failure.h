// Internal: how a step that failed is told.
#ifndef KLEPUR_STORAGE_FAILURE_H
#define KLEPUR_STORAGE_FAILURE_H

#include <string>

#include <klepur/text/error.h>

namespace klepur::internal {

/// "PATH: cannot STEP: REASON", with the system's words for the reason, a number as in errno.
Error Failure(ErrorCode code, const std::string& path, const std::string& step, int reason);

/// The same with kFile, for the reason in errno.
Error Failure(const std::string& path, const std::string& step);

/// Whether a step failed because the file or its folder does not let itself be replaced, not because
/// something is broken or used up.
bool IsRefusal(int reason);

/// Failure with kRefused for such a reason in errno; else with kFile.
Error FailureToReplace(const std::string& path, const std::string& step);

}  // namespace klepur::internal

#endif
