#include "tests/support/error_word.h"

namespace klepur::test {

std::string_view ToText(ErrorCode code) {
  switch (code) {
    case ErrorCode::kFile:
      return "file";
    case ErrorCode::kTooLarge:
      return "too large";
    case ErrorCode::kGone:
      return "gone";
    case ErrorCode::kBadText:
      return "bad text";
    case ErrorCode::kBadPlace:
      return "bad place";
    case ErrorCode::kNotFound:
      return "not found";
    case ErrorCode::kMalformed:
      return "malformed";
    case ErrorCode::kChanged:
      return "changed";
    case ErrorCode::kLocked:
      return "locked";
    case ErrorCode::kRefused:
      return "refused";
    case ErrorCode::kRejected:
      return "rejected";
  }
  return "?";
}

}  // namespace klepur::test
