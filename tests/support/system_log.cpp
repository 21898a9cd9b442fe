#include "tests/support/system_log.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <syslog.h>

#include <initializer_list>
#include <mutex>
#include <utility>

namespace {

std::mutex guard;

// The texts of all calls, each with a NUL byte behind it. They are collected without operator new:
// tests that let it fail ask what was logged about that.
char* texts = nullptr;
size_t size = 0;
FILE* calls = open_memstream(&texts, &size);

/// Its text is what is printed to `calls` while it lives.
class Call {
 public:
  Call() = default;
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;
  ~Call() { fputc('\0', calls); }

 private:
  const std::lock_guard<std::mutex> lock_{guard};
};

/// Prints the name of a number, or the number when it is none of these.
void PrintName(int number, std::initializer_list<std::pair<int, const char*>> names) {
  for (const auto& [named, name] : names) {
    if (named == number) {
      fputs(name, calls);
      return;
    }
  }
  fprintf(calls, "%d", number);
}

void RecordMessage(int priority, const char* format, va_list arguments) {
  const Call call;
  fputs("syslog ", calls);
  PrintName(priority, {{LOG_WARNING, "LOG_WARNING"}, {LOG_INFO, "LOG_INFO"}});
  fputc(' ', calls);
  vfprintf(calls, format, arguments);
}

}  // namespace

extern "C" {

void openlog(const char* identity, int option, int facility) {
  const Call call;
  fprintf(calls, "openlog %s ", identity);
  PrintName(option, {{LOG_PID, "LOG_PID"}});
  fputc(' ', calls);
  PrintName(facility, {{LOG_USER, "LOG_USER"}});
}

void closelog() {
  const Call call;
  fputs("closelog", calls);
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
  fflush(calls);
  std::vector<std::string> log;
  for (const char* text = texts; text != texts + size; text += log.back().size() + 1) {
    log.emplace_back(text);
  }
  return log;
}

void ClearSystemLog() {
  const std::lock_guard lock(guard);
  fclose(calls);
  free(texts);
  calls = open_memstream(&texts, &size);
}

}  // namespace klepur::test
