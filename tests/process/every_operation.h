// A module that uses the library, to be loaded with dlopen.
#ifndef KLEPUR_TESTS_PROCESS_EVERY_OPERATION_H
#define KLEPUR_TESTS_PROCESS_EVERY_OPERATION_H

extern "C" {

/// Calls every operation of the library, with success and with every kind of failure, on files in
/// `folder`, which must exist. Everything is freed and the files are removed again.
/// \return null; what went wrong when an operation did not do what it should.
__attribute__((visibility("default"))) const char* RunEveryOperation(const char* folder);
}

#endif
