// Running a few lines without root's right to open every file.
#ifndef KLEPUR_TESTS_SUPPORT_UNPRIVILEGED_H
#define KLEPUR_TESTS_SUPPORT_UNPRIVILEGED_H

#include <sys/prctl.h>
#include <unistd.h>

namespace klepur::test {

/// Makes the program an ordinary user's while it lives; does nothing when it is one already.
class Unprivileged {
 public:
  Unprivileged() : user_(geteuid()), holds_(user_ != 0 || seteuid(kNobody) == 0) {}
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;
  ~Unprivileged() {
    if (user_ != 0 || seteuid(user_) != 0) return;
    prctl(PR_SET_DUMPABLE, 1);  // the search for leaks at the end of the program needs it
  }

  /// False where the system does not let go of root's rights.
  bool Holds() const { return holds_; }

 private:
  static constexpr uid_t kNobody = 65534;

  uid_t user_;
  bool holds_;
};

}  // namespace klepur::test

#endif
