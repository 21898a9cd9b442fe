// Internal: a program that judges a text before it is saved.
#ifndef KLEPUR_STORAGE_VERIFIER_H
#define KLEPUR_STORAGE_VERIFIER_H

#include <chrono>
#include <string>
#include <vector>

namespace klepur::internal {

/// Runs a program with a file as its last argument until it ends or the time is over.
///
/// \param path  how the file that is saved is called in errors.
/// \return what it printed. Throws RejectedText when it does not end with 0 in time, and Error(kFile)
///         when it cannot be run. It has ended when this returns or throws.
std::string Verify(const std::vector<std::string>& command, std::chrono::milliseconds limit,
                   const std::string& file, const std::string& path);

/// The same with a file that has no name. The program gets it open, and "/proc/self/fd/3" as its path.
std::string VerifyOpen(const std::vector<std::string>& command, std::chrono::milliseconds limit,
                       int file, const std::string& path);

}  // namespace klepur::internal

#endif
