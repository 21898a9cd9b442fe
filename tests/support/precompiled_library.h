// What much code beside the library includes, compiled once. No file relies on it: each includes what it uses.
#include <klepur/klepur.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
