// What an edit or a save was refused for, as tests write it.
#ifndef KLEPUR_TESTS_SUPPORT_ERROR_WORD_H
#define KLEPUR_TESTS_SUPPORT_ERROR_WORD_H

#include <klepur/text/error.h>

#include <string_view>

namespace klepur::test {

/// "bad place"; "file".
std::string_view ToText(ErrorCode code);

}  // namespace klepur::test

#endif
