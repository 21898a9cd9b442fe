// The files that a command reads.
#ifndef KLEPUR_TOOL_SOURCE_H
#define KLEPUR_TOOL_SOURCE_H

#include <klepur/document/document.h>

#include <string>

namespace klepur::tool {

/// What stands for standard input, or standard output, where a file is named.
constexpr const char* kStandard = "-";

/// Reads a configuration file; "-" is standard input. Throws Problem(kFile), or what Document::Read throws.
Document ReadDocument(const std::string& path);

/// All of standard input. Throws Problem(kFile).
std::string ReadStandardInput();

/// All of a file of any kind; "-" is standard input. Throws Problem(kFile).
std::string ReadWhole(const std::string& path);

/// How a file is called in messages: its path, "standard input" for "-".
std::string ShownName(const std::string& path);

}  // namespace klepur::tool

#endif
