#include <klepur/storage/failure.h>

#include <cerrno>
#include <cstring>

namespace klepur::internal {

Error Failure(ErrorCode code, const std::string& path, const std::string& step, int reason) {
  return {code, path + ": cannot " + step + ": " + std::strerror(reason)};
}

Error Failure(const std::string& path, const std::string& step) {
  return Failure(ErrorCode::kFile, path, step, errno);
}

bool IsRefusal(int reason) {
  return reason == EACCES || reason == EPERM || reason == EROFS || reason == EBUSY ||
         reason == EXDEV || reason == EOPNOTSUPP;
}

Error FailureToReplace(const std::string& path, const std::string& step) {
  const int reason = errno;
  const ErrorCode code = IsRefusal(reason) ? ErrorCode::kRefused : ErrorCode::kFile;
  return Failure(code, path, step, reason);
}

}  // namespace klepur::internal
