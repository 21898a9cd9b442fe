#include "tests/support/system_log.h"

#include <stdarg.h>
#include <stdio.h>
#include <syslog.h>

#include <mutex>

namespace {

std::mutex guard;
std::vector<std::string> calls;

void Record(std::string call) {
  const std::lock_guard lock(guard);
  calls.push_back(std::move(call));
}

std::string PriorityName(int priority) {
  if (priority == LOG_WARNING) return "LOG_WARNING";
  if (priority == LOG_INFO) return "LOG_INFO";
  return std::to_string(priority);
}

void RecordMessage(int priority, const char* format, va_list arguments) {
  va_list again;
  va_copy(again, arguments);
  const int length = vsnprintf(nullptr, 0, format, again);
  va_end(again);
  std::string text(static_cast<std::size_t>(length), '\0');
  vsnprintf(text.data(), text.size() + 1, format, arguments);
  Record("syslog " + PriorityName(priority) + " " + text);
}

}  // namespace

extern "C" {

void openlog(const char* identity, int option, int facility) {
  Record(std::string("openlog ") + identity + " " +
         (option == LOG_PID ? "LOG_PID" : std::to_string(option)) + " " +
         (facility == LOG_USER ? "LOG_USER" : std::to_string(facility)));
}

void closelog() {
  Record("closelog");
}

void syslog(int priority, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  RecordMessage(priority, format, arguments);
  va_end(arguments);
}

// What the C library's headers make of syslog when a build asks for checked calls.
void __syslog_chk(int priority, int /*flag*/, const char* format, ...);   // NOLINT
void __syslog_chk(int priority, int /*flag*/, const char* format, ...) {  // NOLINT
  va_list arguments;
  va_start(arguments, format);
  RecordMessage(priority, format, arguments);
  va_end(arguments);
}

}  // extern "C"

namespace klepur::test {

std::vector<std::string> SystemLog() {
  const std::lock_guard lock(guard);
  return calls;
}

void ClearSystemLog() {
  const std::lock_guard lock(guard);
  calls.clear();
}

}  // namespace klepur::test
