// What the code under test says to the system log.
#ifndef KLEPUR_TESTS_SUPPORT_SYSTEM_LOG_H
#define KLEPUR_TESTS_SUPPORT_SYSTEM_LOG_H

#include <string>
#include <vector>

namespace klepur::test {

/// Every call of openlog, syslog and closelog since the last ClearSystemLog, one text each, in the
/// forms
///
///     openlog dhcpparser LOG_PID LOG_USER
///     syslog LOG_WARNING File /missing doesn't exist!
///     closelog
///
/// Options, facilities and priorities other than those used here appear as numbers. Linking this
/// file puts the three functions in place of the system's; nothing reaches the real log.
std::vector<std::string> SystemLog();

void ClearSystemLog();

}  // namespace klepur::test

#endif
