// The configuration files that the DHCP server has judged, and the server.
#ifndef KLEPUR_TESTS_SERVER_JUDGED_FILES_H
#define KLEPUR_TESTS_SERVER_JUDGED_FILES_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace klepur::test {

/// A file of tests/data/server: "v4/crlf.conf".
struct JudgedFile {
  std::string name;
  std::string path;
  bool is_v6;
};

/// Those that the server accepts, without what they include.
std::vector<JudgedFile> AcceptedFiles();

/// A file with one mistake in it.
struct RefusedFile {
  JudgedFile file;
  std::size_t named;    ///< The line that the server names; kNoLine when it names none.
  std::size_t mistake;  ///< The line that the file itself says the mistake is in.
};
inline constexpr std::size_t kNoLine = static_cast<std::size_t>(-1);
std::vector<RefusedFile> RefusedFiles();

/// Whether scripts/fetch_server has got the server.
bool ServerIsHere();

/// A text that the server is asked about, in the place of a file of tests/data/server.
struct Question {
  std::string text;
  bool is_v6;
};
/// What the server says about each: nothing when it accepts it.
std::vector<std::string> AskServer(const std::vector<Question>& questions);

}  // namespace klepur::test

#endif
