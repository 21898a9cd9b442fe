// What a command says and returns when it fails.
#ifndef KLEPUR_TOOL_FAILURE_H
#define KLEPUR_TOOL_FAILURE_H

#include <exception>
#include <string>

#include <tool/exit_status.h>

namespace klepur::tool {

/// The message for people, with what a verifier printed.
std::string MessageOf(const std::exception& failure);

ExitStatus StatusOf(const std::exception& failure);

}  // namespace klepur::tool

#endif
