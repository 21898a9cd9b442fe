// What most test files include, compiled once. No file relies on it: each includes what it uses.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/precompiled_library.h"
